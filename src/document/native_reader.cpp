// native_reader.cpp - the blocks of the native file into channel, tiers and labels.
// Nothing in a file is believed before it was compared with the file's own size.
#include <algorithm>
#include <array>

#include "document/file_samples.h"
#include "document/file_window.h"
#include "document/native_file.h"
#include "document/native_layout.h"
#include "document/sample_conversion.h"
#include "document/sample_loader.h"
#include "platform/bytes.h"
#include "platform/file_error.h"
#include "platform/numbers.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

using namespace native;

constexpr const char* kLabelsDropped =
    "Some labels contained uncompatible information which made them undisplayable.\n"
    "These labels were eliminated from the file.";

[[noreturn]] void ThrowImpossible(const char* what, std::int64_t at) {
  throw FileError("The " + std::string(what) + " at byte " + std::to_string(at) +
                  " is not possible.");
}

// Reads one block after the other and knows how many bytes are left.
class BlockReader {
 public:
  BlockReader(const File& file, std::int64_t position, ByteOrder order)
      : file_(file), size_(file.Size()), position_(position), order_(order) {}

  std::int64_t position() const { return position_; }
  std::int64_t bytesLeft() const { return size_ - position_; }
  ByteOrder order() const { return order_; }

  template <typename T>
  T Load(std::span<const std::byte> block, std::size_t offset) const {
    return LoadIn<T>(order_, block, offset);
  }

  // Throws unless `count` blocks of `bytes` bytes follow; `place` names them.
  void Require(std::int64_t count, std::int64_t bytes, const char* place) const {
    if (count <= (size_ - position_) / bytes) return;
    throw FileError("The file ends at byte " + std::to_string(size_) + ", inside " + place + ".");
  }

  template <std::size_t kBytes>
  std::array<std::byte, kBytes> Next(const char* place) {
    Require(1, kBytes, place);
    std::array<std::byte, kBytes> block;
    file_.ReadExactly(position_, block);
    position_ += kBytes;
    return block;
  }

 private:
  const File& file_;
  std::int64_t size_;
  std::int64_t position_;
  ByteOrder order_;
};

// A text without a NUL loses its last byte, as it would when written.
std::string ShortText(std::span<const std::byte> block, std::size_t at, std::size_t width) {
  return std::string(CutText(LoadText(block, at, width), width - 1));
}

bool IsNative(const File& file, const char* magic, ByteOrder order) {
  if (file.Size() <= static_cast<std::int64_t>(kFileHeaderBytes)) return false;
  std::array<std::byte, kFileHeaderBytes> block;
  file.ReadExactly(0, block);
  return LoadText(block, kMagicAt, kMagicBytes) == magic &&
         LoadIn<std::uint32_t>(order, block, kChannelCountAt) == 1;
}

// Refuses what no recording can have. That the file holds `totalLength` samples is not looked at.
void RequirePossible(const CChannel& channel, std::int64_t at) {
  const auto impossible =
      FindImpossible(channel.totalLength, channel.sampleRateHz, channel.totalDurationMs);
  if (impossible) ThrowImpossible(impossible->name, at + static_cast<std::int64_t>(impossible->at));
}

// Gives the number of tiers that follow.
std::int32_t ReadChannelHeader(BlockReader& in, CChannel& channel) {
  const std::int64_t at = in.position();
  const auto block = in.Next<kChannelHeaderBytes>("the channel header");
  for (const auto& field : kRealFields) {
    channel.*field.member = in.Load<double>(block, field.at);
  }
  for (const auto& field : kWordFields) {
    channel.*field.member = in.Load<std::uint32_t>(block, field.at);
  }
  for (const auto& field : kWholeFields) {
    channel.*field.member = in.Load<std::int32_t>(block, field.at);
  }
  for (std::size_t i = 0; i < channel.channelValues.size(); ++i) {
    channel.channelValues[i] = in.Load<double>(block, kValuesAt + i * sizeof(double));
  }
  channel.bitsPerSample = in.Load<std::int32_t>(block, kBitsAt);
  channel.channelName = ShortText(block, kNameAt, kNameBytes);
  channel.channelComment = ShortText(block, kCommentAt, kCommentBytes);
  channel.channelFlag = 1;
  RequirePossible(channel, at);
  const auto tierCount = in.Load<std::int32_t>(block, kTiersInUseAt);
  if (tierCount < 0 || tierCount > kTierCount) {
    ThrowImpossible("tier count", at + static_cast<std::int64_t>(kTiersInUseAt));
  }
  return tierCount;
}

