// option_forms_test.cpp - all option dialogs against their description in forms.txt, what their
// rows take, and which refusal wins.
#include "settings/option_forms.h"

#include <gtest/gtest.h>

#include <sstream>

#include "settings/field_table.h"
#include "settings/settings.h"
#include "support/expected_text.h"
#include "support/joined.h"

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
  ExpectText("settings/forms.txt", forms.text());
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
  std::string text = "low high, display low high: refusal\n";
  for (const double low : {49.0, 50.0, 100.0}) {
    for (const double high : {100.0, 249.0, 250.0, 299.0, 300.0}) {
      for (const auto& [displayLow, displayHigh] :
           {std::pair{50, 250}, {49, 49}, {50, 249}, {INT32_MAX, INT32_MAX}}) {
        PitchSettings entered;
        entered.lowHz = low;
        entered.highHz = high;
        entered.displayLowHz = displayLow;
        entered.displayHighHz = displayHigh;
        text += Joined(low, high, displayLow, displayHigh,
                       FormRefusal(PitchForm(), entered, 11025.0).value_or(kTaken)) +
                '\n';
      }
    }
  }
  ExpectText("settings/pitch_refusals.txt", text);
}

// At 1999 Hz no range fits, and none is asked for.
TEST(OptionForms, SpectrogramRangeFollowsTheRateAnd400CoefficientsPassIsKept) {
  std::string text = "rate, range, coefficients, pre-emphasis: refusal\n";
  for (const double rateHz : {1999.0, 11025.0, 11999.9, 12000.0}) {
    for (const std::int32_t rangeHz : {499, 500, 5000, 5001, 5500, 6000, 6001}) {
      for (const auto& [lpcOrder, preEmphasis] :
           {std::pair{400, 0.0}, {401, 1.0}, {401, 1.01}, {400, -0.01}}) {
        SpectrogramSettings entered;
        entered.preEmphasis = preEmphasis;
        entered.rangeHz = rangeHz;
        entered.lpcOrder = lpcOrder;
        text += Joined(rateHz, rangeHz, lpcOrder, preEmphasis,
                       FormRefusal(SpectrogramForm(), entered, rateHz).value_or(kTaken)) +
                '\n';
      }
    }
  }
  ExpectText("settings/spectrogram_refusals.txt", text);
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
