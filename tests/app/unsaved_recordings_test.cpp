// unsaved_recordings_test.cpp - what becomes of recordings that a killed program left behind.
#include "app/unsaved_recordings.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "support/cancelling_progress.h"
#include "support/fake_services.h"
#include "support/scripted_prompts.h"
#include "support/sound_samples.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

TEST(UnsavedRecordings, AreOfferedByLengthAndDateAndKeptDeletedOrOpened) {
  TemporaryFolder folder;
  FakeProfileStore profile;
  ScriptedPrompts prompts;
  CancellingProgress progress;
  FakeMemoryProbe memory;
  Application application({profile, prompts, progress, memory});
  application.temporaryDirectory = folder.path() + "/";
  const auto record = [&](const std::string& stamp, std::uint32_t rateHz, std::size_t count) {
    auto file = RecordingFile::Create(folder.path(), stamp, rateHz);
    file->Append(SamplesFrom(0, count));
    return file;
  };
  record("20261121-235959", 16000, 4000);
  record("20261120-143005", 11025, 4096);
  record("20261121-090000", 44100, 441000);
  record("20261119-000000", 11025, 0);
  const auto running = record("20261118-000000", 11025, 100);
  prompts.WillAnswer(Answer::kYes);
  prompts.WillAnswer(Answer::kNo);
  prompts.WillAnswer(Answer::kCancel);
  const auto wanted = OfferUnsavedRecordings(application);
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("ask yes/no/cancel: A recording of 0.4 s from 2026-11-20 14:30:05 was "
                          "not saved.\nWould you like to open it ?",
                          "ask yes/no/cancel: A recording of 10.0 s from 2026-11-21 09:00:00 was "
                          "not saved.\nWould you like to open it ?",
                          "ask yes/no/cancel: A recording of 0.2 s from 2026-11-21 23:59:59 was "
                          "not saved.\nWould you like to open it ?"));
  ASSERT_EQ(wanted.size(), 1U);
  EXPECT_EQ(wanted.front()->lengthSamples(), 4096);
  std::vector<std::string> left;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    left.push_back(entry.path().filename().string());
  }
  EXPECT_THAT(left, ::testing::UnorderedElementsAre("Recording-20261118-000000-11025Hz-1.raw",
                                                    "Recording-20261120-143005-11025Hz-1.raw",
                                                    "Recording-20261121-235959-16000Hz-1.raw"));
}

}  // namespace
}  // namespace cantorix
