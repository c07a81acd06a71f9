// qt_dialogs.cpp - each dialog is shown, and its values are given back when OK took them.
#include "desktop/qt_dialogs.h"

#include "desktop/dialogs/fft_lpc_dialog.h"
#include "desktop/dialogs/label_dialog.h"
#include "desktop/dialogs/label_import_dialog.h"
#include "desktop/dialogs/pitch_dialog.h"
#include "desktop/dialogs/small_dialogs.h"
#include "desktop/dialogs/spectrogram_dialog.h"
#include "desktop/dialogs/tiers_dialog.h"
#include "desktop/qt_prompts.h"
#include "mainview/dialog_answers.h"

namespace cantorix {
namespace {

template <typename Dialog>
auto Ask(Dialog&& dialog) -> std::optional<decltype(dialog.Entered())> {
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Entered();
}

}  // namespace

std::optional<LabelAnswer> QtDialogs::AskLabel(const Label& preset, bool exists) {
  LabelDialog dialog(prompts_, preset, exists, prompts_.Parent());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return LabelAnswer{dialog.Entered(), dialog.removed()};
}

std::optional<TierSetups> QtDialogs::AskTiers(const TierSetups& preset) {
  return Ask(TiersDialog(prompts_, preset, prompts_.Parent()));
}

std::optional<LabelImportAnswer> QtDialogs::AskLabelImport(
    const std::vector<std::string>& tierNames, const LabelImportOptions& preset) {
  return Ask(LabelImportDialog(prompts_, tierNames, preset, prompts_.Parent()));
}

std::optional<GainSettings> QtDialogs::AskGain(const GainSettings& preset) {
  return Ask(GainDialog(prompts_, preset, prompts_.Parent()));
}

std::optional<std::int32_t> QtDialogs::AskZoomRange(std::int32_t presetMs) {
  return Ask(ZoomDialog(prompts_, presetMs, prompts_.Parent()));
}

std::optional<FftLpcSettings> QtDialogs::AskFftLpc(const FftLpcSettings& preset, double rateHz) {
  return Ask(FftLpcDialog(prompts_, preset, rateHz, prompts_.Parent()));
}

std::optional<SpectrogramSettings> QtDialogs::AskSpectrogram(const SpectrogramSettings& preset,
                                                             double rateHz) {
  return Ask(SpectrogramDialog(prompts_, preset, rateHz, prompts_.Parent()));
}

std::optional<PitchSettings> QtDialogs::AskPitch(const PitchSettings& preset) {
  return Ask(PitchDialog(prompts_, preset, prompts_.Parent()));
}

std::optional<IntensitySettings> QtDialogs::AskIntensity(const IntensitySettings& preset) {
  return Ask(IntensityDialog(prompts_, preset, prompts_.Parent()));
}

std::optional<std::int32_t> QtDialogs::AskLogStep(std::int32_t presetHz) {
  return Ask(LogDialog(prompts_, presetHz, prompts_.Parent()));
}

}  // namespace cantorix