using LabelBlock = std::array<std::byte, kLabelBytes>;

// Whole numbers of 32 bits are all that a label holds besides two doubles and its texts.
constexpr std::size_t kFontNumbers = 5;

// The record with its low bytes first, whatever its file has.
LabelBlock InOwnOrder(LabelBlock block, ByteOrder order) {
  const auto turn = [&](std::size_t at, std::size_t width) {
    const auto first = block.begin() + static_cast<std::ptrdiff_t>(at);
    std::reverse(first, first + static_cast<std::ptrdiff_t>(width));
  };
  if (order == ByteOrder::kLowFirst) return block;
  for (const std::size_t at : {kTimeAt, kVerticalAt}) turn(at, sizeof(double));
  const std::size_t numbersEnd = kFontAt + kFontNumbers * sizeof(std::int32_t);
  for (std::size_t at = kAlignmentAt; at < numbersEnd; at += sizeof(std::int32_t)) {
    turn(at, sizeof(std::int32_t));
  }
  return block;
}

FontDescription FontIn(const LabelBlock& block) {
  FontDescription font;
  std::copy_n(block.begin() + kFontAt, FontDescription::kBytes, font.bytes.begin());
  return font;
}

bool IsValid(const LabelBlock& block, double durationMs) {
  const auto isWithin = [](auto x, auto low, auto high) { return x >= low && x <= high; };
  const FontDescription font = FontIn(block);
  return LoadText(block, kTextAt, kTextBytes).size() <= kMaxLabelBytes &&
         isWithin(LoadLittle<double>(block, kTimeAt), 0.0, durationMs) &&
         isWithin(LoadLittle<double>(block, kVerticalAt), 0.0, 1.0) &&
         isWithin(LoadLittle<std::int32_t>(block, kAlignmentAt), kAlignLeft, kAlignRight) &&
         isWithin(LoadLittle<std::int32_t>(block, kFlagAt), 0, 1) && font.height() <= 100 &&
         font.width() <= 3000;
}

Label LabelIn(const LabelBlock& block) {
  const auto component = [&block](std::size_t at) {
    return LoadLittle<std::uint32_t>(block, at) & 0xFFU;
  };
  Label label;
  label.text = LoadText(block, kTextAt, kTextBytes);
  label.alignment = LoadLittle<std::int32_t>(block, kAlignmentAt);
  // Kept: stricter than the test that accepts the record, so that an accepted label may be shown in
  // the default font instead of its own.
  const FontDescription font = FontIn(block);
  if (font.height() < 100 && font.width() < 100) label.font = font;
  label.colour = component(kRedAt) | component(kGreenAt) << 8U | component(kBlueAt) << 16U;
  label.timeMs = LoadLittle<double>(block, kTimeAt);
  label.verticalPosition = LoadLittle<double>(block, kVerticalAt);
  for (std::size_t i = 0; i < label.labelBox.size(); ++i) {
    label.labelBox[i] = LoadLittle<std::int32_t>(block, kBoxAt + i * sizeof(std::int32_t));
  }
  label.flag = static_cast<std::int8_t>(LoadLittle<std::int32_t>(block, kFlagAt));
  return label;
}

