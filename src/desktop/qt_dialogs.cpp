// qt_dialogs.cpp - each dialog is shown, and its values are given back when OK took them.
#include "desktop/qt_dialogs.h"

#include "desktop/dialogs/label_dialog.h"
#include "desktop/dialogs/label_file_dialogs.h"
#include "desktop/dialogs/label_import_dialog.h"
#include "desktop/dialogs/option_dialog.h"
#include "desktop/dialogs/texts_dialog.h"
#include "desktop/dialogs/tiers_dialog.h"
#include "desktop/qt_prompts.h"
#include "mainview/dialog_answers.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

template <typename Dialog>
auto Ask(Dialog&& dialog) -> std::optional<decltype(dialog.Entered())> {
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Entered();
}

template <typename S>
std::optional<S> AskOptions(const OptionForm<S>& form, OptionValues<S> values, QtPrompts& prompts) {
  return Ask(OptionDialog<S>(prompts, form, std::move(values), prompts.Parent()));
}

}  // namespace

std::optional<LabelAnswer> QtDialogs::AskLabel(const Label& preset, bool exists) {
  LabelDialog dialog(prompts_, preset, exists, prompts_.Parent());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return LabelAnswer{dialog.Entered(), dialog.removed()};
}

std::optional<std::vector<std::string>> QtDialogs::AskTexts(const TextsQuestion& question) {
  return Ask(TextsDialog(prompts_, question, prompts_.Parent()));
}

std::optional<TierSetups> QtDialogs::AskTiers(const TierSetups& preset) {
  return Ask(TiersDialog(prompts_, preset, prompts_.Parent()));
}

std::optional<LabelImportAnswer> QtDialogs::AskLabelImport(
    const std::vector<std::string>& tierNames, const LabelImportOptions& preset) {
  return Ask(LabelImportDialog(prompts_, tierNames, preset, prompts_.Parent()));
}

std::optional<LabelFileOptions> QtDialogs::AskLabelFile(const LabelFileOptions& preset) {
  return Ask(LabelFileDialog(prompts_, preset, prompts_.Parent()));
}

std::optional<LabelExportAnswer> QtDialogs::AskLabelExport(
    const std::vector<std::string>& tierNames, const LabelFileOptions& preset) {
  return Ask(LabelExportDialog(prompts_, tierNames, preset, prompts_.Parent()));
}

std::optional<GainSettings> QtDialogs::AskGain(const GainSettings& preset) {
  return AskOptions(GainForm(), {preset}, prompts_);
}

std::optional<std::int32_t> QtDialogs::AskZoomRange(std::int32_t presetMs) {
  DocumentSettings preset;
  preset.zoomRangeMs = presetMs;
  const auto entered = AskOptions(ZoomForm(), {preset}, prompts_);
  return entered ? std::optional(TruncateToInt32(entered->zoomRangeMs)) : std::nullopt;
}

std::optional<FftLpcSettings> QtDialogs::AskFftLpc(const FftLpcSettings& preset, double rateHz) {
  return AskOptions(FftLpcForm(), {preset, {}, rateHz}, prompts_);
}

std::optional<SpectrogramSettings> QtDialogs::AskSpectrogram(const SpectrogramSettings& preset,
                                                             const SpectrogramSettings& defaults,
                                                             double rateHz) {
  return AskOptions(SpectrogramForm(), {preset, defaults, rateHz}, prompts_);
}

std::optional<PitchSettings> QtDialogs::AskPitch(const PitchSettings& preset, double rateHz) {
  return AskOptions(PitchForm(), {preset, {}, rateHz}, prompts_);
}

std::optional<IntensitySettings> QtDialogs::AskIntensity(const IntensitySettings& preset) {
  return AskOptions(IntensityForm(), {preset}, prompts_);
}

std::optional<std::int32_t> QtDialogs::AskLogStep(std::int32_t presetHz) {
  DocumentSettings preset;
  preset.logStepHz = presetHz;
  const auto entered = AskOptions(LogForm(), {preset}, prompts_);
  return entered ? std::optional(entered->logStepHz) : std::nullopt;
}

}  // namespace cantorix
