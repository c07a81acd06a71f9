// view_dialogs.h - the dialogs of a document's view that give values back, as one interface. Each
// is filled from `preset` and gives nothing when the user cancels. The desktop shows them and keeps
// one open until its values are accepted (settings/option_forms.h); tests script the answers. Who
// asks or answers includes dialog_answers.h and settings.h.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace cantorix {

struct FftLpcSettings;
struct GainSettings;
struct IntensitySettings;
struct Label;
struct LabelAnswer;
struct LabelExportAnswer;
struct LabelFileOptions;
struct LabelImportAnswer;
struct LabelImportOptions;
struct PitchSettings;
struct SpectrogramSettings;
struct TextsQuestion;
struct TierSetup;
using TierSetups = std::array<TierSetup, 10>;  // one for each tier

class ViewDialogs {
 public:
  virtual ~ViewDialogs() = default;

  // "Label entry"; `exists`: the label is in a tier already, so that Delete is offered.
  virtual std::optional<LabelAnswer> AskLabel(const Label& preset, bool exists) = 0;
  // Some texts, as they were typed: times of "Go to" and "Select", the words of "Rename".
  virtual std::optional<std::vector<std::string>> AskTexts(const TextsQuestion& question) = 0;
  // "Tiers Option".
  virtual std::optional<TierSetups> AskTiers(const TierSetups& preset) = 0;
  // "Import a generic label file into a tier".
  virtual std::optional<LabelImportAnswer> AskLabelImport(const std::vector<std::string>& tierNames,
                                                          const LabelImportOptions& preset) = 0;
  // "Import Label File" and "Export Labels": format and options.
  virtual std::optional<LabelFileOptions> AskLabelFile(const LabelFileOptions& preset) = 0;
  virtual std::optional<LabelExportAnswer> AskLabelExport(const std::vector<std::string>& tierNames,
                                                          const LabelFileOptions& preset) = 0;
  // "Reference and Gain"; whole numbers go in and come out.
  virtual std::optional<GainSettings> AskGain(const GainSettings& preset) = 0;
  // "Zoom Option": whole milliseconds.
  virtual std::optional<std::int32_t> AskZoomRange(std::int32_t presetMs) = 0;

  // The option dialogs of the analyses; `rateHz` is the recording's.
  virtual std::optional<FftLpcSettings> AskFftLpc(const FftLpcSettings& preset, double rateHz) = 0;
  // `defaults`: what "Defaults" restores.
  virtual std::optional<SpectrogramSettings> AskSpectrogram(const SpectrogramSettings& preset,
                                                            const SpectrogramSettings& defaults,
                                                            double rateHz) = 0;
  virtual std::optional<PitchSettings> AskPitch(const PitchSettings& preset, double rateHz) = 0;
  virtual std::optional<IntensitySettings> AskIntensity(const IntensitySettings& preset) = 0;
  // "Log Option": step of the entire-frame entry in Hz.
  virtual std::optional<std::int32_t> AskLogStep(std::int32_t presetHz) = 0;
};

}  // namespace cantorix
