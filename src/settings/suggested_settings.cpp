// suggested_settings.cpp - from a rate to order and points, and from both to a sentence.
#include "settings/suggested_settings.h"

#include <algorithm>
#include <cmath>

#include "platform/numbers.h"
#include "settings/option_forms.h"

namespace cantorix {
namespace {

constexpr double kDefaultRateHz = 11025.0;
constexpr std::int32_t kTrackingRangeDb = 60;
constexpr double kWidestBandHz = 300.0;  // that still shows formants apart

// The size with the bandwidth that `points` have at 11025 Hz, of a list of `count` sizes.
std::int32_t PointsAt(double rateHz, std::int32_t points, int count) {
  const double exponent = std::log2(points * rateHz / (kDefaultRateHz * kFewestPoints));
  const double last = count - 1;
  return PointsOfEntry(TruncateToInt32(std::clamp(std::round(exponent), 0.0, last)));
}

// Sizes as a list counts them: the spectrogram's first index is 1.
template <typename S>
void SetPoints(S& settings, std::int32_t points, std::int32_t firstIndex) {
  settings.points = points;
  settings.sizeIndex = EntryOfPoints(points) + firstIndex;
}

std::string Hz(double hz) { return std::to_string(TruncateToInt32(hz)) + " Hz"; }

std::string WideBandText(std::int32_t points, std::int32_t usualPoints, double rateHz) {
  if (points <= 0 || usualPoints <= points || rateHz / points <= kWidestBandHz) return {};
  return "Bandwidth " + Hz(rateHz / points) + " (" + std::to_string(points) +
         " points) hides formants (usual: " + Hz(rateHz / usualPoints) + ", " +
         std::to_string(usualPoints) + " points).";
}

struct Values {
  std::int32_t lpcOrder, points;
};

RateHint HintOf(const Values& now, const Values& usual, bool orderCounts, double rateHz) {
  RateHint hint;
  if (!(rateHz > 0.0)) return hint;
  const std::string low = orderCounts ? LowOrderText(now.lpcOrder, rateHz) : std::string();
  const std::string wide = WideBandText(now.points, usual.points, rateHz);
  if (!low.empty()) hint.lpcOrder = usual.lpcOrder;
  if (!wide.empty()) hint.points = usual.points;
  const bool both = !low.empty() && !wide.empty();
  hint.text = low + (both ? " " : "") + wide;
  if (hint.text.empty()) return hint;
  hint.button = both ? "Use both" : "Use " + std::to_string(hint.lpcOrder + hint.points);
  return hint;
}

}  // namespace

std::int32_t UsualLpcOrder(double rateHz) {
  const double order = std::round(rateHz * 0.001 + 2.0);
  return TruncateToInt32(std::clamp(order, kSpectrumOrders.least, kSpectrumOrders.most));
}

SpectrogramSettings Suggested(SpectrogramSettings settings, double rateHz) {
  SetPoints(settings, PointsAt(rateHz, SpectrogramSettings().points, kSpectrogramSizes), 1);
  settings.lpcOrder = UsualLpcOrder(rateHz);
  settings.dynamicRangeDb = kTrackingRangeDb;
  return settings;
}

FftLpcSettings Suggested(FftLpcSettings settings, double rateHz) {
  SetPoints(settings, PointsAt(rateHz, FftLpcSettings().points, kFftLpcSizes), 0);
  settings.lpcOrder = UsualLpcOrder(rateHz);
  return settings;
}

PitchSettings Suggested(PitchSettings settings) {
  settings.windowMs = 50.0;
  settings.thresholdPercent = 0.1;
  settings.deviationHz = 20.0;
  settings.voicingLevel = 10.0;
  settings.tolerancePercent = 20.0;
  settings.lowHz = 75.0;
  settings.highHz = 500.0;
  return settings;
}

std::string LowOrderText(std::int32_t order, double rateHz) {
  const std::int32_t usual = UsualLpcOrder(rateHz);
  if (order >= usual) return {};
  return "LPC order " + std::to_string(order) + " is low for " + Hz(rateHz) +
         " (usual: " + std::to_string(usual) + ").";
}

RateHint HintFor(const SpectrogramSettings& settings, double rateHz) {
  const SpectrogramSettings usual = Suggested(settings, rateHz);
  return HintOf({settings.lpcOrder, settings.points}, {usual.lpcOrder, usual.points},
                settings.trackFormants != 0, rateHz);
}

RateHint HintFor(const FftLpcSettings& settings, double rateHz) {
  const FftLpcSettings usual = Suggested(settings, rateHz);
  return HintOf({settings.lpcOrder, settings.points}, {usual.lpcOrder, usual.points}, true, rateHz);
}

void Use(const RateHint& hint, SpectrogramSettings& settings) {
  if (hint.lpcOrder > 0) settings.lpcOrder = hint.lpcOrder;
  if (hint.points > 0) SetPoints(settings, hint.points, 1);
}

void Use(const RateHint& hint, FftLpcSettings& settings) {
  if (hint.lpcOrder > 0) settings.lpcOrder = hint.lpcOrder;
  if (hint.points > 0) SetPoints(settings, hint.points, 0);
}

}  // namespace cantorix
