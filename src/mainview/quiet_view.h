// quiet_view.h - what a view is given when nobody sits in front of it: every dialog is cancelled,
// nothing is drawn, nothing sounds.
#pragma once

#include "mainview/view_dialogs.h"
#include "mainview/view_ports.h"

namespace cantorix {

class QuietDialogs : public ViewDialogs {
 public:
  std::optional<LabelAnswer> AskLabel(const Label&, bool) override;
  std::optional<std::vector<std::string>> AskTexts(const TextsQuestion&) override;
  std::optional<TierSetups> AskTiers(const TierSetups&) override;
  std::optional<LabelImportAnswer> AskLabelImport(const std::vector<std::string>&,
                                                  const LabelImportOptions&) override;
  std::optional<LabelFileOptions> AskLabelFile(const LabelFileOptions&) override;
  std::optional<LabelExportAnswer> AskLabelExport(const std::vector<std::string>&,
                                                  const LabelFileOptions&) override;
  std::optional<GainSettings> AskGain(const GainSettings&) override;
  std::optional<std::int32_t> AskZoomRange(std::int32_t) override;
  std::optional<FftLpcSettings> AskFftLpc(const FftLpcSettings&, double) override;
  std::optional<SpectrogramSettings> AskSpectrogram(const SpectrogramSettings&,
                                                    const SpectrogramSettings&, double) override;
  std::optional<PitchSettings> AskPitch(const PitchSettings&, double) override;
  std::optional<IntensitySettings> AskIntensity(const IntensitySettings&) override;
  std::optional<std::int32_t> AskLogStep(std::int32_t) override;
};

class QuietWindow : public ViewListener, public SoundControl {
 public:
  void ViewChanged(const ViewNotice&) override {}
  void StopPlayback() override {}
};

}  // namespace cantorix
