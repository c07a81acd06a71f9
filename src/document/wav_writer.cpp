// wav_writer.cpp - the header of an exported WAV file and the stretch that goes into it.
#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>

#include "document/document.h"
#include "document/sample_writer.h"
#include "document/wav_file.h"
#include "platform/bytes.h"
#include "platform/file_error.h"
#include "platform/numbers.h"
#include "platform/safe_file.h"

namespace cantorix {
namespace {

constexpr std::size_t kHeaderBytes = 44;
constexpr std::int64_t kSampleBytes = 2;

void StoreId(std::span<std::byte> header, std::size_t offset, std::string_view id) {
  std::memcpy(header.data() + offset, id.data(), id.size());
}

std::array<std::byte, kHeaderBytes> HeaderOf(double rateHz, std::uint32_t dataBytes) {
  const auto rate = static_cast<std::uint32_t>(
      std::clamp<std::int64_t>(Truncate(rateHz), 0, std::numeric_limits<std::uint32_t>::max()));
  std::array<std::byte, kHeaderBytes> header{};
  const std::span<std::byte> place(header);
  StoreId(place, 0, "RIFF");
  // Kept: the data bytes, not the 36 more that the rest of the file has. Other programs' results
  // depend on these very bytes, and readers go by the file's length.
  StoreLittle(place, 4, dataBytes);
  StoreId(place, 8, "WAVE");
  StoreId(place, 12, "fmt ");
  StoreLittle(place, 16, std::uint32_t{16});
  StoreLittle(place, 20, std::uint16_t{1});  // PCM
  StoreLittle(place, 22, std::uint16_t{1});  // channels
  StoreLittle(place, 24, rate);
  StoreLittle(place, 28, rate * static_cast<std::uint32_t>(kSampleBytes));
  StoreLittle(place, 32, static_cast<std::uint16_t>(kSampleBytes));
  StoreLittle(place, 34, std::uint16_t{16});  // bits
  StoreId(place, 36, "data");
  StoreLittle(place, 40, dataBytes);
  return header;
}

// The stretch of whole samples inside the recording, from the truncated start for the truncated
// length.
WaveBytes BytesOf(const CChannel& channel, const std::optional<SampleRange>& range) {
  const std::int64_t held = channel.sampleCount();
  if (!range) return {0, held * kSampleBytes};
  const std::int64_t start = std::clamp<std::int64_t>(Truncate(range->start), 0, held);
  const std::int64_t count = std::clamp<std::int64_t>(Truncate(range->length()), 0, held - start);
  return {start * kSampleBytes, count * kSampleBytes};
}

// Written so that a rate that is not a number is refused too.
void RequireReadable(const CChannel& channel, WaveBytes bytes) {
  if (bytes.count == 0) throw SaveRefused("There is no sample to write.");
  if (bytes.count > kMaxWaveBytes) throw SaveRefused("A WAV file cannot hold so many samples.");
  if (!(channel.sampleRateHz >= 1.0)) {
    throw SaveRefused("A WAV file cannot hold a sample rate below 1 Hz.");
  }
  if (channel.sampleRateHz > std::numeric_limits<std::uint32_t>::max()) {
    throw SaveRefused("A WAV file cannot hold so high a sample rate.");
  }
}

}  // namespace

void WriteWave(const ByteSink& sink, const CSonadexDoc& document, WaveBytes bytes,
               Progress& progress) {
  if (bytes.count < 0 || bytes.count > kMaxWaveBytes) {
    throw std::length_error("a WAV file cannot hold this many bytes");
  }
  sink(HeaderOf(document.channel().sampleRateHz, static_cast<std::uint32_t>(bytes.count)));
  WriteSamples(sink, document, bytes.first / kSampleBytes, bytes.count / kSampleBytes, progress);
}

Durability ExportWave(CSonadexDoc& document, const std::string& path,
                      const std::optional<SampleRange>& range) {
  const WaveBytes bytes = BytesOf(document.channel(), range);
  RequireReadable(document.channel(), bytes);
  return ReplaceFile(path, [&](const ByteSink& sink) {
    WriteWave(sink, document, bytes, document.host().progress);
    if (document.host().progress.Cancelled()) throw Abandoned(AbandonReason::kCancelled);
  });
}

}  // namespace cantorix
