// document_io.h - documents through readers and writers, the bytes of small files, and a recording
// whose samples tell their place, for the tests of this folder.
#pragma once

#include <bit>
#include <functional>
#include <initializer_list>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "document/label.h"
#include "document/native_file.h"
#include "document/native_fixture.h"
#include "document/wav_file.h"
#include "document/wav_fixture.h"
#include "platform/bytes.h"
#include "support/test_host.h"

namespace cantorix {

using fixture::Bytes;
using fixture::Chunk;
using fixture::FormatBytes;
using fixture::Riff;
using fixture::Samples16;
using fixture::Wav;
using Values = std::vector<std::int16_t>;

inline Values SamplesOf(const CSonadexDoc& document) {
  Values samples(static_cast<std::size_t>(document.Samples().length()));
  document.Samples().Read(0, samples);
  return samples;
}

// The same program, with another user.
inline DocumentHost HostOf(TestHost& program, Prompts& user) {
  return {.prompts = user,
          .progress = program.progress,
          .memory = program.memory,
          .programDirectory = program.folder.path(),
          .application = {},
          .documentsWriteConfiguration = false};
}

// A document read from `bytes`; none when they are declined.
template <typename Reader>
std::unique_ptr<CSonadexDoc> ReadBy(Reader reader, TestHost& host, const Bytes& bytes) {
  WriteBytes(host.folder / "in.wav", bytes);
  auto document = std::make_unique<CSonadexDoc>(host.host);
  if (!reader(*document, File::OpenForReading(host.folder / "in.wav"))) return nullptr;
  return document;
}
inline std::unique_ptr<CSonadexDoc> Read(TestHost& host, const Bytes& bytes) {
  return ReadBy(ReadNative, host, bytes);
}
inline std::unique_ptr<CSonadexDoc> ReadWav(TestHost& host, const Bytes& bytes) {
  return ReadBy(ReadWave, host, bytes);
}

inline Bytes Written(CSonadexDoc& document,
                     const std::optional<NativeRange>& range = std::nullopt) {
  Bytes bytes;
  WriteNative([&](auto piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); }, document,
              range, document.host().progress);
  return bytes;
}

// The file of the samples [first, first + count) of a ramp at `rateHz`.
inline Bytes RampWave(std::int64_t first, std::int64_t count, std::int64_t rateHz = 1000) {
  ByteBuilder data;
  for (std::int64_t k = first; k < first + count; ++k) data.I16({k});
  return Wav({.rateHz = rateHz}, data.bytes);
}

template <typename T>
Bytes With(Bytes bytes, std::size_t at, T value) {
  StoreLittle(std::span<std::byte>(bytes), at, value);
  return bytes;
}

inline Label LabelAt(double timeMs, const std::string& text) {
  Label label;
  label.timeMs = timeMs;
  label.text = text;
  return label;
}

// A recording whose sample k is k; at 1000 Hz a sample is a millisecond.
inline void FillWithRamp(CSonadexDoc& document, double length, double rateHz = 1000.0) {
  CChannel& channel = document.channel();
  channel.sampleRateHz = rateHz;
  channel.totalLength = length;
  channel.totalDurationMs = length * 1000.0 / rateHz;
  SampleBlock block(channel.sampleCount());
  std::iota(block.samples().begin(), block.samples().end(), std::int16_t{0});
  document.HoldInMemory(std::move(block));
}

// Puts the samples that the document has in memory into its store.
inline void MoveToStore(CSonadexDoc& document) {
  DocumentHost& host = document.host();
  auto store = std::make_unique<SampleStore>(host.programDirectory, host.storeCounter);
  store->Append(document.channel().samples.samples());
  document.HoldOnDisk(std::move(store));
}

inline NativeRange RangeOf(double start, double end) { return {{start, start}, {end, end}}; }

inline Bytes Floats(std::initializer_list<float> values) {
  ByteBuilder data;
  for (const float value : values) data.I32({std::bit_cast<std::int32_t>(value)});
  return data.bytes;
}
inline Bytes Doubles(std::initializer_list<double> values) {
  return ByteBuilder().F64(values).bytes;
}
inline Bytes Raw(std::initializer_list<std::int64_t> values) {
  return ByteBuilder().U8(values).bytes;
}

// The content of an extensible "fmt " chunk.
inline Bytes Extensible(int bits, int subFormat) {
  ByteBuilder body;
  body.bytes = FormatBytes({.tag = 0xFFFE, .bits = bits});
  body.I16({22, bits}).I32({4, subFormat}).I16({0, 16}).I32({0xAA000080, 0x719B3800});
  return body.bytes;
}

}  // namespace cantorix
