// channel.cpp - defaults, assignment and the whole-file stretch of a channel.
#include "document/channel.h"

#include <algorithm>

#include "document/label.h"
#include "platform/abandon.h"
#include "platform/bytes.h"
#include "platform/numbers.h"
#include "platform/prompts.h"
#include "platform/services.h"

namespace cantorix {

CChannel::CChannel() {
  static constexpr std::array kNames{"tones", "words", "breaks", "misc"};
  for (std::size_t i = 0; i < kNames.size(); ++i) tiers[i].name = kNames[i];
}

CChannel::~CChannel() = default;

CChannel& CChannel::operator=(const CChannel& other) {
  if (this == &other) return *this;
  samples = other.samples;
  workBlock1 = other.workBlock1;
  workBlock2 = other.workBlock2;
  CopyFields(other);
  return *this;
}

void CChannel::CopyFields(const CChannel& other) {
  channelTag = other.channelTag;
  totalDurationMs = other.totalDurationMs;
  sampleRateHz = other.sampleRateHz;
  totalLength = other.totalLength;
  bitsPerSample = other.bitsPerSample;
  channelWord1 = other.channelWord1;
  channelWord2 = other.channelWord2;
  channelName = other.channelName;
  channelWord3 = other.channelWord3;
  channelWord5 = other.channelWord5;
  channelFlag = other.channelFlag;
  channelWord6 = other.channelWord6;
  channelWord7 = other.channelWord7;
  channelWord8 = other.channelWord8;
  channelComment = other.channelComment;
  displayLow = other.displayLow;
  displayHigh = other.displayHigh;
  referenceLevel = other.referenceLevel;
  channelWord4 = other.channelWord4;
  displayBound1 = other.displayBound1;
  displayBound2 = other.displayBound2;
  channelValues = other.channelValues;
  visibleStart = other.visibleStart;
  visibleEnd = other.visibleEnd;
  visibleLength = other.visibleLength;
  previousStart = other.previousStart;
  previousEnd = other.previousEnd;
  cursor = other.cursor;
  cursorValue = other.cursorValue;
  dragPoint = other.dragPoint;
  dragX = other.dragX;
  dragY = other.dragY;
  selectionStart = other.selectionStart;
  selectionEnd = other.selectionEnd;
  selectionLength = other.selectionLength;
}

double CChannel::msPerSample() const {
  return totalLength > 0.0 ? totalDurationMs / totalLength : 0.0;
}

std::int64_t CChannel::sampleCount() const {
  return std::max<std::int64_t>(Truncate(totalLength), 0);
}

TimePoint CChannel::PointAtTime(double ms) const {
  if (!(totalDurationMs > 0.0)) return {};
  return {std::clamp(totalLength / totalDurationMs * ms, 0.0, totalLength),
          std::clamp(ms, 0.0, totalDurationMs)};
}

void CChannel::UpdateVisibleMs() {
  const double factor = msPerSample();
  visibleStart.ms = visibleStart.samples * factor;
  visibleEnd.ms = visibleEnd.samples * factor;
  visibleLength.ms = visibleLength.samples * factor;
}

void CChannel::ShowWholeFile() {
  visibleStart = {};
  visibleEnd = {totalLength, totalDurationMs};
  visibleLength = visibleEnd;
  previousStart = 0.0;
  previousEnd = totalLength;
  cursor = dragPoint = selectionStart = selectionEnd = selectionLength = {};
  cursorValue = 0.0;
  dragX = dragY = 0;
}

void CChannel::AddLabel(int tierIndex, Label label) {
  if (tierIndex < 0 || tierIndex >= kTierCount) return;
  label.text = std::string(CutText(label.text, kMaxLabelBytes));
  tiers[static_cast<std::size_t>(tierIndex)].labels.push_back(std::move(label));
}

void AssignOrReport(CChannel& target, const CChannel& source, const MemoryProbe& memory,
                    Prompts& prompts) {
  try {
    const auto bytes = static_cast<std::uint64_t>(source.samples.size()) * sizeof(std::int16_t);
    if (&target != &source && !memory.CanAllocate(bytes)) {
      throw Abandoned(AbandonReason::kOutOfMemory);
    }
    target = source;
  } catch (const std::exception&) {
    prompts.Message("Error in '=' operator in CChannel class.");
    throw Abandoned(AbandonReason::kFailed);  // it is said
  }
}

}  // namespace cantorix
