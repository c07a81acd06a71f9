// option_rules.cpp - the limits of the option dialogs and the sentences that name them.
#include "settings/option_rules.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/numbers.h"

namespace cantorix {
namespace {

// Kept: the sizes from 128 on begin with a blank, the two before them do not.
constexpr std::array<const char*, kSpectrogramSizes> kSizeTexts{
    "(  32 pts)",  "(  64 pts)",  " ( 128 pts)", " ( 256 pts)", " ( 512 pts)",
    " (1024 pts)", " (2048 pts)", " (4096 pts)", " (8192 pts)"};
constexpr std::int32_t kFewestPoints = 32;

constexpr double kLowestPitchHz = 50.0;
constexpr double kNarrowestPitchHz = 200.0;
constexpr std::int32_t kLowestRangeHz = 500;
constexpr std::int32_t kMostTrackingCoefficients = 400;

}  // namespace

std::vector<std::string> BandwidthTexts(double rateHz, int count) {
  std::vector<std::string> texts;
  for (int i = 0; i < std::min(count, kSpectrogramSizes); ++i) {
    const std::int32_t hz = TruncateToInt32(rateHz / (kFewestPoints << i));
    texts.push_back("  " + std::to_string(hz) + "  Hz  " + kSizeTexts[static_cast<std::size_t>(i)]);
  }
  return texts;
}

std::int32_t SpectrogramRangeLimitHz(double rateHz) {
  return TruncateToInt32(rateHz) / 2000 * 1000;
}

std::optional<std::string> FftLpcRefusal(const FftLpcSettings& entered) {
  if (entered.lpcOrder < 4 || entered.lpcOrder > 100) return "Enter an integer between 4 and 100.";
  return std::nullopt;
}

std::optional<std::string> PitchRefusal(const PitchSettings& entered) {
  if (entered.lowHz < kLowestPitchHz) {
    return "Please select a calculation low range greater than 50 Hz";
  }
  if (entered.highHz < entered.lowHz + kNarrowestPitchHz) {
    return "Calculation high range is too low. Must be greater (low range +200) Hz";
  }
  if (entered.displayLowHz < kLowestPitchHz) {
    return "Please select a display low range greater than 50 Hz";
  }
  if (entered.displayHighHz < entered.displayLowHz + kNarrowestPitchHz) {
    return "Display high range is too low. Must be greater (low range +200) Hz";
  }
  return std::nullopt;
}

std::optional<std::string> SpectrogramRefusal(const SpectrogramSettings& entered, double rateHz) {
  if (!(entered.preEmphasis >= 0.0 && entered.preEmphasis <= 1.0)) {
    return "Enter a number between 0 and 1.";
  }
  if (entered.rangeHz < kLowestRangeHz) return "Frequency range is too low. Must be > 500 Hz";
  const std::int32_t limitHz = SpectrogramRangeLimitHz(rateHz);
  if (entered.rangeHz > limitHz) {
    return "Frequency range is too high. Must be < " + std::to_string(limitHz) + " Hz";
  }
  // Kept: the sentence says "< 400", and exactly 400 passes.
  if (entered.lpcOrder > kMostTrackingCoefficients) {
    return "LPC coefficient is too high. Must be < 400";
  }
  return std::nullopt;
}

}  // namespace cantorix
