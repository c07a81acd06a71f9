// wav_reader.cpp - the format of a WAV file and the way of its samples into the document.
#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <string>

#include "document/document.h"
#include "document/file_samples.h"
#include "document/file_window.h"
#include "document/foreign_recording.h"
#include "document/interleaved_samples.h"
#include "document/readers/decoded_recording.h"
#include "document/readers/markers.h"
#include "document/riff.h"
#include "document/sample_conversion.h"
#include "document/sample_loader.h"
#include "document/wav_file.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

// Places in the "fmt " chunk.
constexpr std::size_t kTag = 0;
constexpr std::size_t kChannels = 2;
constexpr std::size_t kRate = 4;
constexpr std::size_t kFrameBytes = 12;
constexpr std::size_t kBits = 14;
constexpr std::int64_t kSubFormat = 24;

constexpr std::uint32_t kTagPcm = 1;
constexpr std::uint32_t kTagFloat = 3;
constexpr std::uint32_t kTagALaw = 6;
constexpr std::uint32_t kTagMuLaw = 7;
constexpr std::uint32_t kTagGsm = 0x31;
constexpr std::int64_t kGsmBlockBytes = 65;
constexpr std::int64_t kGsmBlockSamples = 320;
constexpr std::uint32_t kTagExtensible = 0xFFFE;

struct WaveFormat {
  int channels = 0;
  double rateHz = 0.0;
  std::size_t frameBytes = 0;
  SampleCoding coding = SampleCoding::kSigned16;
};

// The tag itself, or the first number of the sub-format's identifier that stands for it; 0 for one
// that the chunk is too short to have.
std::uint32_t EffectiveTag(const File& file, const RiffHeader& header) {
  const std::uint32_t tag = LoadLittle<std::uint16_t>(header.format, kTag);
  if (tag != kTagExtensible) return tag;
  std::array<std::byte, 4> subFormat{};
  if (header.formatBytes < kSubFormat + std::int64_t{sizeof subFormat}) return 0;
  file.ReadSome(header.formatOffset + kSubFormat, subFormat);
  return LoadLittle<std::uint32_t>(subFormat, 0);
}

std::optional<SampleCoding> PcmOf(int bits) {
  if (bits < 1 || bits > 32) return std::nullopt;
  if (bits <= 8) return SampleCoding::kUnsigned8;
  if (bits <= 16) return SampleCoding::kSigned16;
  return bits <= 24 ? SampleCoding::kSigned24 : SampleCoding::kSigned32;
}

std::optional<SampleCoding> CodingOf(std::uint32_t tag, int bits) {
  switch (tag) {
    case kTagPcm:
      return PcmOf(bits);
    case kTagFloat:
      if (bits == 32) return SampleCoding::kFloat32;
      if (bits == 64) return SampleCoding::kFloat64;
      return std::nullopt;
    case kTagALaw:
      return SampleCoding::kALaw;
    case kTagMuLaw:
      return SampleCoding::kMuLaw;
    default:
      return std::nullopt;
  }
}

// Frames that are not exactly their channels could be taken apart in more than one way, so such a
// file is refused rather than read as something that it may not be.
std::optional<WaveFormat> FormatOf(const File& file, const RiffHeader& header) {
  const auto coding =
      CodingOf(EffectiveTag(file, header), LoadLittle<std::uint16_t>(header.format, kBits));
  if (!coding) return std::nullopt;
  WaveFormat format;
  format.coding = *coding;
  format.channels = LoadLittle<std::uint16_t>(header.format, kChannels);
  format.rateHz = LoadLittle<std::uint32_t>(header.format, kRate);
  format.frameBytes = LoadLittle<std::uint16_t>(header.format, kFrameBytes);
  const bool whole =
      format.frameBytes == static_cast<std::size_t>(format.channels) * WidthOf(format.coding);
  if (format.channels == 0 || format.rateHz == 0.0 || !whole) return std::nullopt;
  return format;
}

// Says that the file is shorter than its header promises.
void TellOfMissingSamples(CSonadexDoc& document, const File& file, const RiffHeader& header,
                          std::size_t frameBytes) {
  const auto frames = [frameBytes](double bytes) {
    return Truncate(std::max(bytes, 0.0) / static_cast<double>(frameBytes));
  };
  TellOfMissing(document, frames(header.promisedLength),
                frames(static_cast<double>(file.Size() - header.dataOffset)),
                " Missing samples read as 0.");
}

