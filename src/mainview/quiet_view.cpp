// quiet_view.cpp - the answers of a user who is not there.
#include "mainview/quiet_view.h"

#include "mainview/dialog_answers.h"
#include "settings/settings.h"

namespace cantorix {

std::optional<LabelAnswer> QuietDialogs::AskLabel(const Label&, bool) { return {}; }

std::optional<std::vector<std::string>> QuietDialogs::AskTexts(const TextsQuestion&) { return {}; }

std::optional<TierSetups> QuietDialogs::AskTiers(const TierSetups&) { return {}; }

std::optional<LabelImportAnswer> QuietDialogs::AskLabelImport(const std::vector<std::string>&,
                                                              const LabelImportOptions&) {
  return {};
}

std::optional<LabelFileOptions> QuietDialogs::AskLabelFile(const LabelFileOptions&) { return {}; }

std::optional<LabelExportAnswer> QuietDialogs::AskLabelExport(const std::vector<std::string>&,
                                                              const LabelFileOptions&) {
  return {};
}

std::optional<GainSettings> QuietDialogs::AskGain(const GainSettings&) { return {}; }

std::optional<std::int32_t> QuietDialogs::AskZoomRange(std::int32_t) { return {}; }

std::optional<FftLpcSettings> QuietDialogs::AskFftLpc(const FftLpcSettings&, double) { return {}; }

std::optional<SpectrogramSettings> QuietDialogs::AskSpectrogram(const SpectrogramSettings&,
                                                                const SpectrogramSettings&,
                                                                double) {
  return {};
}

std::optional<PitchSettings> QuietDialogs::AskPitch(const PitchSettings&, double) { return {}; }

std::optional<IntensitySettings> QuietDialogs::AskIntensity(const IntensitySettings&) { return {}; }

std::optional<std::int32_t> QuietDialogs::AskLogStep(std::int32_t) { return {}; }

}  // namespace cantorix
