// sound_desk_test.cpp - recording into documents, on scripted devices.
#include "mainview/sound_desk.h"

#include <gmock/gmock.h>

#include <cmath>

#include "document/save_commands.h"
#include "mainview/commands.h"
#include "mainview/mouse.h"
#include "settings/settings.h"
#include "sound_desk_fixture.h"
#include "support/file_size_limit.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST_F(SoundDeskTest, ARecordingBecomesTheDocumentWholeBuffersInMemoryOrAsTheStore) {
  for (const bool onDisk : {false, true}) {
    SCOPED_TRACE(onDisk);
    ViewedRecording talk(world);
    const Desk shown(*this, talk.document);
    if (onDisk) talk.document.memoryLimitMinutes = 0;
    RecordInto(talk.view, 2 * kBuffer + 100);
    EXPECT_EQ(talk.document.samplesOnDisk(), onDisk);
    EXPECT_EQ(talk.samples(), SamplesFrom(0, 2 * kBuffer));
    const CChannel& channel = talk.channel();
    const CSonadexDoc& document = talk.document;
    EXPECT_EQ(Joined(channel.sampleRateHz, channel.totalLength, channel.totalDurationMs,
                     channel.visibleEnd.samples, channel.channelComment, channel.displayHigh),
              "11025 8192 743.0385488 8192 bits 5512.5");
    EXPECT_EQ(Joined(document.savedRateHz, document.savedLength, document.savedDurationMs,
                     world.test.host.currentRateHz, document.title()),
              "11025 8192 743.0385488 11025 Untitled");
    EXPECT_TRUE(document.loaded && document.newRecording && document.foreignSource &&
                document.isModified());
    EXPECT_THAT(Files(), ElementsAre("Recording-20261121-143005-11025Hz-1.raw"));
    // Saved, it is no longer needed; the samples are there all the same.
    world.test.prompts.WillChooseFile(recordings / "talk.qrv");
    EXPECT_TRUE(SaveDocument(talk.document));
    EXPECT_THAT(Prompts(), ElementsAre("save: Save file As"));
    EXPECT_THAT(Files(), ElementsAre("talk.qrv"));
    EXPECT_EQ(talk.samples(), SamplesFrom(0, 2 * kBuffer));
    desk.Play(talk.view, {0.0, 100.0});
    EXPECT_EQ(sound.out->Take(100), SamplesFrom(0, 100));
    desk.StopPlaying();
    std::filesystem::remove(recordings / "talk.qrv");
  }
}

TEST_F(SoundDeskTest, TheFileStaysUntilItIsSavedOrGivenUpOrReplaced) {
  {
    ViewedRecording talk(world);
    RecordInto(talk.view, kBuffer);
  }
  EXPECT_THAT(Files(), SizeIs(1)) << "closed by a crash of the program, say";
  {
    ViewedRecording talk(world);
    RecordInto(talk.view, kBuffer);
    world.test.prompts.WillAnswer(Answer::kNo);
    RecordInto(talk.view, kBuffer);
    EXPECT_THAT(Prompts(), ElementsAre("ask yes/no/cancel: Save ' Untitled ' before recording ?"));
    EXPECT_THAT(Files(), SizeIs(2));
    talk.document.SetModified(false);
  }
  EXPECT_THAT(Files(), SizeIs(1));
}