constexpr struct {
  std::uint32_t tag;
  const char* name;
} kNamedTags[] = {
    {0x02, "Microsoft ADPCM"}, {0x11, "IMA ADPCM"},      {0x14, "G.723 ADPCM"},
    {0x22, "TrueSpeech"},      {0x31, "GSM 6.10"},       {0x40, "G.721 ADPCM"},
    {0x42, "G.723.1"},         {0x45, "G.726 ADPCM"},    {0x50, "MPEG layer 1 or 2"},
    {0x55, "MPEG layer 3"},    {0x64, "G.726 ADPCM"},    {0xFF, "AAC"},
    {0x160, "Windows Media"},  {0x161, "Windows Media"}, {0x162, "Windows Media"},
    {0x1610, "AAC"},           {0x2000, "AC-3"},         {0xF1AC, "FLAC"},
};

// "0x0045 (G.726 ADPCM)".
std::string NameOfTag(std::uint32_t tag) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%04X", tag);
  const auto* const named = std::find_if(std::begin(kNamedTags), std::end(kNamedTags),
                                         [tag](const auto& row) { return row.tag == tag; });
  if (named == std::end(kNamedTags)) return text.data();
  return std::string(text.data()) + " (" + named->name + ")";
}

// A whole WAV file of a coding that is none of ours: the decoding library reads it, or the user is
// told its name.
bool ReadOtherCoding(CSonadexDoc& document, const File& file, const RiffHeader& header) {
  const std::uint32_t tag = EffectiveTag(file, header);
  const bool isOurs = tag == kTagPcm || tag == kTagFloat || tag == kTagALaw || tag == kTagMuLaw;
  const bool isWhole = LoadLittle<std::uint16_t>(header.format, kChannels) > 0 &&
                       LoadLittle<std::uint32_t>(header.format, kRate) > 0;
  if (isOurs || tag == 0 || !isWhole || !HasMagic(file, "WAVE", 8)) return false;
  const auto decoder = OpenDecoder(file, "a WAV file of the coding " + NameOfTag(tag));
  ForeignSound sound = SoundOf(*decoder);
  sound.format = "WAV";
  if (tag == kTagGsm) {
    // The decoder takes the pad byte behind the last block for a block of its own.
    const std::int64_t blocks = Truncate(header.dataLength) / kGsmBlockBytes;
    sound.frames = sound.promised = std::min(sound.frames.value_or(0), blocks * kGsmBlockSamples);
  }
  ReadDecoded(document, file, sound, *decoder);
  SetMarkerLabels(document, WaveMarkers(file, header));
  return true;
}

// The samples as they stand. False when the header does not say exactly how they do.
bool ReadPlain(CSonadexDoc& document, const File& file, const RiffHeader& header) {
  const auto format = FormatOf(file, header);
  if (!format) return false;
  const double length = header.dataLength / static_cast<double>(format->frameBytes);
  if (length < 1.0) return false;

  SetForeignFields(document, format->rateHz, length);
  const int channel = ChooseChannelOrAbandon(document, format->channels);
  const InterleavedPlace place{
      .coding = format->coding,
      .frameBytes = format->frameBytes,
      .dataOffset = header.dataOffset,
      .channelOffset = static_cast<std::size_t>(channel) * WidthOf(format->coding)};
  const double durationMs = document.channel().totalDurationMs;
  if (!LeaveInFile(document, file, place, durationMs, Truncate(length))) {
    const InterleavedSamples samples(file, place);
    LoadSamples(
        document, durationMs, format->rateHz, Truncate(length),
        [&](std::int64_t position, std::span<std::int16_t> out) { samples.Read(position, out); });
  }
  TellOfMissingSamples(document, file, header, format->frameBytes);
  document.codingName = NameOf(format->coding);
  document.fileChannels = format->channels;
  if (format->channels > 1) NameExtractedChannel(document, file.path(), channel);
  return true;
}

}  // namespace

bool ReadWave(CSonadexDoc& document, const File& file) {
  const auto header = ReadRiffHeader(file);
  if (!header) return false;
  if (!FormatOf(file, *header)) return ReadOtherCoding(document, file, *header);
  if (!ReadPlain(document, file, *header)) return false;
  SetMarkerLabels(document, WaveMarkers(file, *header));
  return true;
}

bool ReadWave64(CSonadexDoc& document, const File& file) {
  const auto header = ReadWave64Header(file);
  if (!header || !ReadPlain(document, file, *header)) return false;
  document.formatName = "W64";
  return true;
}

}  // namespace cantorix
