// au_reader.cpp - SUN and NeXT sound: six words, a text, samples. Machines with their low byte
// first wrote the same with every word turned round, and some a letter less of the name.
#include <algorithm>
#include <optional>

#include "document/file_window.h"
#include "document/interleaved_samples.h"
#include "document/readers/decoded_recording.h"
#include "document/readers/readers.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

using std::string_view_literals::operator""sv;  // NOLINT: the analyser does not see its use

constexpr std::int64_t kHeaderBytes = 24;
constexpr std::uint32_t kOpenLength = 0xFFFFFFFF;  // up to the end; a program that died leaves 0

std::optional<ByteOrder> OrderOf(const File& file) {
  if (HasMagic(file, ".snd") || HasMagic(file, ".sd\0"sv)) return ByteOrder::kHighFirst;
  if (HasMagic(file, "dns.") || HasMagic(file, "\0ds."sv)) return ByteOrder::kLowFirst;
  return std::nullopt;
}

std::optional<SampleCoding> CodingOf(std::uint32_t number) {
  switch (number) {
    case 1:
      return SampleCoding::kMuLaw;
    case 2:
      return SampleCoding::kSigned8;
    case 3:
      return SampleCoding::kSigned16;
    case 4:
      return SampleCoding::kSigned24;
    case 5:
      return SampleCoding::kSigned32;
    case 6:
      return SampleCoding::kFloat32;
    case 7:
      return SampleCoding::kFloat64;
    case 27:
      return SampleCoding::kALaw;
    default:
      return std::nullopt;
  }
}

void ReadPlain(CSonadexDoc& document, const File& file, ForeignSound sound, InterleavedPlace first,
               std::uint32_t claimedBytes) {
  first.frameBytes = static_cast<std::size_t>(sound.channels) * WidthOf(first.coding);
  sound.frames = FramesBehind(file, first.dataOffset, first.frameBytes);
  if (claimedBytes != kOpenLength && claimedBytes != 0) {
    sound.promised = claimedBytes / first.frameBytes;
    sound.frames = std::min(*sound.frames, *sound.promised);
  }
  ReadInterleaved(document, file, sound, first);
}

}  // namespace

bool ReadAu(CSonadexDoc& document, const File& file) {
  const auto order = OrderOf(file);
  if (!order) return false;
  FileWindow window(file);
  const auto header = window.At(0, kHeaderBytes);
  const auto word = [&](std::size_t at) { return LoadIn<std::uint32_t>(*order, header, at); };
  const auto coding = CodingOf(word(12));
  if (!coding) {
    const auto decoder =
        OpenDecoder(file, "a SUN au file of the coding " + std::to_string(word(12)));
    ForeignSound sound = SoundOf(*decoder);
    sound.format = "SUN au";
    ReadDecoded(document, file, sound, *decoder);
    return true;
  }
  const std::uint32_t channels = word(20);
  if (channels < 1 || channels > 1024 || word(4) < kHeaderBytes) {
    throw FileError("It is a SUN au file whose header is not possible.");
  }
  ReadPlain(document, file,
            {.format = "SUN au",
             .coding = NameOf(*coding, *order),
             .channels = static_cast<int>(channels),
             .rateHz = static_cast<double>(word(16)),
             .frames = {}},
            {.coding = *coding, .order = *order, .dataOffset = word(4)}, word(8));
  return true;
}

}  // namespace cantorix
