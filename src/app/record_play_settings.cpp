// record_play_settings.cpp - four fields, their places in memory and in the file.
#include "app/record_play_settings.h"

#include "settings/config_file.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

// Of the next document.
DocumentSettings StoredSettings(const DocumentHost& host) {
  Settings stored{{}, DefaultDocumentSettings()};
  DecodeRecord(ReadConfiguration(ConfigPath(host.programDirectory)), stored);
  return stored.document;
}

}  // namespace

RecordPlaySettings RecordPlaySettingsOf(const DocumentHost& host, const CSonadexDoc* front) {
  const auto with = [&](const DisplaySettings& display) {
    return RecordPlaySettings{host.application.memoryMinutes, host.recordingRateHz,
                              display.automaticAnalysis, display.recordingInput};
  };
  return front != nullptr ? with(front->settings.display) : with(StoredSettings(host).display);
}

void KeepRecordPlaySettings(const RecordPlaySettings& settings, DocumentHost& host,
                            std::span<CSonadexDoc* const> open, CSonadexDoc* front) {
  host.application.memoryMinutes = settings.memoryMinutes;
  host.recordingRateHz = settings.rateHz;
  for (CSonadexDoc* const document : open) {
    document->settings.referenceRateHz = settings.rateHz;
    document->settings.display.recordingInput = settings.input;
  }
  if (front != nullptr) front->settings.display.automaticAnalysis = settings.automaticAnalysis;
  DocumentSettings kept = front != nullptr ? front->settings : StoredSettings(host);
  kept.referenceRateHz = settings.rateHz;
  kept.display.automaticAnalysis = settings.automaticAnalysis;
  kept.display.recordingInput = settings.input;
  // Kept: without a valid configuration file nothing is written; the documents have the values.
  PatchConfiguration(ConfigPath(host.programDirectory), SettingsDialog::kRecordPlay,
                     {host.application, kept});
  if (front != nullptr) front->Notify(DocumentChange::kSettings);
}

}  // namespace cantorix
