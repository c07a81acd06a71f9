// option_forms.cpp - long because it is the tables of all option dialogs.
#include "settings/option_forms.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

#include "platform/numbers.h"
#include "settings/suggested_settings.h"

namespace cantorix {
namespace {

using F = FftLpcSettings;
using X = SpectrogramSettings;
using P = PitchSettings;
using I = IntensitySettings;
using D = DocumentSettings;
using G = GainSettings;
using R = GenericParameters;
using Refusal = std::optional<std::string>;

// Kept: the sizes from 128 on begin with a blank, the two before them do not.
constexpr std::array<const char*, kSpectrogramSizes> kSizeTexts{
    "(  32 pts)",  "(  64 pts)",  " ( 128 pts)", " ( 256 pts)", " ( 512 pts)",
    " (1024 pts)", " (2048 pts)", " (4096 pts)", " (8192 pts)"};

constexpr double kCorrelationStep = 100.0;  // samples
constexpr double kLowestPitchHz = 50.0;
constexpr double kNarrowestPitchHz = 200.0;

constexpr OptionLimits kMilliseconds{1, 32767};
constexpr OptionLimits kFrequency{1, 1000000};
constexpr OptionLimits kLevel{1, 1000};
constexpr OptionLimits kTimeGrid{0, 10000000};
constexpr OptionLimits kNotNegative{0, 1000000};
constexpr OptionLimits kPaper{0.5, 200};
constexpr OptionLimits kAmplitude{-1000000, 1000000};
constexpr OptionLimits kZoomRange{1, 100000000};
constexpr OptionLimits kLogStep{1, 100000};
constexpr OptionLimits kHeader{0, 1000000000};

constexpr const char* kTimeGridNote = "0: the time grid follows the zoomed window.";
constexpr const char* kInchesNote = "The size is in inches.";

Refusal RefuseUnless(bool taken, const char* message) {
  return taken ? std::nullopt : Refusal(message);
}

// FFT/LPC

constexpr OptionRow<F> kFftLpcAnalysis[] = {
    {.text = "Bandwidth (Window Length ) = ",
     .sizes = {&F::sizeIndex, &F::points, 0, kFftLpcSizes, false}},
    {.text = "Applied window length (ms)  = ", .number = &F::windowMs, .limits = kMilliseconds},
    {.text = "Average step size (ms) = ", .number = &F::stepMs, .limits = kMilliseconds},
    {.text = "LPC number of coefficients = ", .number = &F::lpcOrder, .limits = kSpectrumOrders},
};
constexpr OptionRow<F> kFftLpcDisplay[] = {
    {.text = "Frequency range (Hz) = ", .number = &F::rangeHz, .limits = kFrequency},
    {.text = "Draw LPC", .on = &F::drawLpc},
    {.text = "Absolute  (dB)  = ",
     .second = "Relative ",
     .on = &F::relative,
     .number = &F::absoluteDb,
     .limits = kLevel},
    {.text = "Add Frequency grid with spacing (Hz) = ",
     .on = &F::addFrequencyGrid,
     .number = &F::frequencyGridHz,
     .limits = kFrequency},
    {.text = "Add Power grid with spacing (dB)       = ",
     .on = &F::addPowerGrid,
     .number = &F::powerGridDb,
     .limits = kLevel},
};

template <typename S>
constexpr OptionRow<S> kPrintWidth{.text = "Width  = ",
                                   .number = &S::printWidth,
                                   .limits = kPaper,
                                   .fraction = true,
                                   .printSize = true};
template <typename S>
constexpr OptionRow<S> kPrintHeight{.text = "Height =",
                                    .number = &S::printHeight,
                                    .limits = kPaper,
                                    .fraction = true,
                                    .printSize = true};

constexpr OptionRow<F> kFftLpcPrint[] = {
    kPrintWidth<F>,
    kPrintHeight<F>,
    {.text = "inches", .second = "cm", .on = &F::printUnit, .printSize = true},
    {.text = "Color", .second = "Black / White", .on = &F::blackWhite},
};
constexpr OptionGroup<F> kFftLpcGroups[] = {
    {.title = "Analysis", .rows = kFftLpcAnalysis},
    {.title = "Display", .rows = kFftLpcDisplay},
    {.title = "Print/BMP", .rows = kFftLpcPrint, .newColumn = true},
};

// Spectrogram

Refusal RangeRefusal(const X& entered, double rateHz) {
  if (entered.rangeHz < kLowestRangeHz) return "Frequency range is too low. Must be > 500 Hz";
  const std::int32_t limitHz = SpectrogramRangeLimitHz(rateHz);
  if (entered.rangeHz <= limitHz) return std::nullopt;
  return "Frequency range is too high. Must be < " + std::to_string(limitHz) + " Hz";
}

// Kept: the sentence says "< 400", and exactly 400 passes.
Refusal TrackingRefusal(const X& entered, double) {
  return RefuseUnless(entered.lpcOrder <= kMostTrackingCoefficients,
                      "LPC coefficient is too high. Must be < 400");
}

constexpr OptionRow<X> kSpectrogramAnalysis[] = {
    {.text = "Bandwidth (Window Length)  = ",
     .sizes = {&X::sizeIndex, &X::points, 1, kSpectrogramSizes, true}},
    {.text = "Pre-Emphasis (0-1)(0 adds nothing)",
     .number = &X::preEmphasis,
     .limits = {0, 1},
     .fraction = true},
    {.text = "Frequency range (Hz) = ",
     .number = &X::rangeHz,
     .limits = kAnyWhole,
     .cap = SpectrogramRangeLimitHz,
     .refusal = RangeRefusal},
    {.text = "Dynamic range (dB) = ", .number = &X::dynamicRangeDb, .limits = kLevel},
    {.text = "Formant tracking LPC coefficients        = ",
     .on = &X::trackFormants,
     .number = &X::lpcOrder,
     .limits = {1, 2147483647},
     .refusal = TrackingRefusal},
    {.text = "Display formants", .on = &X::displayFormants},
};
constexpr OptionRow<X> kSpectrogramPrint[] = {kPrintWidth<X>, kPrintHeight<X>};
constexpr OptionRow<X> kSpectrogramDisplay[] = {
    {.text = "Draw Audio ", .on = &X::drawAudio},
    {.text = "Draw Labels", .on = &X::drawLabels},
    {.text = "Draw Intensity", .on = &X::drawIntensity},
};
constexpr OptionRow<X> kSpectrogramGrids[] = {
    {.text = "Add Frequency grid with spacing (Hz) = ",
     .on = &X::addFrequencyGrid,
     .number = &X::frequencyGridHz,
     .limits = kFrequency},
    {.text = "Add Time grid with spacing (ms) = ",
     .on = &X::addTimeGrid,
     .number = &X::timeGridMs,
     .limits = kTimeGrid},
};
constexpr OptionGroup<X> kSpectrogramGroups[] = {
    {.title = "Analysis", .rows = kSpectrogramAnalysis},
    {.title = "Print/BMP", .rows = kSpectrogramPrint, .note = kInchesNote},
    {.title = "Display", .rows = kSpectrogramDisplay, .newColumn = true},
    {.title = "Grids", .rows = kSpectrogramGrids, .note = kTimeGridNote},
};

// Pitch

Refusal LowRefusal(const P& entered, double) {
  return RefuseUnless(entered.lowHz >= kLowestPitchHz,
                      "Please select a calculation low range greater than 50 Hz");
}
Refusal HighRefusal(const P& entered, double) {
  return RefuseUnless(entered.highHz >= entered.lowHz + kNarrowestPitchHz,
                      "Calculation high range is too low. Must be greater (low range +200) Hz");
}
Refusal DisplayLowRefusal(const P& entered, double) {
  return RefuseUnless(entered.displayLowHz >= kLowestPitchHz,
                      "Please select a display low range greater than 50 Hz");
}
Refusal DisplayHighRefusal(const P& entered, double) {
  return RefuseUnless(entered.displayHighHz >= entered.displayLowHz + kNarrowestPitchHz,
                      "Display high range is too low. Must be greater (low range +200) Hz");
}

constexpr OptionNeed<P> kOnlyCepstral{&P::method, kCepstral};
constexpr OptionNeed<P> kOnlyCorrelation{&P::method, kAutoCorrelation};

constexpr OptionRow<P> kPitchMethod[] = {
    {.text = "Cepstral", .second = "AutoCorrolation", .on = &P::method},
    {.text = "Window length (ms)  = ",
     .number = &P::windowMs,
     .limits = kMilliseconds,
     .needs = kOnlyCepstral},
    {.text = "Step size (ms)           = ",
     .number = &P::stepMs,
     .limits = kMilliseconds,
     .needs = kOnlyCepstral},
};

// Why the two numbers above are out of use.
std::string StepRemark(const P& entered, double rateHz) {
  if (entered.method != kAutoCorrelation || !(rateHz > 0.0)) return {};
  return "Step is 100 samples = " + FormatOneDecimal(kCorrelationStep / rateHz * 1000.0) +
         " ms with AutoCorrolation";
}

constexpr OptionRow<P> kPitchCepstral[] = {
    {.text = "Frequency deviation (Hz) = ",
     .number = &P::deviationHz,
     .limits = kNotNegative,
     .needs = kOnlyCepstral},
    {.text = "Tracking threshold (%)     = ",
     .number = &P::thresholdPercent,
     .limits = kNotNegative,
     .fraction = true,
     .needs = kOnlyCepstral},
};
constexpr OptionRow<P> kPitchCorrelation[] = {
    {.text = "Voicing level = ",
     .number = &P::voicingLevel,
     .limits = kNotNegative,
     .needs = kOnlyCorrelation},
    {.text = "Continuity tolerance (%) = ",
     .number = &P::tolerancePercent,
     .limits = kNotNegative,
     .needs = kOnlyCorrelation},
};
constexpr OptionRow<P> kPitchRanges[] = {
    {.text = "Calculation range (Hz)  = ",
     .number = &P::lowHz,
     .limits = kAnyWhole,
     .refusal = LowRefusal},
    {.text = "to",
     .number = &P::highHz,
     .limits = kAnyWhole,
     .refusal = HighRefusal,
     .beside = true},
    {.text = "Display range (Hz)        = ",
     .number = &P::displayLowHz,
     .limits = kAnyWhole,
     .refusal = DisplayLowRefusal},
    {.text = "to",
     .number = &P::displayHighHz,
     .limits = kAnyWhole,
     .refusal = DisplayHighRefusal,
     .beside = true},
};
constexpr OptionRow<P> kPitchGrids[] = {
    {.text = "Add Frequency grid with spacing (Hz) = ",
     .on = &P::addFrequencyGrid,
     .number = &P::frequencyGridHz,
     .limits = kFrequency},
    {.text = "Add Time grid with spacing (ms) = ",
     .on = &P::addTimeGrid,
     .number = &P::timeGridMs,
     .limits = kTimeGrid},
};
constexpr OptionRow<P> kPitchWindow[] = {
    {.text = "Add audio", .on = &P::addAudio},
    {.text = "Add Intensity", .on = &P::addIntensity},
    {.text = "Add Labels", .on = &P::addLabels},
};
constexpr OptionRow<P> kPitchPrint[] = {kPrintWidth<P>, kPrintHeight<P>};
constexpr OptionGroup<P> kPitchGroups[] = {
    {.title = "Method", .rows = kPitchMethod, .remark = StepRemark},
    {.title = "Cepstral method", .rows = kPitchCepstral},
    {.title = "AutoCorrolation method", .rows = kPitchCorrelation},
    {.title = "Ranges", .rows = kPitchRanges, .newColumn = true},
    {.title = "Grids", .rows = kPitchGrids, .note = kTimeGridNote},
    {.title = "Window", .rows = kPitchWindow},
    {.title = "Print/BMP", .rows = kPitchPrint, .note = kInchesNote},
};

// The dialogs of one or two numbers

constexpr OptionRow<I> kIntensityRows[] = {
    {.text = "Window Length (ms) = ", .number = &I::windowMs, .limits = kMilliseconds},
    {.text = "Step Size (ms) = ", .number = &I::stepMs, .limits = kMilliseconds},
    {.text = "Absolute", .second = "Relative", .on = &I::relative},
};
constexpr OptionGroup<I> kIntensityGroups[] = {{.rows = kIntensityRows}};

constexpr OptionRow<D> kZoomRows[] = {{.text = "Range to zoom from cursor ( ms ) = ",
                                       .number = &D::zoomRangeMs,
                                       .limits = kZoomRange}};
constexpr OptionGroup<D> kZoomGroups[] = {{.rows = kZoomRows}};

constexpr OptionRow<D> kLogRows[] = {{.text = "Step size for entire frame entry (Hz) = ",
                                      .number = &D::logStepHz,
                                      .limits = kLogStep}};
constexpr OptionGroup<D> kLogGroups[] = {{.title = "FFT/LPC Entire Frame ", .rows = kLogRows}};

constexpr OptionRow<G> kGainRows[] = {
    {.text = "Reference = ", .number = &G::reference, .limits = kAmplitude},
    {.text = "Gain (%) = ", .number = &G::gainPercent, .limits = kAmplitude},
};
constexpr OptionGroup<G> kGainGroups[] = {{.rows = kGainRows}};

constexpr OptionRow<R> kGenericFile[] = {
    {.text = "Header size (byte) =", .number = &R::headerBytes, .limits = kHeader},
    {.text = "Sample rate (hz)    =", .number = &R::rateHz, .limits = kFrequency},
};
constexpr OptionRow<R> kGenericSamples[] = {
    {.text = "ASCII", .second = "Interger binary", .caption = "Data", .on = &R::binary},
    {.text = "8 bit", .second = "16 bit", .caption = "Width", .on = &R::sixteenBit},
    {.text = "Low byte first",
     .second = "High byte first",
     .caption = "Byte order",
     .on = &R::highByteFirst},
};
constexpr OptionGroup<R> kGenericGroups[] = {{.title = "File", .rows = kGenericFile},
                                             {.title = "Samples", .rows = kGenericSamples}};

std::string ShortText(double value) {
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
  return std::string(text.data(), end);
}

}  // namespace

const OptionForm<F>& FftLpcForm() {
  static constexpr OptionForm<F> form{"FFT/LPC Option", kFftLpcGroups, "Default size", true,
                                      Suggested};
  return form;
}

const OptionForm<X>& SpectrogramForm() {
  static constexpr OptionForm<X> form{"Spectrogram Option", kSpectrogramGroups, "Defaults", false,
                                      Suggested};
  return form;
}

const OptionForm<P>& PitchForm() {
  static constexpr OptionForm<P> form{"Pitch option", kPitchGroups, "Defaults ", false,
                                      [](P entered, double) { return Suggested(entered); }};
  return form;
}

const OptionForm<I>& IntensityForm() {
  static constexpr OptionForm<I> form{"Intensity Options", kIntensityGroups};
  return form;
}

const OptionForm<D>& ZoomForm() {
  static constexpr OptionForm<D> form{"Zoom Option", kZoomGroups};
  return form;
}

const OptionForm<D>& LogForm() {
  static constexpr OptionForm<D> form{"Log Option", kLogGroups};
  return form;
}

const OptionForm<G>& GainForm() {
  static constexpr OptionForm<G> form{"Reference and Gain", kGainGroups};
  return form;
}

const OptionForm<R>& GenericForm() {
  static constexpr OptionForm<R> form{"Generic File Selection", kGenericGroups};
  return form;
}

std::string LimitsMessage(const OptionLimits& limits, bool fraction) {
  const std::string number = fraction ? "Enter a number" : "Enter an integer";
  if (limits.least == kAnyWhole.least && limits.most == kAnyWhole.most) return number + ".";
  return number + " between " + ShortText(limits.least) + " and " + ShortText(limits.most) + ".";
}

std::vector<std::string> BandwidthTexts(double rateHz, int count) {
  std::vector<std::string> texts;
  for (int i = 0; i < std::min(count, kSpectrogramSizes); ++i) {
    const std::int32_t hz = TruncateToInt32(rateHz / PointsOfEntry(i));
    texts.push_back("  " + std::to_string(hz) + "  Hz  " + kSizeTexts[static_cast<std::size_t>(i)]);
  }
  return texts;
}

std::int32_t SpectrogramRangeLimitHz(double rateHz) {
  return TruncateToInt32(rateHz) / 2000 * 1000;
}

}  // namespace cantorix
