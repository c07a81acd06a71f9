// wav_io.h - documents through the WAV reader, and the data of small WAV files, for their tests.
#pragma once

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

#include "document/sample_access.h"
#include "document/wav_file.h"
#include "document/wav_fixture.h"
#include "platform/file.h"
#include "support/test_host.h"

namespace cantorix {

using fixture::Bytes;
using fixture::Chunk;
using fixture::FormatBytes;
using fixture::Riff;
using fixture::Samples16;
using fixture::Wav;
using Values = std::vector<std::int16_t>;

// A document read from `bytes`; none when they are declined.
inline std::unique_ptr<CSonadexDoc> ReadWav(TestHost& host, const Bytes& bytes) {
  WriteBytes(host.folder / "in.wav", bytes);
  auto document = std::make_unique<CSonadexDoc>(host.host);
  if (!ReadWave(*document, File::OpenForReading(host.folder / "in.wav"))) return nullptr;
  return document;
}

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
