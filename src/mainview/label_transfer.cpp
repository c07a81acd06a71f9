// label_transfer.cpp - where labels go, and which cannot.
#include "mainview/label_transfer.h"

#include <algorithm>
#include <array>
#include <utility>

#include "document/label.h"
#include "labelfile/time_text.h"
#include "mainview/dialog_answers.h"
#include "mainview/tiers_rollback.h"
#include "mainview/view_edit.h"
#include "platform/bytes.h"
#include "platform/text.h"

namespace cantorix {
namespace {

constexpr double kMsPerSecond = 1000.0;
constexpr std::size_t kNoSlot = kTierCount;
using Taken = std::array<bool, kTierCount>;

// --- In ---

// The one part of a file that was asked for, or all.
void Choose(LabelFileRead& read, const std::string& name) {
  auto& tiers = read.file.tiers;
  if (name.empty()) return;
  if (!read.file.tiersNamed) {
    for (LabelFileTier& tier : tiers) tier.name = name;
    return;
  }
  std::erase_if(tiers, [&](const LabelFileTier& tier) { return tier.name != name; });
  if (tiers.empty()) throw LabelFileError("it has no tier named " + Quoted(name));
}

std::size_t SlotFor(const std::string& name, const Tiers& tiers, const Taken& taken) {
  const auto find = [&](auto fits) {
    for (std::size_t i = tiers.size(); i-- > 0;) {
      if (!taken[i] && fits(tiers[i])) return i;
    }
    return kNoSlot;
  };
  const std::size_t used =
      find([&](const Tier& tier) { return tier.inUse && ToUtf8(tier.name) == name; });
  if (used != kNoSlot) return used;
  const std::size_t named = find([&](const Tier& tier) { return ToUtf8(tier.name) == name; });
  if (named != kNoSlot) return named;
  // The first of the free ones, one without a name before others.
  std::size_t freeSlot = kNoSlot;
  for (std::size_t i = tiers.size(); i-- > 0;) {
    if (taken[i] || tiers[i].inUse) continue;
    if (freeSlot == kNoSlot || tiers[i].name.empty() || !tiers[freeSlot].name.empty()) freeSlot = i;
  }
  return freeSlot;
}

// The labels of a tier of a file, one after the other, as the recording can hold them.
class Intake {
 public:
  Intake(const CChannel& channel, const LabelFormat& format, const LabelChoice& choice)
      : choice_(choice),
        lengthMs_(channel.totalDurationMs),
        stepMs_(kMsPerSecond / (format.holds.ticksPerSecond > 0.0 ? format.holds.ticksPerSecond
                                                                  : channel.sampleRateHz)) {}

  std::vector<Label> Take(const LabelFileTier& tier) {
    labels_.clear();
    outside_ = cut_ = 0;
    for (std::size_t i = 0; i < tier.labels.size(); ++i) {
      const TimedLabel& label = tier.labels[i];
      const bool empty = tier.intervals && label.text.empty();
      if (!empty || choice_.emptyIntervals) Add(label.startS, label.text);
      const bool last = i + 1 == tier.labels.size();
      const double nextMs = last ? lengthMs_ : tier.labels[i + 1].startS * kMsPerSecond;
      const bool gap = tier.intervals && nextMs > label.endS * kMsPerSecond + stepMs_;
      if (gap && choice_.emptyIntervals) Add(label.endS, {});
    }
    return std::move(labels_);
  }

  void Report(const std::string& name, std::vector<std::string>& losses) const {
    const std::string tier = "Tier " + Quoted(name) + ": ";
    if (outside_ > 0) {
      losses.push_back(tier + CountOf(outside_, "label") + " before 0 or past the end at " +
                       FormatSeconds(lengthMs_, 3) + " ms left out.");
    }
    if (cut_ > 0) {
      losses.push_back(tier + CountOf(cut_, "text") + " cut to " + std::to_string(kMaxLabelBytes) +
                       " bytes.");
    }
  }

 private:
  void Add(double startS, const std::string& text) {
    Label label;
    label.timeMs = startS * kMsPerSecond;
    if (label.timeMs < -stepMs_ || label.timeMs > lengthMs_ + stepMs_) {
      ++outside_;
      return;
    }
    label.timeMs = std::clamp(label.timeMs, 0.0, lengthMs_);
    label.text = CutText(text, kMaxLabelBytes);
    cut_ += label.text.size() < text.size() ? 1U : 0U;
    // A text ends at its first NUL in the native file.
    std::replace(label.text.begin(), label.text.end(), '\0', ' ');
    label.alignment = choice_.alignment;
    label.flag = choice_.addLine ? 1 : 0;
    labels_.push_back(std::move(label));
  }

