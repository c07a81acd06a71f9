// sound_playing_test.cpp - playing from documents and watching the input, on scripted devices.
#include <gmock/gmock.h>

#include "mainview/sound_desk.h"
#include "sound_desk_fixture.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct Ear : SoundWatcher {
  void Heard(std::span<const std::int16_t> piece) override {
    samples.insert(samples.end(), piece.begin(), piece.end());
  }
  Samples samples;
};

TEST_F(SoundDeskTest, PlaysAStretchToItsLastSample) {
  for (const Place place : {Place::kMemory, Place::kDisk}) {
    ViewedRecording talk(world, SamplesFrom(0, 50000), 22050.5, place);
    desk.Play(talk.view, {100.9, 20100.2});
    ASSERT_TRUE(desk.isPlaying());
    EXPECT_EQ(sound.out->format.rateHz, 22050U);
    EXPECT_EQ(*desk.PlayedMs(talk.document), 100.0 * talk.channel().msPerSample());
    Samples heard;
    while (desk.isPlaying() && heard.size() < 30000) {
      for (const std::int16_t sample : sound.out->Take(4096)) heard.push_back(sample);
      desk.Tick();
    }
    heard.resize(20000);
    EXPECT_EQ(heard, SamplesFrom(100, 20000));
    EXPECT_EQ(sound.out->script.calls().back(), "Close");
    EXPECT_FALSE(desk.PlayedMs(talk.document).has_value());
  }
}

TEST_F(SoundDeskTest, OnePlaybackAtATimeAndOnlyOfWhatIsThere) {
  ViewedRecording talk(world, Ramp(500), 11025.0);
  ViewedRecording other(world, Ramp(300), 11025.0);
  desk.Play(talk.view, {-5.0, 700.0});
  EXPECT_EQ(sound.out->Take(600)[499], 499);
  desk.StopPlaying(other.document);
  EXPECT_TRUE(desk.isPlaying());
  EXPECT_FALSE(desk.PlayedMs(other.document).has_value());
  desk.Play(talk.view, {0.0, 500.0});
  EXPECT_FALSE(desk.isPlaying()) << "the same stretch again";
  desk.Play(talk.view, {0.0, 400.0});
  desk.Play(talk.view, {0.0, 300.0});
  EXPECT_TRUE(desk.isPlaying());
  desk.Play(other.view, {0.0, 300.0});
  EXPECT_TRUE(desk.PlayedMs(other.document).has_value());
  desk.Leave(talk.view);
  EXPECT_TRUE(desk.isPlaying());
  desk.Leave(other.view);
  EXPECT_FALSE(desk.isPlaying());
  desk.Play(other.view, {7.2, 7.9});
  EXPECT_FALSE(desk.isPlaying()) << "no sample";
  // A recording ends what plays.
  desk.Play(other.view, {0.0, 300.0});
  desk.Record(talk.view);
  EXPECT_FALSE(desk.isPlaying());
  desk.EndRecording(talk.document);
}

TEST_F(SoundDeskTest, WhatEndsAPlaybackByItself) {
  ViewedRecording talk(world, Ramp(500), 11025.0);
  ViewedRecording odd(world, Ramp(500), 200000.0);
  desk.Play(odd.view, {0.0, 500.0});
  EXPECT_THAT(Prompts(), ElementsAre("message: Sound output Cannot Open Device!"));
  sound.onOutput = [](ScriptedOut& out) { out.script.Set(0, Outcome::kFails); };
  desk.Play(talk.view, {0.0, 500.0});
  EXPECT_THAT(Prompts(), ElementsAre("message: No Sound Output Device"));
  EXPECT_FALSE(desk.isActive());
  sound.onOutput = nullptr;
  desk.Play(talk.view, {0.0, 500.0});
  sound.out->health = DeviceHealth::kLost;
  desk.Tick();
  EXPECT_FALSE(desk.isActive());
  desk.Play(talk.view, {0.0, 500.0});
  Tick(kSilentTicks);
  EXPECT_FALSE(desk.isActive());
  EXPECT_THAT(listener.notes,
              ElementsAre("The sound output has gone.", "The sound output does not answer."));
}

TEST_F(SoundDeskTest, WatchesTheInputWhileNothingIsRecorded) {
  ViewedRecording talk(world);
  Ear heard;
  desk.SetWatcher(&heard);
  desk.SetInput("Line");
  EXPECT_THAT(sound.openedInputs, IsEmpty());
  desk.Watch(16000);
  EXPECT_EQ(desk.inputLevel()->rateHz, 16000U);
  sound.in->Deliver(Samples(1000, 16384));
  desk.Tick();
  EXPECT_THAT(heard.samples, SizeIs(1000));
  EXPECT_NEAR(desk.inputLevel()->reading.peakDb, -6.02, 0.01);
  EXPECT_FALSE(desk.recordingProgress().has_value());
  RecordInto(talk.view, kBuffer);
  EXPECT_THAT(Files(), SizeIs(1));
  EXPECT_EQ(desk.inputLevel()->rateHz, 16000U) << "watched again";
  EXPECT_TRUE(desk.Rescan());
  EXPECT_EQ(sound.rescans, 1);
  EXPECT_THAT(sound.openedInputs, ElementsAre("Line", "Line", "Line", "Line"));
  const int before = listener.changes;
  Tick(kSilentTicks);
  EXPECT_EQ(listener.changes, before + 1) << "told once";
  EXPECT_EQ(desk.watchFailure(), "Nothing has come from the sound input for two seconds.");
  EXPECT_FALSE(desk.inputLevel().has_value());
  sound.in->Deliver(Samples(1000, 16384));
  desk.Tick();
  EXPECT_EQ(desk.watchFailure(), "");
  EXPECT_NEAR(desk.inputLevel()->reading.peakDb, -6.02, 0.01);
  sound.in->health = DeviceHealth::kLost;
  desk.Tick();
  EXPECT_EQ(desk.watchFailure(), "The sound input has gone.");
  desk.Watch(8000);
  EXPECT_EQ(desk.watchFailure(), "Recording needs a rate between 10000 and 169999 Hz.");
  sound.onInput = [](ScriptedIn& in) { in.script.Set(0, Outcome::kFails); };
  desk.Watch(22050);
  EXPECT_EQ(desk.watchFailure(), "No Sound Device");
  EXPECT_FALSE(desk.isActive());
  desk.SetWatcher(nullptr);
}

}  // namespace
}  // namespace cantorix
