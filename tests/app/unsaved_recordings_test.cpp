// unsaved_recordings_test.cpp - what becomes of recordings that a killed program left behind.
#include "app/unsaved_recordings.h"

#include "app_fixture.h"
#include "support/sound_samples.h"

namespace cantorix {
namespace {

using UnsavedRecordings = AppTest;

TEST_F(UnsavedRecordings, AreOfferedByLengthAndDateAndKeptDeletedOrOpened) {
  app.temporaryDirectory = folder.path() + "/";
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
  for (const Answer answer : {Answer::kYes, Answer::kNo, Answer::kCancel}) {
    prompts.WillAnswer(answer);
  }
  const auto wanted = OfferUnsavedRecordings(app);
  const auto question = [](const std::string& lengthAndDate) {
    return "ask yes/no/cancel: A recording of " + lengthAndDate +
           " was not saved.\nWould you like to open it ?";
  };
  EXPECT_THAT(prompts.TakeTranscript(),
              testing::ElementsAre(question("0.4 s from 2026-11-20 14:30:05"),
                                   question("10.0 s from 2026-11-21 09:00:00"),
                                   question("0.2 s from 2026-11-21 23:59:59")));
  ASSERT_EQ(wanted.size(), 1U);
  EXPECT_EQ(wanted.front()->lengthSamples(), 4096);
  EXPECT_THAT(folder.Names(),
              testing::UnorderedElementsAre("Recording-20261118-000000-11025Hz-1.raw",
                                            "Recording-20261120-143005-11025Hz-1.raw",
                                            "Recording-20261121-235959-16000Hz-1.raw"));
}

}  // namespace
}  // namespace cantorix
