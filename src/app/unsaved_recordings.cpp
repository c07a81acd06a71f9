// unsaved_recordings.cpp - the question, and what becomes of each file.
#include "app/unsaved_recordings.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/file_error.h"
#include "platform/numbers.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

std::string QuestionAbout(const UnfinishedRecording& recording) {
  const double seconds = static_cast<double>(recording.lengthSamples) / recording.rateHz;
  return "A recording of " + FormatOneDecimal(seconds) + " s from " + DateOf(recording.stamp) +
         " was not saved.\nWould you like to open it ?";
}

}  // namespace

std::string DateOf(const std::string& stamp) {
  if (stamp.size() != 15) return stamp;
  return stamp.substr(0, 4) + "-" + stamp.substr(4, 2) + "-" + stamp.substr(6, 2) + " " +
         stamp.substr(9, 2) + ":" + stamp.substr(11, 2) + ":" + stamp.substr(13, 2);
}

std::vector<std::unique_ptr<RecordingFile>> OfferUnsavedRecordings(
    Application& application, const std::vector<std::string>& passedOver) {
  std::vector<std::unique_ptr<RecordingFile>> wanted;
  for (const auto& recording : FindUnfinishedRecordings(application.temporaryDirectory)) {
    if (std::find(passedOver.begin(), passedOver.end(), recording.path) != passedOver.end()) {
      continue;
    }
    const Answer answer =
        application.prompts().Ask(QuestionAbout(recording), Buttons::kYesNoCancel);
    if (answer != Answer::kYes && answer != Answer::kNo) continue;
    try {
      auto file = RecordingFile::Reopen(recording.path);
      if (answer == Answer::kYes) {
        wanted.push_back(std::move(file));
      } else {
        file->Remove();
      }
    } catch (const FileError& error) {
      application.prompts().Message(CouldNotBeOpened(recording.path, error.what()));
    }
  }
  return wanted;
}

}  // namespace cantorix
