// option_commands.cpp - one dialog, one group of settings, one patch of the file for each entry.
#include "mainview/option_commands.h"

#include "settings/config_file.h"
#include "settings/local_settings.h"
#include "settings/settings.h"
#include "settings/suggested_settings.h"

namespace cantorix {

void SetFftLpcOptions(CSonadexView& view) {
  FftLpcSettings& settings = view.document().settings.fftLpc;
  const auto entered = view.services().dialogs.AskFftLpc(settings, view.channel().sampleRateHz);
  if (!entered) return;
  view.document().localSettings.Confirm(settings, *entered);
  settings = *entered;
  KeepOptions(view, SettingsDialog::kFftLpc);
}

void SetSpectrogramOptions(CSonadexView& view) {
  DocumentSettings& document = view.document().settings;
  SpectrogramSettings& settings = document.spectrogram;
  const auto entered = view.services().dialogs.AskSpectrogram(
      settings, DefaultDocumentSettings(document.referenceRateHz).spectrogram,
      view.channel().sampleRateHz);
  if (!entered) return;
  view.document().localSettings.Confirm(settings, *entered);
  settings = *entered;
  KeepOptions(view, SettingsDialog::kSpectrogram);
}

void SetPitchOptions(CSonadexView& view) {
  PitchSettings& settings = view.document().settings.pitch;
  const auto entered = view.services().dialogs.AskPitch(settings, view.channel().sampleRateHz);
  if (!entered) return;
  settings = *entered;
  KeepOptions(view, SettingsDialog::kPitch);
}

void SetIntensityOptions(CSonadexView& view) {
  IntensitySettings& settings = view.document().settings.intensity;
  const auto entered = view.services().dialogs.AskIntensity(settings);
  if (!entered) return;
  settings = *entered;
  KeepOptions(view, SettingsDialog::kIntensity);
}

void SetLogOptions(CSonadexView& view) {
  std::int32_t& stepHz = view.document().settings.logStepHz;
  const auto entered = view.services().dialogs.AskLogStep(stepHz);
  if (!entered) return;
  stepHz = *entered;
  KeepOptions(view, SettingsDialog::kLog);
}

void KeepOptions(CSonadexView& view, SettingsDialog dialog) {
  CSonadexDoc& document = view.document();
  const DocumentHost& host = document.host();
  // Kept: without a valid configuration file nothing is written; the document has the values.
  PatchConfiguration(ConfigPath(host.programDirectory), dialog,
                     {host.application, document.localSettings.ForFile(document.settings)});
  view.Changed(DocumentChange::kSettings);
}

void UseInDocument(CSonadexView& view, const SpectrogramSettings& used) {
  SpectrogramSettings& settings = view.document().settings.spectrogram;
  view.document().localSettings.Begin(settings);
  settings = used;
  view.Changed(DocumentChange::kSettings);
}

void UseInDocument(CSonadexView& view, const FftLpcSettings& used) {
  FftLpcSettings& settings = view.document().settings.fftLpc;
  view.document().localSettings.Begin(settings);
  settings = used;
  view.Changed(DocumentChange::kSettings);
}

void UseHints(CSonadexView& view) {
  const double rateHz = view.channel().sampleRateHz;
  const auto use = [&](auto settings) {
    const RateHint hint = HintFor(settings, rateHz);
    if (hint.text.empty()) return;
    Use(hint, settings);
    UseInDocument(view, settings);
  };
  use(view.document().settings.spectrogram);
  use(view.document().settings.fftLpc);
}

}  // namespace cantorix