void ReadTier(BlockReader& in, Tier& tier, double durationMs, Prompts& prompts) {
  const std::int64_t at = in.position();
  const auto header = in.Next<kTierHeaderBytes>("a tier header");
  tier.inUse = true;
  tier.name = ShortText(header, kTierNameAt, kTierNameBytes);
  tier.tierWord = in.Load<std::int32_t>(header, kTierWordAt);
  tier.labels.clear();
  const auto count = in.Load<std::int32_t>(header, kLabelCountAt);
  if (count < 0) ThrowImpossible("label count", at + static_cast<std::int64_t>(kLabelCountAt));
  in.Require(count, kLabelBytes, "the label records");
  for (std::int32_t i = 0; i < count; ++i) {
    const auto block = InOwnOrder(in.Next<kLabelBytes>("a label record"), in.order());
    if (IsValid(block, durationMs)) tier.labels.push_back(LabelIn(block));
  }
  if (tier.labelCount() < count) prompts.Message(kLabelsDropped);
}

// Header, tiers and labels. Gives the number of samples, which begin where the reader stands then.
std::int64_t ReadBeforeSamples(CSonadexDoc& document, BlockReader& in) {
  CChannel& channel = document.channel();
  const auto tierCount = static_cast<std::size_t>(ReadChannelHeader(in, channel));
  const std::int64_t count = channel.sampleCount();
  in.Require(count, sizeof(std::int16_t), "the samples");
  channel.ShowWholeFile();
  for (std::size_t i = 0; i < tierCount; ++i) {
    ReadTier(in, channel.tiers[i], channel.totalDurationMs, document.host().prompts);
  }
  in.Require(count, sizeof(std::int16_t), "the samples");
  return count;
}

void ReadSamples(CSonadexDoc& document, const File& file, std::int64_t count,
                 const BlockReader& in) {
  const CChannel& channel = document.channel();
  const InterleavedPlace place{
      .order = in.order(), .frameBytes = sizeof(std::int16_t), .dataOffset = in.position()};
  if (!LeaveInFile(document, file, place, channel.totalDurationMs, count)) {
    LoadSamples(document, channel.totalDurationMs, channel.sampleRateHz, count,
                [&](std::int64_t position, std::span<std::int16_t> out) {
                  file.ReadExactly(in.position() + position * std::int64_t{sizeof(std::int16_t)},
                                   std::as_writable_bytes(out));
                  SwapFromLittle(out);
                  if (in.order() == ByteOrder::kLowFirst) return;
                  for (auto& sample : out) sample = detail::SwappedIf(true, sample);
                });
  }
  document.codingName = NameOf(SampleCoding::kSigned16);
  document.channelCount = 1;
}

bool ReadMacintosh(CSonadexDoc& document, const File& file, const char* magic) {
  constexpr ByteOrder kOrder = ByteOrder::kHighFirst;
  if (!HasMagic(file, magic)) return false;
  const std::string unreadable =
      "It is a Macintosh file of the kind " + std::string(magic) + " whose layout is not known";
  if (!IsNative(file, magic, kOrder)) throw FileError(unreadable + ".");
  BlockReader in(file, kFileHeaderBytes, kOrder);
  std::int64_t count = 0;
  try {
    count = ReadBeforeSamples(document, in);
  } catch (const FileError& error) {
    throw FileError(unreadable + ". " + error.what());
  }
  if (in.bytesLeft() != count * std::int64_t{sizeof(std::int16_t)}) {
    throw FileError(unreadable + ": its sizes do not add up.");
  }
  ReadSamples(document, file, count, in);
  document.foreignSource = true;
  return true;
}

}  // namespace

bool ReadNative(CSonadexDoc& document, const File& file) {
  if (!IsNative(file, kMagic, ByteOrder::kLowFirst)) return false;
  BlockReader in(file, kFileHeaderBytes, ByteOrder::kLowFirst);
  const std::int64_t count = ReadBeforeSamples(document, in);
  ReadSamples(document, file, count, in);
  return true;
}

bool ReadNativeMac(CSonadexDoc& document, const File& file) {
  return ReadMacintosh(document, file, kMacMagic);
}

bool ReadNativeMacX(CSonadexDoc& document, const File& file) {
  return ReadMacintosh(document, file, kMacXMagic);
}

}  // namespace cantorix
