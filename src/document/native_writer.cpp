// native_writer.cpp - channel, tiers and labels into the blocks of the native file.
#include <algorithm>
#include <array>
#include <vector>

#include "document/document_host.h"
#include "document/native_file.h"
#include "document/native_layout.h"
#include "document/sample_writer.h"
#include "platform/abandon.h"
#include "platform/bytes.h"
#include "platform/file_error.h"
#include "platform/numbers.h"
#include "platform/safe_file.h"

namespace cantorix {
namespace {

using namespace native;

template <std::size_t kBytes>
using Block = std::array<std::byte, kBytes>;

// What goes into the file: the whole recording with every label, or a range with its own.
struct Extent {
  double durationMs;
  double lengthSamples;
  std::int64_t firstSample = 0;
  double originMs = 0.0;                              // becomes time 0
  std::optional<std::pair<double, double>> labels{};  // ms, both ends included; none: all labels
};

Extent ExtentOf(const CChannel& channel, const std::optional<NativeRange>& range) {
  if (!range) return {channel.totalDurationMs, channel.totalLength};
  const auto clampMs = [&channel](double ms) {
    return std::clamp(ms, 0.0, channel.totalDurationMs);
  };
  const auto clampSamples = [&channel](double x) {
    return std::clamp(x, 0.0, channel.totalLength);
  };
  const double startMs = clampMs(range->start.ms);
  const double startSamples = clampSamples(range->start.samples);
  const double endMs = clampMs(range->end.ms);
  return {std::max(endMs - startMs, 0.0),
          std::max(clampSamples(range->end.samples) - startSamples, 0.0), Truncate(startSamples),
          startMs, std::pair(startMs, endMs)};
}

void WriteFileHeader(const ByteSink& sink) {
  Block<kFileHeaderBytes> block{};
  StoreText(block, kMagicAt, kMagicBytes, kMagic);
  StoreLittle<std::uint32_t>(block, kChannelCountAt, 1);
  sink(block);
}

void WriteChannelHeader(const ByteSink& sink, const CChannel& channel, const Extent& extent) {
  Block<kChannelHeaderBytes> block{};
  for (const auto& field : kRealFields) StoreLittle(block, field.at, channel.*field.member);
  for (const auto& field : kWordFields) StoreLittle(block, field.at, channel.*field.member);
  for (const auto& field : kWholeFields) {
    StoreLittle(block, field.at, TruncateToInt32(channel.*field.member));
  }
  StoreLittle(block, kDurationAt, extent.durationMs);
  StoreLittle(block, kLengthAt, extent.lengthSamples);
  for (std::size_t i = 0; i < channel.channelValues.size(); ++i) {
    StoreLittle(block, kValuesAt + i * sizeof(double), channel.channelValues[i]);
  }
  StoreLittle<std::uint32_t>(block, kBitsAt, 16);
  const auto inUse = std::count_if(channel.tiers.begin(), channel.tiers.end(),
                                   [](const Tier& tier) { return tier.inUse; });
  StoreLittle(block, kTiersInUseAt, static_cast<std::int32_t>(inUse));
  StoreText(block, kNameAt, kNameBytes, channel.channelName);
  StoreText(block, kCommentAt, kCommentBytes, channel.channelComment);
  sink(block);
}

void WriteLabel(const ByteSink& sink, const Label& label, double originMs) {
  Block<kLabelBytes> block{};
  StoreLittle(block, kTimeAt, label.timeMs - originMs);
  StoreLittle(block, kVerticalAt, label.verticalPosition);
  StoreLittle(block, kAlignmentAt, label.alignment);
  StoreLittle(block, kFlagAt, std::int32_t{label.flag});
  for (std::size_t i = 0; i < label.labelBox.size(); ++i) {
    StoreLittle(block, kBoxAt + i * sizeof(std::int32_t), label.labelBox[i]);
  }
  StoreLittle(block, kRedAt, label.colour & 0xFFU);
  StoreLittle(block, kGreenAt, label.colour >> 8U & 0xFFU);
  StoreLittle(block, kBlueAt, label.colour >> 16U & 0xFFU);
  std::copy(label.font.bytes.begin(), label.font.bytes.end(), block.begin() + kFontAt);
  StoreText(block, kTextAt, kTextBytes, label.text);
  sink(block);
}

void WriteTier(const ByteSink& sink, const Tier& tier, const Extent& extent) {
  std::vector<const Label*> chosen;
  for (const Label& label : tier.labels) {
    if (!extent.labels || LabelInRange(label, extent.labels->first, extent.labels->second)) {
      chosen.push_back(&label);
    }
  }
  Block<kTierHeaderBytes> block{};
  StoreText(block, kTierNameAt, kTierNameBytes, tier.name);
  StoreLittle(block, kLabelCountAt, static_cast<std::int32_t>(chosen.size()));
  StoreLittle(block, kTierWordAt, tier.tierWord);
  sink(block);
  for (const Label* label : chosen) WriteLabel(sink, *label, extent.originMs);
}

// Refuses what the reader would.
void RequireReadable(const CChannel& channel, const std::optional<NativeRange>& range) {
  const Extent extent = ExtentOf(channel, range);
  if (range && !(extent.lengthSamples >= 1.0)) throw SaveRefused("There is no sample to write.");
  const auto impossible =
      FindImpossible(extent.lengthSamples, channel.sampleRateHz, extent.durationMs);
  if (impossible) throw SaveRefused(std::string("The ") + impossible->name + " is not possible.");
}

}  // namespace

NativeRange SelectionRange(const CChannel& channel) {
  return {channel.selectionStart, channel.selectionEnd};
}

void WriteNative(const ByteSink& sink, const CSonadexDoc& document,
                 const std::optional<NativeRange>& range, Progress& progress) {
  const CChannel& channel = document.channel();
  const Extent extent = ExtentOf(channel, range);
  WriteFileHeader(sink);
  WriteChannelHeader(sink, channel, extent);
  for (const Tier& tier : channel.tiers) {
    if (tier.inUse) WriteTier(sink, tier, extent);
  }
  WriteSamples(sink, document, extent.firstSample, Truncate(extent.lengthSamples), progress);
}

Durability SaveNative(CSonadexDoc& document, const std::string& path,
                      const std::optional<NativeRange>& range) {
  RequireReadable(document.channel(), range);
  return ReplaceFile(path, [&](const ByteSink& sink) {
    WriteNative(sink, document, range, document.host().progress);
    if (document.host().progress.Cancelled()) throw Abandoned(AbandonReason::kCancelled);
  });
}

}  // namespace cantorix
