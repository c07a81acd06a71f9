// riff.h - finding the format and the samples in a RIFF "WAVE" file.
// Only positions and raw bytes: what the format bytes mean is wav_reader.cpp's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/file.h"

namespace cantorix {

struct RiffHeader {
  std::array<std::byte, 18> format{};  // the first bytes of the "fmt " chunk, then zeros
  std::int64_t formatOffset = 0;       // of the chunk's content in the file
  std::int64_t formatBytes = 0;        // that the chunk claims; 0 when there is none
  double dataLength = 0.0;             // bytes, never more than the file's length
  double promisedLength = 0.0;         // bytes that the header claims
  std::int64_t dataOffset = 0;         // of the first sample
};

// Walks the chunks up to the first "data". Where a recorder that died or a stream has left the
// length open, as 0 or 0xFFFFFFFF, it is what follows in the file; RF64 and BW64 files give sizes
// past 4 GiB in a chunk of their own. Nothing when the file is no "WAVE" file or has no "data".
// Throws FileError when the file cannot be read.
std::optional<RiffHeader> ReadRiffHeader(const File& file);

// The same for a W64 file.
std::optional<RiffHeader> ReadWave64Header(const File& file);

}  // namespace cantorix
