// interleaved_samples.cpp - blocks of frames, taken apart.
#include "document/interleaved_samples.h"

#include <algorithm>
#include <vector>

#include "document/file_samples.h"
#include "document/sample_loader.h"
#include "platform/file.h"

namespace cantorix {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 18U;

}  // namespace

std::int64_t InterleavedSamples::OffsetOf(std::int64_t position) const {
  return place_.dataOffset + position * static_cast<std::int64_t>(place_.frameBytes);
}

std::optional<FileStretch> InterleavedSamples::Plain(std::int64_t position) const {
  if (place_.coding != SampleCoding::kSigned16 || place_.order != ByteOrder::kLowFirst ||
      place_.frameBytes != sizeof(std::int16_t)) {
    return std::nullopt;
  }
  return FileStretch{&file_, OffsetOf(position)};
}

std::int64_t InterleavedSamples::Held() const {
  return SamplesIn(std::max<std::int64_t>(file_.Size() - place_.dataOffset, 0));
}

std::size_t InterleavedSamples::Read(std::int64_t position, std::span<std::int16_t> out) const {
  if (Plain(position)) return ReadAsTheyAre(position, out);
  const std::size_t block = std::max<std::size_t>(1, kBlockBytes / place_.frameBytes);
  std::size_t held = 0;
  for (std::size_t done = 0; done < out.size(); done += block) {
    held += ReadFrames(position + static_cast<std::int64_t>(done),
                       out.subspan(done, std::min(block, out.size() - done)));
  }
  return held;
}

// One channel of 16 bits: the file's bytes are the samples.
std::size_t InterleavedSamples::ReadAsTheyAre(std::int64_t position,
                                              std::span<std::int16_t> out) const {
  const std::size_t got = file_.ReadSome(OffsetOf(position), std::as_writable_bytes(out));
  const std::size_t whole = got / sizeof(std::int16_t);
  SwapFromLittle(out.first(whole));
  std::fill(out.begin() + static_cast<std::ptrdiff_t>(whole), out.end(), std::int16_t{0});
  return whole;
}

// Of so many bytes of frames; the last frame may lack the channels behind this one.
std::int64_t InterleavedSamples::SamplesIn(std::int64_t bytes) const {
  const auto firstEnd = static_cast<std::int64_t>(place_.channelOffset + WidthOf(place_.coding));
  if (bytes < firstEnd) return 0;
  return (bytes - firstEnd) / static_cast<std::int64_t>(place_.frameBytes) + 1;
}

std::size_t InterleavedSamples::ReadFrames(std::int64_t position,
                                           std::span<std::int16_t> out) const {
  std::vector<std::byte> raw(out.size() * place_.frameBytes);
  const std::size_t got = file_.ReadSome(OffsetOf(position), raw);
  const auto whole = static_cast<std::size_t>(SamplesIn(static_cast<std::int64_t>(got)));
  if (whole > 0) {
    ConvertSamples(place_.coding, std::span(raw).subspan(place_.channelOffset), place_.frameBytes,
                   out.first(whole), place_.order);
  }
  std::fill(out.begin() + static_cast<std::ptrdiff_t>(whole), out.end(), std::int16_t{0});
  return whole;
}

std::int64_t FramesBehind(const File& file, std::int64_t dataOffset, std::size_t frameBytes) {
  return std::max<std::int64_t>(file.Size() - dataOffset, 0) /
         static_cast<std::int64_t>(frameBytes);
}

void ReadInterleaved(CSonadexDoc& document, const File& file, const ForeignSound& sound,
                     const InterleavedPlace& first) {
  ReadForeign(document, file, sound, [&](int channel) {
    InterleavedPlace place = first;
    place.channelOffset += static_cast<std::size_t>(channel) * WidthOf(first.coding);
    const InterleavedSamples samples(file, place);
    const std::int64_t count = std::min(sound.frames.value_or(samples.Held()), samples.Held());
    const double durationMs = static_cast<double>(count) * 1000.0 / sound.rateHz;
    if (LeaveInFile(document, file, place, durationMs, count)) return count;
    return LoadSamplesUpTo(document, sound.rateHz, sound.frames,
                           [&samples](std::int64_t position, std::span<std::int16_t> out) {
                             return samples.Read(position, out);
                           });
  });
}

}  // namespace cantorix
