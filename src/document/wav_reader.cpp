// wav_reader.cpp - the format of a WAV file and the way of its samples into the document.
#include <algorithm>
#include <vector>

#include "document/document.h"
#include "document/foreign_recording.h"
#include "document/riff.h"
#include "document/sample_conversion.h"
#include "document/sample_loader.h"
#include "document/wav_file.h"
#include "platform/bytes.h"
#include "platform/numbers.h"
#include "platform/prompts.h"

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

// The samples of one channel, by position.
class ChannelReader {
 public:
  ChannelReader(const File& file, const WaveFormat& format, std::int64_t dataOffset, int channel)
      : file_(file),
        coding_(format.coding),
        frameBytes_(format.frameBytes),
        dataOffset_(dataOffset),
        channelOffset_(static_cast<std::size_t>(channel) * WidthOf(format.coding)) {}

  void Read(std::int64_t position, std::span<std::int16_t> out) {
    if (coding_ == SampleCoding::kSigned16 && frameBytes_ == sizeof(std::int16_t)) {
      return ReadAsTheyAre(position, out);
    }
    const std::size_t block = std::max<std::size_t>(1, kBlockBytes / frameBytes_);
    for (std::size_t done = 0; done < out.size(); done += block) {
      ReadFrames(position + static_cast<std::int64_t>(done),
                 out.subspan(done, std::min(block, out.size() - done)));
    }
  }

 private:
  static constexpr std::size_t kBlockBytes = std::size_t{1} << 18U;

  std::int64_t OffsetOf(std::int64_t position) const {
    return dataOffset_ + position * static_cast<std::int64_t>(frameBytes_);
  }

  // One channel of 16 bits: the file's bytes are the samples.
  void ReadAsTheyAre(std::int64_t position, std::span<std::int16_t> out) const {
    const std::size_t got = file_.ReadSome(OffsetOf(position), std::as_writable_bytes(out));
    const std::size_t whole = got / sizeof(std::int16_t);
    SwapFromLittle(out.first(whole));
    std::fill(out.begin() + static_cast<std::ptrdiff_t>(whole), out.end(), std::int16_t{0});
  }

  void ReadFrames(std::int64_t position, std::span<std::int16_t> out) {
    raw_.resize(out.size() * frameBytes_);
    const std::size_t got = file_.ReadSome(OffsetOf(position), raw_);
    const std::size_t firstEnd = channelOffset_ + WidthOf(coding_);
    const std::size_t whole = got < firstEnd ? 0 : (got - firstEnd) / frameBytes_ + 1;
    if (whole > 0) {
      ConvertSamples(coding_, std::span(raw_).subspan(channelOffset_), frameBytes_,
                     out.first(whole));
    }
    std::fill(out.begin() + static_cast<std::ptrdiff_t>(whole), out.end(), std::int16_t{0});
  }

  const File& file_;
  SampleCoding coding_;
  std::size_t frameBytes_;
  std::int64_t dataOffset_;
  std::size_t channelOffset_;
  std::vector<std::byte> raw_;
};

// Says that the file is shorter than its header promises.
void TellOfMissing(CSonadexDoc& document, const File& file, const RiffHeader& header,
                   std::size_t frameBytes) {
  const auto frames = [frameBytes](double bytes) {
    return Truncate(std::max(bytes, 0.0) / static_cast<double>(frameBytes));
  };
  const std::int64_t promised = frames(header.promisedLength);
  const std::int64_t held = frames(static_cast<double>(file.Size() - header.dataOffset));
  if (held >= promised) return;
  document.host().prompts.Message("The file is incomplete: its header promises " +
                                  std::to_string(promised) + " samples, " + std::to_string(held) +
                                  " are there. Missing samples read as 0.");
}

}  // namespace

bool ReadWave(CSonadexDoc& document, const File& file) {
  const auto header = ReadRiffHeader(file);
  if (!header) return false;
  const auto format = FormatOf(file, *header);
  if (!format) return false;
  const double length = header->dataLength / static_cast<double>(format->frameBytes);
  if (length < 1.0) return false;

  SetForeignFields(document, format->rateHz, length);
  const int channel = ChooseChannelOrAbandon(document, format->channels);
  ChannelReader reader(file, *format, header->dataOffset, channel);
  LoadSamples(
      document, document.channel().totalDurationMs, format->rateHz, Truncate(length),
      [&](std::int64_t position, std::span<std::int16_t> out) { reader.Read(position, out); });
  TellOfMissing(document, file, *header, format->frameBytes);
  if (format->channels > 1) NameExtractedChannel(document, file.path(), channel);
  return true;
}

}  // namespace cantorix
