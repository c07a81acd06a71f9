// native_io.h - documents through the native reader and writer, for their tests.
#pragma once

#include <functional>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "document/label.h"
#include "document/native_file.h"
#include "document/native_fixture.h"
#include "document/sample_access.h"
#include "platform/bytes.h"
#include "support/test_host.h"

namespace cantorix {

using Bytes = std::vector<std::byte>;

// A document read from `bytes`; none when they are declined.
inline std::unique_ptr<CSonadexDoc> Read(TestHost& host, const Bytes& bytes) {
  WriteBytes(host.folder / "in", bytes);
  auto document = std::make_unique<CSonadexDoc>(host.host);
  if (!ReadNative(*document, File::OpenForReading(host.folder / "in"))) return nullptr;
  return document;
}

inline Bytes Written(CSonadexDoc& document,
                     const std::optional<NativeRange>& range = std::nullopt) {
  Bytes bytes;
  WriteNative([&](auto piece) { bytes.insert(bytes.end(), piece.begin(), piece.end()); }, document,
              range, document.host().progress);
  return bytes;
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

// A recording of `durationMs` at 1000 Hz whose sample k is k.
inline void FillWithRamp(CSonadexDoc& document, double durationMs) {
  CChannel& channel = document.channel();
  channel.sampleRateHz = 1000.0;
  channel.totalDurationMs = channel.totalLength = durationMs;
  SampleBlock block(channel.sampleCount());
  std::iota(block.samples().begin(), block.samples().end(), std::int16_t{0});
  document.HoldInMemory(std::move(block));
}

inline NativeRange RangeOf(double start, double end) { return {{start, start}, {end, end}}; }

}  // namespace cantorix
