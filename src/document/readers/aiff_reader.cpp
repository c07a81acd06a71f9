// aiff_reader.cpp - AIFF and AIFC: the container is walked here, the samples are decoded elsewhere.
// The header is looked at for what the decoder does not tell: an exact rate, the length that is
// promised, and the marks.
#include <algorithm>
#include <cmath>

#include "document/readers/chunks.h"
#include "document/readers/decoded_recording.h"
#include "document/readers/markers.h"
#include "document/readers/readers.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr std::int64_t kFirstChunk = 12;
constexpr std::int64_t kCommonBytes = 18;
constexpr std::size_t kCodingAt = 18;

struct AiffHeader {
  bool isCompressedForm = false;  // AIFC
  bool hasCommon = false;
  std::int64_t frames = 0;  // as promised
  double rateHz = 0.0;
  std::string coding;  // its four letters
  std::vector<Marker> markers;
};

// A number of 80 bits: sign and exponent, then a mantissa with its leading 1.
double ExtendedAt(std::span<const std::byte> block, std::size_t offset) {
  constexpr int kBias = 16383 + 63;
  const int head = LoadIn<std::uint16_t>(ByteOrder::kHighFirst, block, offset);
  const auto mantissa = LoadIn<std::uint64_t>(ByteOrder::kHighFirst, block, offset + 2);
  const double size = std::ldexp(static_cast<double>(mantissa), (head & 0x7FFF) - kBias);
  return (head & 0x8000) != 0 ? -size : size;
}

void TakeCommon(const File& file, const FileChunk& chunk, AiffHeader& header) {
  if (chunk.bytes < kCommonBytes) return;
  FileWindow window(file);
  const auto block = window.At(chunk.content, kCodingAt + 4);
  header.hasCommon = true;
  header.frames = LoadIn<std::uint32_t>(ByteOrder::kHighFirst, block, 2);
  header.rateHz = ExtendedAt(block, 8);
  if (header.isCompressedForm && chunk.bytes >= kCommonBytes + 4) {
    header.coding = LoadText(block, kCodingAt, 4);
  }
}

AiffHeader HeaderOf(const File& file) {
  AiffHeader header;
  header.isCompressedForm = HasMagic(file, "AIFC", 8);
  ChunkWalk walk(file, kFirstChunk, file.Size(), ByteOrder::kHighFirst);
  while (const auto chunk = walk.Next()) {
    if (chunk->id == "COMM") TakeCommon(file, *chunk, header);
    if (chunk->id == "MARK") header.markers = AiffMarkers(file, *chunk);
  }
  return header;
}

// Of these a frame of the header is a block of samples.
bool CountsBlocks(const std::string& coding) { return coding == "ima4" || coding == "GSM "; }

// The decoder names the order only where it is not that of the format.
std::string WithOrder(const std::string& coding) {
  const bool hasOrder = coding.find("PCM") != coding.npos || coding.find("float") != coding.npos;
  const bool isNamed = coding.ends_with("byte first") || coding.find(" 8 bit") != coding.npos;
  return hasOrder && !isNamed ? coding + ", high byte first" : coding;
}

}  // namespace

bool ReadAiff(CSonadexDoc& document, const File& file) {
  if (!HasMagic(file, "FORM")) return false;
  if (!HasMagic(file, "AIFF", 8) && !HasMagic(file, "AIFC", 8)) return false;
  AiffHeader header = HeaderOf(file);
  if (header.hasCommon && header.frames == 0) throw FileError("It holds no samples.");
  const std::string coding =
      header.coding.empty() ? std::string() : " of the coding \"" + header.coding + "\"";
  const auto decoder = OpenDecoder(file, "an AIFF file" + coding);
  ForeignSound sound = SoundOf(*decoder);
  sound.format = header.isCompressedForm ? "AIFC" : "AIFF";
  sound.coding = WithOrder(sound.coding);
  // The decoder cuts the fraction off: Macintosh computers recorded at 22254.54 Hz.
  if (std::fabs(header.rateHz - sound.rateHz) < 1.0) sound.rateHz = header.rateHz;
  if (header.hasCommon && !CountsBlocks(header.coding)) {
    sound.promised = header.frames;
    sound.frames = std::min(header.frames, sound.frames.value_or(header.frames));
  }
  ReadDecoded(document, file, sound, *decoder);
  SetMarkerLabels(document, std::move(header.markers));
  return true;
}

}  // namespace cantorix