TEST_F(SoundDeskTest, ReplacesWhatBelongedToTheEarlierRecording) {
  ViewedRecording talk(world, Ramp(500), 8000.0);
  const Desk other(*this, talk.document);
  Tier& tier = talk.channel().tiers[2];
  tier = {};
  tier.name = "phones";
  tier.tierWord = 44;
  AddLabel(talk.document, 2, 10.0, "a");
  talk.channel().referenceLevel = 17.0;
  talk.channel().intensity.IntensityValid = talk.view.pitch.PitchValid = true;
  talk.view.undoAvailable = true;
  SelectSamples(talk, 10.0, 20.0);
  RecordInto(talk.view, kBuffer);
  EXPECT_EQ(Joined(tier.name, tier.tierWord, tier.inUse, tier.labels.size(),
                   talk.channel().referenceLevel, talk.channel().cursor.samples),
            "phones 44 1 0 0 0");
  EXPECT_FALSE(talk.channel().intensity.IntensityValid || talk.view.pitch.PitchValid);
  for (const CSonadexView* view : {static_cast<const CSonadexView*>(&talk.view), &other.view}) {
    EXPECT_FALSE(view->undoAvailable || view->selectionShown() || view->markerSet() ||
                 view->zoomed());
    EXPECT_EQ(view->readouts.durationMs, 0.0);
  }
  EXPECT_FALSE(talk.document.hasSelection);
  talk.document.settings.display.automaticAnalysis = 1;
  talk.document.SetModified(false);
  RecordInto(talk.view, 4 * kBuffer);
  EXPECT_TRUE(talk.view.pitch.PitchValid && talk.channel().intensity.IntensityValid);
}

TEST_F(SoundDeskTest, ARecordingWithoutASampleChangesNothing) {
  ViewedRecording talk(world, Ramp(500), 8000.0);
  AddLabel(talk.document, 0, 10.0, "a");
  RecordInto(talk.view, kBuffer - 1);
  EXPECT_EQ(talk.samples(), Ramp(500));
  EXPECT_EQ(LabelsOf(talk.channel(), 0), "a@10");
  EXPECT_FALSE(talk.document.isModified() || talk.document.newRecording);
  EXPECT_THAT(Files(), IsEmpty());
  EXPECT_FALSE(desk.EndRecording(talk.document)) << "none runs any more";
}

TEST_F(SoundDeskTest, AsksWhatBecomesOfUnsavedChanges) {
  const std::string question = "ask yes/no/cancel: Save ' Untitled ' before recording ?";
  const struct {
    Answer answer;
    bool savesAs, records;
  } rows[] = {{Answer::kNo, false, true},
              {Answer::kCancel, false, false},
              {Answer::kYes, true, true},
              {Answer::kYes, false, false}};
  for (const auto& row : rows) {
    ViewedRecording talk(world, Ramp(500));
    talk.document.SetModified(true);
    world.test.prompts.WillAnswer(row.answer);
    if (row.savesAs) world.test.prompts.WillChooseFile(recordings / "saved.qrv");
    if (row.answer == Answer::kYes && !row.savesAs) world.test.prompts.WillCancel();
    desk.Record(talk.view);
    EXPECT_EQ(Prompts().front(), question);
    EXPECT_EQ(desk.isRecording(), row.records);
    EXPECT_EQ(desk.EndRecording(talk.document), row.records);
    EXPECT_EQ(std::filesystem::remove(recordings / "saved.qrv"), row.savesAs);
  }
}

TEST_F(SoundDeskTest, WhatCannotStartIsToldOnceAndChangesNothing) {
  const Texts open{
      "message: Cannot Open Sound Input Device!\nCannot Prepare Header !\n"
      "Cannot Add Buffer !\nCannot Start Wave In !"};
  const struct {
    double rateHz;
    int failingCall;  // -1: none
    const char* folder;
    Texts texts;
  } rows[] = {
      {8000.0, -1, "", {"message: Recording needs a rate between 10000 and 169999 Hz."}},
      {170000.0, -1, "", {"message: Recording needs a rate between 10000 and 169999 Hz."}},
      {std::nan(""), -1, "", {"message: Recording needs a rate between 10000 and 169999 Hz."}},
      {16000.5, 0, "", {"message: No Sound Device"}},
      {16000.0, 2, "", open},
      {16000.0, -1, "/absent", {"message: Failure to create a temp file to record."}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.texts.front());
    ViewedRecording talk(world, Ramp(500));
    world.test.host.recordingRateHz = row.rateHz;
    sound.onInput = [&](ScriptedIn& in) {
      if (row.failingCall >= 0) in.script.Set(row.failingCall, Outcome::kFails);
    };
    SoundDesk scarce({{sound, clock, world.test.memory},
                      world.test.prompts,
                      [&] {
                        return RecordingPlace{recordings.path() + row.folder, "20261121-143005"};
                      }},
                     listener);
    scarce.Record(talk.view);
    EXPECT_FALSE(scarce.isActive());
    EXPECT_EQ(Prompts(), row.texts);
    EXPECT_EQ(talk.samples(), Ramp(500));
    EXPECT_THAT(Files(), IsEmpty());
  }
}

