// fit_to_format.cpp - one step for each thing that a format may lack.
#include "labelfile/fit_to_format.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <utility>

#include "labelfile/lines.h"
#include "labelfile/time_text.h"

namespace cantorix {
namespace {

std::string Named(const LabelFileTier& tier) {
  return tier.name.empty() ? std::string("All tiers") : "Tier " + Quoted(tier.name);
}

// --- Tiers ---

void JoinTiers(FittedLabels& fitted, const LabelFormat& format) {
  auto& tiers = fitted.file.tiers;
  if (format.holds.tiers || tiers.size() < 2) return;
  std::string names;
  LabelFileTier joined;
  for (LabelFileTier& tier : tiers) {
    names += (names.empty() ? "" : ", ") + Quoted(tier.name) + " (" +
             CountOf(tier.labels.size(), "label") + ")";
    std::move(tier.labels.begin(), tier.labels.end(), std::back_inserter(joined.labels));
  }
  fitted.losses.push_back("A file of this format has no tiers: " + names + " become one.");
  tiers = {std::move(joined)};
}

void RenameTiers(FittedLabels& fitted, const LabelFormat& format) {
  if (!format.holds.uniqueNames) return;
  std::set<std::string> taken;
  for (const LabelFileTier& tier : fitted.file.tiers) taken.insert(tier.name);
  std::set<std::string> met;
  for (LabelFileTier& tier : fitted.file.tiers) {
    if (!tier.name.empty() && met.insert(tier.name).second) continue;
    const std::string stem = tier.name.empty() ? "tier" : tier.name;
    int number = tier.name.empty() ? 1 : 2;
    while (!taken.insert(stem + '-' + std::to_string(number)).second) ++number;
    const std::string name = stem + '-' + std::to_string(number);
    fitted.losses.push_back(
        (tier.name.empty() ? "A tier without a name" : "A further tier " + Quoted(tier.name)) +
        " is called " + Quoted(name) + ".");
    tier.name = name;
    met.insert(name);
  }
}

// --- Texts ---

std::string FitText(const std::string& text, const LabelFormatHolds& holds) {
  const auto unfit = [&](char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\t') return !holds.tabs;
    if (c == '\n') return !holds.lineEnds;
    if (c == '\r' && !holds.lineEnds) return true;  // ends a line as well
    if (c == '\0') return true;
    return (byte < 0x20 || byte == 0x7F) && !holds.controls;
  };
  std::string fit = Blanked(text, unfit);
  return holds.outerBlanks ? fit : std::string(Trimmed(fit));
}

void FitTexts(FittedLabels& fitted, const LabelFormat& format) {
  for (LabelFileTier& tier : fitted.file.tiers) {
    tier.name = FitText(tier.name, format.holds);
    std::size_t changed = 0;
    for (TimedLabel& label : tier.labels) {
      std::string text = FitText(label.text, format.holds);
      changed += text != label.text ? 1U : 0U;
      label.text = std::move(text);
    }
    if (changed == 0) continue;
    fitted.losses.push_back(Named(tier) +
                            ": tabs, line ends, control characters or outer blanks of " +
                            CountOf(changed, "label") + " are not kept.");
  }
}

// --- Times ---

class Grid {
 public:
  Grid(const LabelFile& file, const LabelFormatHolds& holds)
      : perSecond_(holds.ticksPerSecond > 0.0 ? holds.ticksPerSecond : file.rateHz),
        length_(static_cast<std::int64_t>(std::ceil(file.lengthS * perSecond_ - 1e-6))) {}

  std::int64_t length() const { return length_; }
  std::int64_t TickAt(double seconds) const { return std::llround(seconds * perSecond_); }
  double SecondsAt(std::int64_t tick) const { return static_cast<double>(tick) / perSecond_; }

 private:
  double perSecond_;
  std::int64_t length_;
};

// Moves ticks that are in order as little as makes each later than the one before, and leaves none
// behind `last` when they have room before it.
void Spread(std::vector<std::int64_t>& ticks, std::int64_t last) {
  for (std::size_t i = 1; i < ticks.size(); ++i) ticks[i] = std::max(ticks[i], ticks[i - 1] + 1);
  if (ticks.empty() || static_cast<std::int64_t>(ticks.size()) > last + 1) return;
  std::int64_t limit = last;
  for (std::size_t i = ticks.size(); i-- > 0;) {
    ticks[i] = std::min(ticks[i], limit);
    limit = ticks[i] - 1;
  }
}

// Puts the labels on the grid, apart from each other where they must be.
void PlaceOnGrid(FittedLabels& fitted, LabelFileTier& tier, const Grid& grid, bool apart) {
  std::vector<std::int64_t> ticks;
  for (const TimedLabel& label : tier.labels) ticks.push_back(grid.TickAt(label.startS));
  const std::vector<std::int64_t> nearest = ticks;
  if (apart) Spread(ticks, grid.length());
  std::size_t moved = 0;
  std::int64_t farthest = 0;
  for (std::size_t i = 0; i < ticks.size(); ++i) {
    const std::int64_t by = std::abs(ticks[i] - nearest[i]);
    moved += by != 0 ? 1U : 0U;
    farthest = std::max(farthest, by);
    tier.labels[i].startS = tier.labels[i].endS = grid.SecondsAt(ticks[i]);
  }
  if (moved == 0) return;
  fitted.losses.push_back(Named(tier) + ": " + CountOf(moved, "label") +
                          " at the time of another one moved by up to " +
                          FormatSeconds(grid.SecondsAt(farthest) * 1000.0, 4) + " ms.");
}

void MakeIntervals(FittedLabels& fitted, LabelFileTier& tier, const Grid& grid) {
  tier.intervals = true;
  std::size_t empty = 0;
  for (std::size_t i = 0; i < tier.labels.size(); ++i) {
    TimedLabel& label = tier.labels[i];
    const std::int64_t start = grid.TickAt(label.startS);
    const bool last = i + 1 == tier.labels.size();
    label.endS =
        last ? grid.SecondsAt(std::max(grid.length(), start + 1)) : tier.labels[i + 1].startS;
    empty += label.text.empty() ? 1U : 0U;
  }
  if (empty == 0) return;
  fitted.losses.push_back(Named(tier) + ": empty intervals stand for " + CountOf(empty, "label") +
                          " without text.");
}

void FitTimes(FittedLabels& fitted, const LabelFormat& format, bool intervals) {
  const Grid grid(fitted.file, format.holds);
  fitted.file.lengthS = grid.SecondsAt(grid.length());
  for (LabelFileTier& tier : fitted.file.tiers) {
    std::stable_sort(tier.labels.begin(), tier.labels.end(),
                     [](const TimedLabel& a, const TimedLabel& b) { return a.startS < b.startS; });
    PlaceOnGrid(fitted, tier, grid, intervals || format.holds.oneAtATime);
    if (intervals) MakeIntervals(fitted, tier, grid);
  }
}

}  // namespace

FittedLabels FitToFormat(LabelFile file, const LabelFormat& format, bool asIntervals) {
  FittedLabels fitted{std::move(file), {}};
  JoinTiers(fitted, format);
  FitTexts(fitted, format);
  RenameTiers(fitted, format);
  const LabelFormatHolds& holds = format.holds;
  FitTimes(fitted, format, asIntervals ? holds.intervals : !holds.points);
  return fitted;
}

}  // namespace cantorix
