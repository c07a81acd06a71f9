// option_forms_test.cpp - what the rows of the option dialogs take, and which refusal wins.
#include "settings/option_forms.h"

#include <gtest/gtest.h>

namespace cantorix {
namespace {

constexpr const char* kTaken = "";

TEST(OptionForms, BandwidthsAreTruncatedAndNameTheirPointsIsKept) {
  EXPECT_EQ(BandwidthTexts(11025.0, kSpectrogramSizes),
            (std::vector<std::string>{
                "  344  Hz  (  32 pts)", "  172  Hz  (  64 pts)", "  86  Hz   ( 128 pts)",
                "  43  Hz   ( 256 pts)", "  21  Hz   ( 512 pts)", "  10  Hz   (1024 pts)",
                "  5  Hz   (2048 pts)", "  2  Hz   (4096 pts)", "  1  Hz   (8192 pts)"}));
  EXPECT_EQ(BandwidthTexts(11025.0, kFftLpcSizes).size(), 8U);
}

TEST(OptionForms, PitchRangesAreTestedInOrder) {
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
      {50, 250, 50, 250, kTaken},
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
    EXPECT_EQ(FormRefusal(PitchForm(), entered, 11025.0).value_or(kTaken), c.refusal)
        << c.low << " " << c.high << " " << c.displayLow << " " << c.displayHigh;
  }
}

TEST(OptionForms, SpectrogramRangeFollowsTheRateAnd400CoefficientsPassIsKept) {
  constexpr const char* kRangeLow = "Frequency range is too low. Must be > 500 Hz";
  constexpr const char* kCoefficients = "LPC coefficient is too high. Must be < 400";
  constexpr const char* kEmphasis = "Enter a number between 0 and 1.";
  const struct {
    double rateHz, preEmphasis;
    std::int32_t rangeHz, lpcOrder;
    const char* refusal;
  } cases[] = {
      {11025.0, 0.98, 5000, 400, kTaken},
      {11025.0, 0.0, 500, 14, kTaken},
      {11025.0, 1.0, 5001, 401, "Frequency range is too high. Must be < 5000 Hz"},
      {11025.0, 1.0, 5000, 401, kCoefficients},
      {11025.0, 1.0, 499, 401, kRangeLow},
      {11999.9, 0.5, 5500, 14, "Frequency range is too high. Must be < 5000 Hz"},
      {12000.0, 0.5, 6000, 14, kTaken},
      {11025.0, 1.01, 499, 401, kEmphasis},
      {11025.0, -0.01, 5000, 14, kEmphasis},
      {1999.0, 0.5, 5000, 14, kTaken},  // no range fits: none is asked for
  };
  for (const auto& c : cases) {
    SpectrogramSettings entered;
    entered.preEmphasis = c.preEmphasis;
    entered.rangeHz = c.rangeHz;
    entered.lpcOrder = c.lpcOrder;
    EXPECT_EQ(FormRefusal(SpectrogramForm(), entered, c.rateHz).value_or(kTaken), c.refusal)
        << c.rateHz << " " << c.preEmphasis << " " << c.rangeHz << " " << c.lpcOrder;
  }
}

}  // namespace
}  // namespace cantorix