  const LabelChoice& choice_;
  double lengthMs_;
  double stepMs_;
  std::vector<Label> labels_;
  std::size_t outside_ = 0;
  std::size_t cut_ = 0;
};

void Enumerate(std::string& list, const LabelFileTier& tier) {
  list += (list.empty() ? "" : ", ") + Quoted(tier.name) + " (" +
          CountOf(tier.labels.size(), "label") + ")";
}

// --- Out ---

LabelFileTier TierOf(const Tier& tier, double lengthMs, std::vector<std::string>& losses) {
  LabelFileTier out{ToUtf8(tier.name), false, {}};
  for (const Label& label : tier.labels) {
    if (!LabelInRange(label, 0.0, lengthMs)) continue;
    const double seconds = label.timeMs / kMsPerSecond;
    out.labels.push_back({seconds, seconds, ToUtf8(label.text)});
  }
  const std::size_t outside = tier.labels.size() - out.labels.size();
  if (outside > 0) {
    losses.push_back("Tier " + Quoted(out.name) + ": " + CountOf(outside, "label") +
                     " outside the recording left out.");
  }
  return out;
}

std::string RecordingName(const CSonadexDoc& document) {
  const std::string& path = document.pathName();
  return path.empty() ? document.title() : path.substr(path.find_last_of('/') + 1);
}

}  // namespace

LabelImportPlan PlanLabelImport(LabelFileRead read, const CChannel& channel,
                                const LabelChoice& choice) {
  Choose(read, choice.tier);
  LabelImportPlan plan;
  plan.losses = std::move(read.file.notes);
  Taken taken{};
  std::string roomless;
  Intake intake(channel, *read.format, choice);
  for (LabelFileTier& tier : read.file.tiers) {
    const std::size_t slot = SlotFor(tier.name, channel.tiers, taken);
    if (slot == kNoSlot) {
      Enumerate(roomless, tier);
      continue;
    }
    taken[slot] = true;
    LabelImportPlan::Part part{slot, tier.name, intake.Take(tier)};
    intake.Report(tier.name, plan.losses);
    plan.labelCount += part.labels.size();
    plan.parts.push_back(std::move(part));
    tier.labels = {};
  }
  if (!roomless.empty()) {
    plan.losses.push_back("A recording has ten tiers, no room is left for " + roomless + ".");
  }
  return plan;
}

void AddLabels(CChannel& channel, LabelImportPlan plan) {
  for (LabelImportPlan::Part& part : plan.parts) {
    Tier& tier = channel.tiers[part.slot];
    if (ToUtf8(tier.name) != part.name) tier.name = CutText(part.name, kMaxTierNameBytes);
    tier.inUse = true;
    std::move(part.labels.begin(), part.labels.end(), std::back_inserter(tier.labels));
  }
}

void CarryOut(CSonadexView& view, LabelImportPlan plan) {
  ViewEdit edit(view, UndoScope::kFields);
  const TiersRollback rollback(view.channel());
  AddLabels(view.channel(), std::move(plan));
  edit.MarkModified();
  view.Changed(DocumentChange::kLabels);
}

FittedLabels LabelsFor(const LabelFormat& format, const CSonadexDoc& document,
                       const std::string& tier, bool asIntervals) {
  const CChannel& channel = document.channel();
  LabelFile file;
  file.lengthS = channel.totalDurationMs / kMsPerSecond;
  file.rateHz = channel.sampleRateHz;
  file.recordingName = RecordingName(document);
  std::vector<std::string> losses;
  for (const Tier& candidate : channel.tiers) {
    if (!candidate.inUse || (!tier.empty() && candidate.name != tier)) continue;
    file.tiers.push_back(TierOf(candidate, channel.totalDurationMs, losses));
  }
  FittedLabels fitted = FitToFormat(std::move(file), format, asIntervals);
  fitted.losses.insert(fitted.losses.begin(), losses.begin(), losses.end());
  return fitted;
}

LabelReading ReadingFor(const CSonadexDoc& document) {
  LabelReading how;
  how.rateHz = document.channel().sampleRateHz;
  how.recordingStem = FileStem(RecordingName(document));
  return how;
}

std::string InOneLine(const std::vector<std::string>& sentences) {
  std::string line;
  for (const std::string& sentence : sentences) line += (line.empty() ? "" : " ") + sentence;
  return line;
}

}  // namespace cantorix
