// wav_fixture.h - small WAV files written down by hand, independent of the writer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "support/byte_builder.h"

namespace cantorix::fixture {

using Bytes = std::vector<std::byte>;

struct WavFormat {
  int tag = 1;
  int channels = 1;
  int bits = 16;
  std::int64_t rateHz = 8000;
  int frameBytes = -1;  // -1: what channels and bits make
};

inline void Append(ByteBuilder& file, const Bytes& bytes) {
  file.bytes.insert(file.bytes.end(), bytes.begin(), bytes.end());
}

inline Bytes FormatBytes(const WavFormat& format) {
  const int frame =
      format.frameBytes >= 0 ? format.frameBytes : format.channels * ((format.bits + 7) / 8);
  ByteBuilder body;
  body.I16({format.tag, format.channels}).I32({format.rateHz, format.rateHz * frame});
  body.I16({frame, format.bits});
  return body.bytes;
}

// A chunk that claims `claimed` bytes; as many as it has when that is not given.
inline Bytes Chunk(std::string_view id, const Bytes& content, std::int64_t claimed = -1) {
  ByteBuilder chunk;
  chunk.Text(id, 4).I32({claimed >= 0 ? claimed : static_cast<std::int64_t>(content.size())});
  Append(chunk, content);
  return chunk.bytes;
}

inline Bytes Riff(const std::vector<Bytes>& chunks, std::string_view id = "RIFF",
                  std::string_view form = "WAVE", std::size_t size = 0) {
  ByteBuilder file;
  file.Text(id, 4).I32({static_cast<std::int64_t>(size)}).Text(form, 4);
  for (const Bytes& chunk : chunks) Append(file, chunk);
  return file.bytes;
}

// With the size that the program itself writes, that of the data.
inline Bytes Wav(const WavFormat& format, const Bytes& data) {
  return Riff({Chunk("fmt ", FormatBytes(format)), Chunk("data", data)}, "RIFF", "WAVE",
              data.size());
}

inline Bytes Samples16(std::initializer_list<std::int64_t> values) {
  return ByteBuilder().I16(values).bytes;
}

}  // namespace cantorix::fixture
