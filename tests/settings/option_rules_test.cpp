// option_rules_test.cpp - the borders of what the option dialogs accept, and which refusal wins.
#include "settings/option_rules.h"

#include <gtest/gtest.h>

#include <utility>

namespace cantorix {
namespace {

constexpr const char* kAccepted = "";

TEST(OptionRulesTest, BandwidthsAreTruncatedAndNameTheirPointsIsKept) {
  const auto texts = BandwidthTexts(11025.0, kFftLpcSizes);
  ASSERT_EQ(texts.size(), 8U);
  EXPECT_EQ(texts[0], "  344  Hz  (  32 pts)");
  EXPECT_EQ(texts[1], "  172  Hz  (  64 pts)");
  EXPECT_EQ(texts[2], "  86  Hz   ( 128 pts)");
  EXPECT_EQ(texts[7], "  2  Hz   (4096 pts)");
  EXPECT_EQ(BandwidthTexts(11025.0, kSpectrogramSizes).back(), "  1  Hz   (8192 pts)");
}

TEST(OptionRulesTest, PitchRangesAreTestedInOrder) {
  constexpr const char* kLow = "Please select a calculation low range greater than 50 Hz";
  constexpr const char* kHigh =
      "Calculation high range is too low. Must be greater (low range +200) Hz";
  constexpr const char* kDisplayLow = "Please select a display low range greater than 50 Hz";
  constexpr const char* kDisplayHigh =
      "Display high range is too low. Must be greater (low range +200) Hz";
  const struct {
    double low, high;
    std::int32_t displayLow, displayHigh;
    const char* refusal;
  } cases[] = {
      {50, 250, 50, 250, kAccepted},
      {50, 249, 50, 250, kHigh},
      {49, 100, 0, 0, kLow},
      {100, 299, 0, 0, kHigh},
      {50, 250, 49, 49, kDisplayLow},
      {50, 250, 50, 249, kDisplayHigh},
      {50, 250, 2147483647, 2147483647, kDisplayHigh},
  };
  for (const auto& c : cases) {
    PitchSettings entered;
    entered.lowHz = c.low;
    entered.highHz = c.high;
    entered.displayLowHz = c.displayLow;
    entered.displayHighHz = c.displayHigh;
    EXPECT_EQ(PitchRefusal(entered).value_or(kAccepted), c.refusal)
        << c.low << " " << c.high << " " << c.displayLow << " " << c.displayHigh;
  }
}

TEST(OptionRulesTest, SpectrogramRangeFollowsTheRateAnd400CoefficientsPassIsKept) {
  constexpr const char* kRangeLow = "Frequency range is too low. Must be > 500 Hz";
  constexpr const char* kCoefficients = "LPC coefficient is too high. Must be < 400";
  const struct {
    double rateHz, preEmphasis;
    std::int32_t rangeHz, lpcOrder;
    const char* refusal;
  } cases[] = {
      {11025.0, 0.98, 5000, 400, kAccepted},
      {11025.0, 0.0, 500, 14, kAccepted},
      {11025.0, 1.0, 5001, 401, "Frequency range is too high. Must be < 5000 Hz"},
      {11025.0, 1.0, 5000, 401, kCoefficients},
      {11025.0, 1.0, 499, 401, kRangeLow},
      {11999.9, 0.5, 5500, 14, "Frequency range is too high. Must be < 5000 Hz"},
      {12000.0, 0.5, 6000, 14, kAccepted},
      {11025.0, 1.01, 499, 401, "Enter a number between 0 and 1."},
      {11025.0, -0.01, 5000, 14, "Enter a number between 0 and 1."},
  };
  for (const auto& c : cases) {
    SpectrogramSettings entered;
    entered.preEmphasis = c.preEmphasis;
    entered.rangeHz = c.rangeHz;
    entered.lpcOrder = c.lpcOrder;
    EXPECT_EQ(SpectrogramRefusal(entered, c.rateHz).value_or(kAccepted), c.refusal)
        << c.rateHz << " " << c.preEmphasis << " " << c.rangeHz << " " << c.lpcOrder;
  }
}

TEST(OptionRulesTest, FftLpcTakes4To100Coefficients) {
  for (const auto& [order, accepted] :
       {std::pair{3, false}, {4, true}, {100, true}, {101, false}}) {
    FftLpcSettings entered;
    entered.lpcOrder = order;
    EXPECT_EQ(!FftLpcRefusal(entered), accepted) << order;
  }
}

}  // namespace
}  // namespace cantorix
