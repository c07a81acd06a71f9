// field_table.cpp - the fields of the settings record, row by row.
#include "settings/field_table.h"

#include <algorithm>

#include "settings/settings.h"

namespace cantorix {
namespace {

using enum Storage;
using enum SettingsDialog;
using S = Settings;
using A = ApplicationSettings;
using W = WindowPlacement;
using D = DocumentSettings;
using Y = DisplaySettings;
using G = GainSettings;
using F = FftLpcSettings;
using I = IntensitySettings;
using X = SpectrogramSettings;
using P = PitchSettings;
using R = GenericParameters;

// The place reached through a chain of members.
template <auto... kMembers>
constexpr FieldPlace At{[](Settings& s) -> FieldValue { return &(s.*....*kMembers); },
                        [](const Settings& s) -> ConstFieldValue { return &(s.*....*kMembers); }};

template <auto kMember>
constexpr FieldPlace Application = At<&S::application, kMember>;
template <auto kWindow, auto kMember>
constexpr FieldPlace Window = At<&S::application, kWindow, kMember>;
template <auto kMember>
constexpr FieldPlace Document = At<&S::document, kMember>;
template <auto kMember>
constexpr FieldPlace Display = At<&S::document, &D::display, kMember>;
template <auto kMember>
constexpr FieldPlace Gain = At<&S::document, &D::gain, kMember>;
template <auto kMember>
constexpr FieldPlace FftLpc = At<&S::document, &D::fftLpc, kMember>;
template <auto kMember>
constexpr FieldPlace Intensity = At<&S::document, &D::intensity, kMember>;
template <auto kMember>
constexpr FieldPlace Spectrogram = At<&S::document, &D::spectrogram, kMember>;
template <auto kMember>
constexpr FieldPlace Pitch = At<&S::document, &D::pitch, kMember>;
template <auto kMember>
constexpr FieldPlace Generic = At<&S::document, &D::generic, kMember>;

template <std::size_t kIndex>
constexpr FieldPlace TierName{
    [](Settings& s) -> FieldValue { return &s.document.tierNames[kIndex]; },
    [](const Settings& s) -> ConstFieldValue { return &s.document.tierNames[kIndex]; }};

// clang-format off
constexpr Field kFields[] = {
    {"application", "memoryMinutes", 16, kInt32, kRecordPlay, Application<&A::memoryMinutes>, "min",
     "recordings of this length and more go to a file"},
    {"application", "mainViewX", 20, kInt32, kNone, Window<&A::mainView, &W::x>, "px",
     "main view, left"},
    {"application", "mainViewY", 24, kInt32, kNone, Window<&A::mainView, &W::y>, "px",
     "main view, top"},
    {"application", "mainViewWidth", 28, kInt32, kNone, Window<&A::mainView, &W::width>, "px",
     "main view, width"},
    {"application", "mainViewHeight", 32, kInt32, kNone, Window<&A::mainView, &W::height>, "px",
     "main view, height"},
    {"application", "fftLpcX", 36, kInt32, kNone, Window<&A::fftLpc, &W::x>, "px",
     "FFT/LPC window, left"},
    {"application", "fftLpcY", 40, kInt32, kNone, Window<&A::fftLpc, &W::y>, "px",
     "FFT/LPC window, top"},
    {"application", "fftLpcWidth", 44, kInt32, kNone, Window<&A::fftLpc, &W::width>, "px",
     "FFT/LPC window, width"},
    {"application", "fftLpcHeight", 48, kInt32, kNone, Window<&A::fftLpc, &W::height>, "px",
     "FFT/LPC window, height"},
    {"application", "spectrogramX", 52, kInt32, kNone, Window<&A::spectrogram, &W::x>, "px",
     "spectrogram window, left"},
    {"application", "spectrogramY", 56, kInt32, kNone, Window<&A::spectrogram, &W::y>, "px",
     "spectrogram window, top"},
    {"application", "spectrogramWidth", 60, kInt32, kNone, Window<&A::spectrogram, &W::width>, "px",
     "spectrogram window, width"},
    {"application", "spectrogramHeight", 64, kInt32, kNone, Window<&A::spectrogram, &W::height>, "px",
     "spectrogram window, height"},
    {"application", "logX", 68, kInt32, kNone, Window<&A::log, &W::x>, "px", "log window, left"},
    {"application", "logY", 72, kInt32, kNone, Window<&A::log, &W::y>, "px", "log window, top"},
    {"application", "logWidth", 76, kInt32, kNone, Window<&A::log, &W::width>, "px",
     "log window, width"},
    {"application", "logHeight", 80, kInt32, kNone, Window<&A::log, &W::height>, "px",
     "log window, height"},
    {"application", "labelListX", 84, kInt32, kNone, Window<&A::labelList, &W::x>, "px",
     "label list, left"},
    {"application", "labelListY", 88, kInt32, kNone, Window<&A::labelList, &W::y>, "px",
     "label list, top"},
    {"application", "labelListWidth", 92, kInt32, kNone, Window<&A::labelList, &W::width>, "px",
     "label list, width"},
    {"application", "labelListHeight", 96, kInt32, kNone, Window<&A::labelList, &W::height>, "px",
     "label list, height"},

    {"document", "referenceRateHz", 104, kDouble, kRecordPlay, Document<&D::referenceRateHz>, "Hz",
     "rate of a new document and of recording"},

    {"display", "automaticAnalysis", 112, kInt32, kRecordPlay, Display<&Y::automaticAnalysis>, "",
     "pitch and intensity of the whole file after opening"},
    {"display", "printUnit", 116, kInt32, kDisplay, Display<&Y::printUnit>, "", "0 inches, 1 cm"},
    {"display", "recordingInput", 120, kInt32, kRecordPlay, Display<&Y::recordingInput>, "",
     "0 system default"},
    {"display", "trackMouse", 124, kInt32, kDisplay, Display<&Y::trackMouse>, "",
     "cursor and selection followed by all windows"},
    {"display", "printWidth", 128, kDouble, kDisplay, Display<&Y::printWidth>, "printUnit",
     "width of prints and bitmaps"},
    {"display", "printHeight", 136, kDouble, kDisplay, Display<&Y::printHeight>, "printUnit",
     "height of prints and bitmaps"},
    {"display", "drawAudio", 144, kInt32, kDisplay, Display<&Y::drawAudio>, "", "waveform pane"},
    {"display", "drawIntensity", 148, kInt32, kDisplay, Display<&Y::drawIntensity>, "",
     "intensity contour"},
    {"display", "timeBase", 152, kInt32, kDisplay, Display<&Y::timeBase>, "",
     "0 milliseconds, 1 seconds"},
    {"display", "intensityInOwnPane", 156, kInt32, kDisplay, Display<&Y::intensityInOwnPane>, "",
     "intensity in a pane of its own"},
    {"display", "drawPitch", 160, kInt32, kDisplay, Display<&Y::drawPitch>, "", "pitch pane"},
    {"display", "drawTiers", 164, kInt32, kDisplay, Display<&Y::drawTiers>, "", "label tiers"},
    {"display", "drawGrids", 168, kInt32, kDisplay, Display<&Y::drawGrids>, "", "grids"},
    {"display", "audioPanePercent", 172, kInt32, kDisplay, Display<&Y::audioPanePercent>, "%",
     "waveform pane, of the client height"},
    {"display", "pitchPanePercent", 176, kInt32, kDisplay, Display<&Y::pitchPanePercent>, "%",
     "pitch pane, of the client height"},

    {"zoom", "rangeMs", 184, kTruncatedDouble, kZoom, Document<&D::zoomRangeMs>, "ms",
     "range to zoom from the cursor"},

    {"gain", "gainPercent", 192, kTruncatedDouble, kGain, Gain<&G::gainPercent>, "%",
     "gain of Reference/Gain"},
    {"gain", "reference", 196, kTruncatedDouble, kGain, Gain<&G::reference>, "sample units",
     "reference of Reference/Gain"},

    {"carried", "word1", 200, kInt32, kNone, Document<&D::carried1>, "", "carried unchanged"},
    {"carried", "word2", 204, kInt32, kNone, Document<&D::carried2>, "", "carried unchanged"},

    {"tiers", "name1", 208, kText, kTiers, TierName<0>, "", "name of tier 1 in new documents"},
    {"tiers", "name2", 272, kText, kTiers, TierName<1>, "", "name of tier 2 in new documents"},
    {"tiers", "name3", 336, kText, kTiers, TierName<2>, "", "name of tier 3 in new documents"},
    {"tiers", "name4", 400, kText, kTiers, TierName<3>, "", "name of tier 4 in new documents"},
    {"tiers", "name5", 464, kText, kTiers, TierName<4>, "", "name of tier 5 in new documents"},
    {"tiers", "name6", 528, kText, kTiers, TierName<5>, "", "name of tier 6 in new documents"},
    {"tiers", "name7", 592, kText, kTiers, TierName<6>, "", "name of tier 7 in new documents"},
    {"tiers", "name8", 656, kText, kTiers, TierName<7>, "", "name of tier 8 in new documents"},
    {"tiers", "name9", 720, kText, kTiers, TierName<8>, "", "name of tier 9 in new documents"},
    {"tiers", "name10", 784, kText, kTiers, TierName<9>, "", "name of tier 10 in new documents"},

    {"fftlpc", "sizeIndex", 848, kInt32, kFftLpc, FftLpc<&F::sizeIndex>, "",
     "points in the list that starts at 32"},
    {"fftlpc", "points", 852, kInt32, kFftLpc, FftLpc<&F::points>, "points", "FFT size"},
    {"fftlpc", "windowMs", 856, kInt32, kFftLpc, FftLpc<&F::windowMs>, "ms",
     "applied window length"},
    {"fftlpc", "stepMs", 860, kInt32, kFftLpc, FftLpc<&F::stepMs>, "ms", "average step size"},
    {"fftlpc", "rangeHz", 864, kInt32, kFftLpc, FftLpc<&F::rangeHz>, "Hz", "frequency range"},
    {"fftlpc", "relative", 868, kInt32, kFftLpc, FftLpc<&F::relative>, "",
     "0 absolute, 1 relative levels"},
    {"fftlpc", "absoluteDb", 872, kInt32, kFftLpc, FftLpc<&F::absoluteDb>, "dB",
     "top of the absolute levels"},
    {"fftlpc", "blackWhite", 876, kInt32, kFftLpc, FftLpc<&F::blackWhite>, "",
     "prints and bitmaps: 0 colour, 1 black and white"},
    {"fftlpc", "printWidth", 880, kDouble, kFftLpc, FftLpc<&F::printWidth>, "printUnit",
     "width of prints and bitmaps"},
    {"fftlpc", "printHeight", 888, kDouble, kFftLpc, FftLpc<&F::printHeight>, "printUnit",
     "height of prints and bitmaps"},
    {"fftlpc", "printUnit", 896, kInt32, kFftLpc, FftLpc<&F::printUnit>, "", "0 inches, 1 cm"},
    {"fftlpc", "addFrequencyGrid", 900, kInt32, kFftLpc, FftLpc<&F::addFrequencyGrid>, "",
     "frequency grid"},
    {"fftlpc", "frequencyGridHz", 904, kInt32, kFftLpc, FftLpc<&F::frequencyGridHz>, "Hz",
     "frequency grid spacing"},
    {"fftlpc", "addPowerGrid", 908, kInt32, kFftLpc, FftLpc<&F::addPowerGrid>, "", "power grid"},
    {"fftlpc", "powerGridDb", 912, kInt32, kFftLpc, FftLpc<&F::powerGridDb>, "dB",
     "power grid spacing"},
    {"fftlpc", "lpcOrder", 916, kInt32, kFftLpc, FftLpc<&F::lpcOrder>, "coefficients", "LPC order"},
    {"fftlpc", "drawLpc", 920, kInt32, kFftLpc, FftLpc<&F::drawLpc>, "", "LPC envelope"},

    {"log", "stepHz", 924, kInt32, kLog, Document<&D::logStepHz>, "Hz",
     "step of the entire-frame log entry"},

    {"intensity", "windowMs", 928, kTruncatedDouble, kIntensity, Intensity<&I::windowMs>, "ms",
     "frame length"},
    {"intensity", "stepMs", 932, kTruncatedDouble, kIntensity, Intensity<&I::stepMs>, "ms",
     "distance between frames"},
    {"intensity", "relative", 936, kInt32, kIntensity, Intensity<&I::relative>, "",
     "0 absolute, 1 relative levels"},

    {"spectrogram", "points", 940, kInt32, kSpectrogram, Spectrogram<&X::points>, "points",
     "FFT size"},
    {"spectrogram", "sizeIndex", 944, kInt32, kSpectrogram, Spectrogram<&X::sizeIndex>, "",
     "log2(points) - 4, written with points"},
    {"spectrogram", "rangeHz", 948, kInt32, kSpectrogram, Spectrogram<&X::rangeHz>, "Hz",
     "frequency range"},
    {"spectrogram", "dynamicRangeDb", 952, kInt32, kSpectrogram, Spectrogram<&X::dynamicRangeDb>, "dB",
     "levels shown below the maximum"},
    {"spectrogram", "preEmphasis", 960, kDouble, kSpectrogram, Spectrogram<&X::preEmphasis>, "",
     "0 adds nothing, at most 1; also of FFT/LPC"},
    {"spectrogram", "displayFormants", 968, kInt32, kSpectrogram, Spectrogram<&X::displayFormants>, "",
     "draw the formants"},
    {"spectrogram", "lpcOrder", 972, kInt32, kSpectrogram, Spectrogram<&X::lpcOrder>, "coefficients",
     "LPC order of formant tracking"},
    {"spectrogram", "trackFormants", 976, kInt32, kSpectrogram, Spectrogram<&X::trackFormants>, "",
     "compute the formants"},
    {"spectrogram", "printWidth", 984, kDouble, kSpectrogram, Spectrogram<&X::printWidth>, "inches",
     "width of prints and bitmaps"},
    {"spectrogram", "printHeight", 992, kDouble, kSpectrogram, Spectrogram<&X::printHeight>, "inches",
     "height of prints and bitmaps"},
    {"spectrogram", "drawAudio", 1000, kInt32, kSpectrogram, Spectrogram<&X::drawAudio>, "",
     "waveform above the picture"},
    {"spectrogram", "drawIntensity", 1004, kInt32, kSpectrogram, Spectrogram<&X::drawIntensity>, "",
     "intensity contour"},
    {"spectrogram", "drawLabels", 1008, kInt32, kSpectrogram, Spectrogram<&X::drawLabels>, "",
     "labels"},
    {"spectrogram", "addFrequencyGrid", 1012, kInt32, kSpectrogram, Spectrogram<&X::addFrequencyGrid>, "",
     "frequency grid"},
    {"spectrogram", "frequencyGridHz", 1016, kInt32, kSpectrogram, Spectrogram<&X::frequencyGridHz>, "Hz",
     "frequency grid spacing"},
    {"spectrogram", "addTimeGrid", 1020, kInt32, kSpectrogram, Spectrogram<&X::addTimeGrid>, "",
     "time grid"},
    {"spectrogram", "timeGridMs", 1024, kInt32, kSpectrogram, Spectrogram<&X::timeGridMs>, "ms",
     "time grid spacing, 0 follows the zoomed window"},

    {"pitch", "windowMs", 1032, kDouble, kPitch, Pitch<&P::windowMs>, "ms", "frame length"},
    {"pitch", "stepMs", 1040, kDouble, kPitch, Pitch<&P::stepMs>, "ms", "distance between frames"},
    {"pitch", "highHz", 1048, kDouble, kPitch, Pitch<&P::highHz>, "Hz",
     "calculation range, high end"},
    {"pitch", "lowHz", 1056, kDouble, kPitch, Pitch<&P::lowHz>, "Hz", "calculation range, low end"},
    {"pitch", "displayHighHz", 1064, kInt32, kPitch, Pitch<&P::displayHighHz>, "Hz",
     "display range, high end"},
    {"pitch", "displayLowHz", 1068, kInt32, kPitch, Pitch<&P::displayLowHz>, "Hz",
     "display range, low end"},
    {"pitch", "addFrequencyGrid", 1072, kInt32, kPitch, Pitch<&P::addFrequencyGrid>, "",
     "frequency grid"},
    {"pitch", "frequencyGridHz", 1076, kInt32, kPitch, Pitch<&P::frequencyGridHz>, "Hz",
     "frequency grid spacing"},
    {"pitch", "method", 1088, kInt32, kPitch, Pitch<&P::method>, "",
     "0 cepstral, 1 autocorrelation"},
    {"pitch", "thresholdPercent", 1096, kDouble, kPitch, Pitch<&P::thresholdPercent>, "%",
     "cepstral: of the largest frame energy"},
    {"pitch", "deviationHz", 1104, kDouble, kPitch, Pitch<&P::deviationHz>, "Hz",
     "cepstral: largest step between frames"},
    {"pitch", "voicingLevel", 1112, kDouble, kPitch, Pitch<&P::voicingLevel>, "",
     "autocorrelation: voicing level"},
    {"pitch", "tolerancePercent", 1120, kDouble, kPitch, Pitch<&P::tolerancePercent>, "%",
     "autocorrelation: continuity tolerance"},

    {"generic", "headerBytes", 1128, kInt32, kNone, Generic<&R::headerBytes>, "bytes",
     "header to skip"},
    {"generic", "rateHz", 1132, kInt32, kNone, Generic<&R::rateHz>, "Hz", "sample rate"},
    {"generic", "sixteenBit", 1136, kInt32, kNone, Generic<&R::sixteenBit>, "",
     "0 8 bit, 1 16 bit"},
    {"generic", "highByteFirst", 1140, kInt32, kNone, Generic<&R::highByteFirst>, "",
     "byte order of 16-bit samples"},
    {"generic", "binary", 1144, kInt32, kNone, Generic<&R::binary>, "",
     "0 ASCII numbers, 1 integer binary"},
};
// clang-format on

}  // namespace

std::span<const Field> Fields() { return kFields; }

const Field* FindField(std::string_view fullName) {
  const auto matches = [fullName](const Field& field) {
    return fullName.size() == field.group.size() + 1 + field.name.size() &&
           fullName.starts_with(field.group) && fullName[field.group.size()] == '.' &&
           fullName.ends_with(field.name);
  };
  const auto found = std::find_if(std::begin(kFields), std::end(kFields), matches);
  return found == std::end(kFields) ? nullptr : found;
}

std::size_t StoredBytes(Storage storage) {
  switch (storage) {
    case kInt32:
    case kTruncatedDouble:
      return 4;
    case kDouble:
      return 8;
    case kText:
      return kFieldTextBytes;
  }
  return 0;
}

}  // namespace cantorix
