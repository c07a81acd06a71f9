// option_forms_test.cpp - all option dialogs against their description in forms.txt, what their
// rows take, and which refusal wins.
#include "settings/option_forms.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "settings/field_table.h"
#include "settings/settings.h"
#include "support/samples.h"

namespace cantorix {
namespace {

constexpr const char* kTaken = "";

// Writes forms down: a line each for the dialog, its groups, and their rows with what they set and
// its limits.
class Description {
 public:
  template <typename S>
  void Add(const OptionForm<S>& form, const S& part) {
    text_ << form.title << " [" << (form.restore != nullptr ? form.restore : "no button")
          << (form.restoresSizeOnly ? "] of the size\n" : "]\n");
    for (const OptionGroup<S>& group : form.groups) {
      text_ << (group.newColumn ? "  | \"" : "  - \"") << group.title << "\" "
            << (group.note != nullptr ? group.note : "without a note") << '\n';
      for (const OptionRow<S>& row : group.rows) AddRow(row, part);
    }
  }
  std::string text() const { return text_.str(); }
  const Settings& settings() const { return settings_; }

 private:
  template <typename S>
  void AddRow(const OptionRow<S>& row, const S& part) {
    text_ << (row.beside ? "    + \"" : "    \"") << row.text << '"';
    if (row.second != nullptr) text_ << " / \"" << row.second << "\" (" << row.caption << ')';
    if (row.on != nullptr) text_ << ' ' << NameOf(&(part.*row.on)) << '?';
    std::visit([&](auto member) { AddNumber(row, part, member); }, row.number);
    if (row.sizes.count > 0) {
      text_ << ' ' << NameOf(&(part.*row.sizes.points)) << ' ' << NameOf(&(part.*row.sizes.index))
            << " from " << row.sizes.firstIndex << " of " << row.sizes.count
            << (row.sizes.chosenByPoints ? " by points" : " by index");
    }
    if (row.needs.choice != nullptr) {
      text_ << ", needs " << NameOf(&(part.*row.needs.choice)) << ' ' << row.needs.value;
    }
    text_ << (row.printSize ? ", of the size\n" : "\n");
  }
  template <typename S, typename Member>
  void AddNumber(const OptionRow<S>& row, const S& part, Member member) {
    if constexpr (!std::is_same_v<Member, std::monostate>) {
      text_ << ' ' << NameOf(&(part.*member)) << ": " << LimitsMessage(row.limits, row.fraction)
            << (row.cap != nullptr ? " Capped." : "") << (row.refusal != nullptr ? " Judged." : "");
    }
  }
  std::string NameOf(const void* place) const {
    for (const Field& field : Fields()) {
      const auto isIt = [place](const auto* value) { return value == place; };
      if (std::visit(isIt, field.place.of(settings_))) return std::string(field.name);
    }
    return "a value of its own";
  }

  Settings settings_;
  std::ostringstream text_;
};

TEST(OptionForms, AreAsDescribed) {
  Description forms;
  const DocumentSettings& settings = forms.settings().document;
  forms.Add(FftLpcForm(), settings.fftLpc);
  forms.Add(SpectrogramForm(), settings.spectrogram);
  forms.Add(PitchForm(), settings.pitch);
  forms.Add(IntensityForm(), settings.intensity);
  forms.Add(ZoomForm(), settings);
  forms.Add(LogForm(), settings);
  forms.Add(GainForm(), settings.gain);
  forms.Add(GenericForm(), settings.generic);
  std::ifstream file(SamplesDirectory() + "/../tests/settings/forms.txt");
  std::ostringstream expected;
  expected << file.rdbuf();
  EXPECT_EQ(forms.text(), expected.str());
}

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

TEST(OptionForms, JudgeOnlyTheNumbersThatCount) {
  PitchSettings pitch;
  pitch.deviationHz = pitch.voicingLevel = -1.0;
  FftLpcSettings fft;
  fft.absoluteDb = fft.powerGridDb = 0;
  const auto refused = [&](std::int32_t method, std::int32_t relative, std::int32_t grid) {
    pitch.method = method;
    fft.relative = relative;
    fft.addPowerGrid = grid;
    return FormRefusal(PitchForm(), pitch, 11025.0).value_or(kTaken) + "|" +
           FormRefusal(FftLpcForm(), fft, 11025.0).value_or(kTaken);
  };
  const std::string amount = "Enter an integer between 0 and 1000000.|";
  const std::string level = "Enter an integer between 1 and 1000.";
  EXPECT_EQ(refused(kCepstral, 1, 0), amount);
  pitch.deviationHz = 0.0;
  EXPECT_EQ(refused(kCepstral, 0, 0), "|" + level);
  EXPECT_EQ(refused(kAutoCorrelation, 1, 1), amount + level);
}

}  // namespace
}  // namespace cantorix