TEST_F(SoundDeskTest, WhatEndsARecordingByItselfKeepsWhatThereIs) {
  enum class Cause { kLost, kSilent, kFullDisk };
  const std::pair<Cause, const char*> rows[] = {
      {Cause::kLost, "message: The sound input has gone. What was recorded is kept."},
      {Cause::kSilent,
       "message: Nothing has come from the sound input for two seconds. What was recorded is "
       "kept."},
      {Cause::kFullDisk, "message: "}};
  for (const auto& [cause, text] : rows) {
    SCOPED_TRACE(text);
    ViewedRecording talk(world);
    desk.Record(talk.view);
    Deliver(2 * kBuffer);
    Tick(kSilentTicks / 2);
    sound.in->Deliver(SamplesFrom(0, 1));
    Tick(kSilentTicks / 2);
    EXPECT_TRUE(desk.isRecording());
    {
      const FileSizeLimit limit(cause == Cause::kFullDisk ? 2 * kBuffer * 2 + 100 : 1U << 30U);
      if (cause == Cause::kLost) sound.in->health = DeviceHealth::kLost;
      if (cause == Cause::kFullDisk) {
        sound.in->Deliver(SamplesFrom(0, kBuffer));
        EXPECT_TRUE(Eventually([&] {
          desk.Tick();
          return !desk.isRecording();
        }));
      }
      Tick(cause == Cause::kSilent ? kSilentTicks : 1);
    }
    EXPECT_FALSE(desk.isActive());
    EXPECT_THAT(Prompts(), ElementsAre(::testing::StartsWith(text)));
    EXPECT_EQ(talk.samples(), SamplesFrom(0, 2 * kBuffer));
    talk.document.SetModified(false);
  }
}

TEST_F(SoundDeskTest, ARecordingIsInItsPlaceBeforeTheWatchOpensTheInputAgain) {
  ViewedRecording talk(world);
  Desk shown(*this, talk.document);
  desk.Watch(11025);
  desk.Record(shown.view);
  Deliver(kBuffer);
  double placed = 0.0;
  sound.onInput = [&](ScriptedIn&) { placed = talk.channel().totalLength; };
  EXPECT_TRUE(desk.EndRecording(talk.document));
  EXPECT_EQ(placed, kBuffer);
}

TEST_F(SoundDeskTest, APressEndsTheRecordingAndDoesNothingElse) {
  ViewedRecording talk(world);
  Desk shown(*this, talk.document);
  ViewedRecording other(world, Ramp(500));
  EXPECT_NE(FactsOf(&shown.view) & fact::kRecordAllowed, 0U);
  for (const bool fromOtherWindow : {false, true}) {
    desk.Record(shown.view);
    EXPECT_TRUE(desk.StateOf(talk.document).recordingHere);
    EXPECT_TRUE(desk.StateOf(other.document).recording);
    EXPECT_FALSE(desk.StateOf(other.document).recordingHere);
    EXPECT_EQ(FactsOf(&shown.view) & (fact::kRecordAllowed | fact::kIdle), 0U);
    Deliver(kBuffer);
    if (fromOtherWindow) {
      PressAtTime(shown.view, 10.0);
    } else {
      PressMouse(shown.view, 100, 100);
    }
    EXPECT_FALSE(desk.isRecording());
    EXPECT_EQ(talk.channel().totalLength, double{kBuffer});
    EXPECT_FALSE(shown.view.markerSet() || shown.view.press.held);
    talk.document.SetModified(false);
  }
}

}  // namespace
}  // namespace cantorix
