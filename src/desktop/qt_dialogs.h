// qt_dialogs.h - the dialogs of a document's view as windows. Each is made for one question.
#pragma once

#include "mainview/view_dialogs.h"

namespace cantorix {

class QtPrompts;

class QtDialogs : public ViewDialogs {
 public:
  explicit QtDialogs(QtPrompts& prompts) : prompts_(prompts) {}

  std::optional<LabelAnswer> AskLabel(const Label& preset, bool exists) override;
  std::optional<std::vector<std::string>> AskTexts(const TextsQuestion& question) override;
  std::optional<TierSetups> AskTiers(const TierSetups& preset) override;
  std::optional<LabelImportAnswer> AskLabelImport(const std::vector<std::string>& tierNames,
                                                  const LabelImportOptions& preset) override;
  std::optional<LabelFileOptions> AskLabelFile(const LabelFileOptions& preset) override;
  std::optional<LabelExportAnswer> AskLabelExport(const std::vector<std::string>& tierNames,
                                                  const LabelFileOptions& preset) override;
  std::optional<GainSettings> AskGain(const GainSettings& preset) override;
  std::optional<std::int32_t> AskZoomRange(std::int32_t presetMs) override;
  std::optional<FftLpcSettings> AskFftLpc(const FftLpcSettings& preset, double rateHz) override;
  std::optional<SpectrogramSettings> AskSpectrogram(const SpectrogramSettings& preset,
                                                    const SpectrogramSettings& defaults,
                                                    double rateHz) override;
  std::optional<PitchSettings> AskPitch(const PitchSettings& preset, double rateHz) override;
  std::optional<IntensitySettings> AskIntensity(const IntensitySettings& preset) override;
  std::optional<std::int32_t> AskLogStep(std::int32_t presetHz) override;

 private:
  QtPrompts& prompts_;
};

}  // namespace cantorix
