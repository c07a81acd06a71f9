// freshness_test.cpp - how the analysis windows keep up with edits, settings and sizes, and what
// their commands do meanwhile.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/main_view_fixture.h"
#include "analysisview/pitch_view.h"
#include "analysisview/spectrogram_view.h"
#include "analysisview/window_commands.h"
#include "mainview/analysis_commands.h"
#include "platform/abandon.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A spectrum at 900 ms, a spectrogram of 600 to 1000 ms and a pitch track of everything.
class Windows : public MainViewFixture, public ::testing::Test {
 protected:
  Windows() {
    for (AnalysisWindow* window : All()) window->plot = {0, 0, 100, 50};
    spectrum.WantSize({100, 0});
    spectrogram.WantSize({100, 50});
    EXPECT_TRUE(spectrum.Show({9000.0, {}}));
    EXPECT_TRUE(spectrogram.Show({6000.0, 10000.0}));
    AnalysePitch(view, Stretch::kAll);
  }
  std::vector<AnalysisWindow*> All() { return {&spectrum, &spectrogram, &pitch}; }

  CFFTLPCView spectrum{inMemory, Services()};
  CSpectrogramView spectrogram{inMemory, Services()};
  CPitchView pitch{view, Services()};
};

TEST_F(Windows, AnEditLeavesAnOldPictureThatNoLogTakes) {
  spectrum.StepCursor(1, 0);
  spectrogram.StepCursor(1, 1);
  pitch.StepCursor(1, 0);
  const auto before = spectrum.spectrum().fftDb;
  CutTo(5000);
  for (AnalysisWindow* window : All()) {
    EXPECT_FALSE(window->UpdateDue());
    for (const auto& row : WindowCommands()) {
      EXPECT_FALSE(row.log && RunWindowCommand(*window, row.id)) << row.text;
    }
  }
  EXPECT_TRUE(spectrum.samplesChanged() && spectrogram.samplesChanged());
  EXPECT_EQ(spectrum.spectrum().fftDb, before);
  EXPECT_FALSE(pitch.computed()) << "the track went with the samples";
  EXPECT_THAT(log.entries, IsEmpty());
}

TEST_F(Windows, UpdateStaysInsideTheShorterRecording) {
  CutTo(8000);
  for (AnalysisWindow* window : All())
    EXPECT_TRUE(RunWindowCommand(*window, WindowCommand::kUpdate));
  EXPECT_EQ(spectrum.place().position, 8000.0);
  EXPECT_EQ(spectrogram.spectrogram().range.start, 6000.0);
  EXPECT_EQ(spectrogram.spectrogram().range.end, 8000.0);
  EXPECT_EQ(view.pitch.range.end, 8000.0) << "what was the whole recording is so again";
  for (AnalysisWindow* window : All()) EXPECT_EQ(window->freshness(), Freshness::kCurrent);

  CutTo(5000);
  spectrogram.Update();
  EXPECT_FALSE(spectrogram.computed()) << "nothing of its stretch is left";
}

TEST_F(Windows, SettingsOfTheAnalysisAloneCallForANewOne) {
  struct Row {
    const char* what;
    std::function<void(DocumentSettings&)> change;
    bool spectrumDue, spectrogramDue, pitchDue;
  };
  const Row rows[] = {
      {"points", [](auto& s) { s.fftLpc.points = 512; }, true, false, false},
      {"bandwidth", [](auto& s) { s.spectrogram.points = 256; }, false, true, false},
      {"dynamics", [](auto& s) { s.spectrogram.dynamicRangeDb = 50; }, false, true, false},
      {"pre-emphasis", [](auto& s) { s.spectrogram.preEmphasis = 0.5; }, true, true, false},
      {"method", [](auto& s) { s.pitch.method = kCepstral; }, false, false, true},
      {"grids",
       [](auto& s) {
         s.fftLpc.powerGridDb = s.spectrogram.frequencyGridHz = s.pitch.frequencyGridHz = 3;
         s.fftLpc.relative = s.spectrogram.drawAudio = 0;
         s.pitch.displayHighHz = 800;
       },
       false, false, false},
  };
  const DocumentSettings settings = inMemory.settings;
  for (const Row& row : rows) {
    row.change(inMemory.settings);
    inMemory.Notify(DocumentChange::kSettings);
    EXPECT_EQ(spectrum.UpdateDue(), row.spectrumDue) << row.what;
    EXPECT_EQ(spectrogram.UpdateDue(), row.spectrogramDue) << row.what;
    EXPECT_EQ(pitch.UpdateDue(), row.pitchDue) << row.what;
    for (AnalysisWindow* window : All()) window->Update();
    for (AnalysisWindow* window : All()) EXPECT_FALSE(window->UpdateDue()) << row.what;
    inMemory.settings = settings;
    inMemory.Notify(DocumentChange::kSettings);
    for (AnalysisWindow* window : All()) window->Update();
  }
}

TEST_F(Windows, ANewSizeIsComputedAtTheNextRestAndOnlyOnce) {
  spectrogram.WantSize({120, 60});
  EXPECT_TRUE(spectrogram.UpdateDue());
  EXPECT_EQ(spectrogram.spectrogram().columns, 100) << "scaled until then";
  spectrogram.WantSize({100, 50});
  EXPECT_FALSE(spectrogram.UpdateDue()) << "back at the computed size";
  spectrogram.WantSize({120, 60});
  spectrogram.Update();
  EXPECT_EQ(spectrogram.spectrogram().columns, 120);
  EXPECT_EQ(spectrogram.spectrogram().range.start, 6000.0);
  EXPECT_FALSE(spectrogram.UpdateDue());
}

TEST_F(Windows, WhatFailsIsNotTriedAgainByItself) {
  inMemory.settings.fftLpc.rangeHz = 9000;
  inMemory.Notify(DocumentChange::kSettings);
  ASSERT_TRUE(spectrum.UpdateDue());
  spectrum.Update();
  EXPECT_EQ(world.prompts.TakeTranscript().size(), 1U);
  EXPECT_FALSE(spectrum.UpdateDue());
  EXPECT_TRUE(spectrum.computed());

  CutTo(8000);
  spectrum.Update();
  EXPECT_EQ(world.prompts.TakeTranscript().size(), 1U);
  EXPECT_TRUE(spectrum.samplesChanged()) << "the results that were kept are still the old ones";

  spectrogram.Update();
  spectrogram.WantSize({77, 50});
  world.progress = CancellingProgress(1);
  EXPECT_THROW(spectrogram.Update(), Abandoned);
  EXPECT_FALSE(spectrogram.computed() || spectrogram.UpdateDue());
  world.progress = CancellingProgress();
  EXPECT_TRUE(RunWindowCommand(spectrogram, WindowCommand::kUpdate)) << "on demand it is";
  EXPECT_EQ(spectrogram.spectrogram().columns, 77);
}

TEST_F(Windows, LogCommandsNeedALogAMarkerAndFormants) {
  const auto enabled = [](const AnalysisWindow& window) {
    std::string texts;
    for (const auto& row : WindowCommands()) {
      if (row.log && Offers(window.kind(), row) && IsEnabled(row, ConditionsOf(window))) {
        texts += std::string(row.text) + ";";
      }
    }
    return texts;
  };
  EXPECT_EQ(enabled(spectrum), "Enter &Formants;Enter &Entire Frame;");
  EXPECT_EQ(enabled(spectrogram), "Enter Formants &All;");
  EXPECT_EQ(enabled(pitch), "");
  spectrum.StepCursor(1, 0);
  spectrogram.StepCursor(1, 1);
  pitch.StepCursor(1, 0);
  EXPECT_EQ(enabled(spectrum), "Enter &Marker;Enter &Formants;Enter &Entire Frame;");
  EXPECT_EQ(enabled(spectrogram),
            "Enter &Marker;Enter &Formants;Enter Formants &All;Enter &Entire Frame;");
  EXPECT_EQ(enabled(pitch), "Enter &Marker;");
  inMemory.settings.spectrogram.trackFormants = 0;
  spectrogram.Update();
  EXPECT_EQ(enabled(spectrogram), "Enter &Marker;Enter &Entire Frame;");
  logOpen = false;
  for (AnalysisWindow* window : All()) EXPECT_EQ(enabled(*window), "");
}

TEST_F(Windows, RowsGoToTheLogUntilItHasEnough) {
  pitch.StepCursor(1, 0);
  pitch.StepCursor(50, 0);
  inMemory.settings.display.timeBase = 1;
  ASSERT_TRUE(RunWindowCommand(pitch, WindowCommand::kEnterMarker));
  ASSERT_EQ(log.entries.size(), 1U);
  EXPECT_EQ(log.entries[0].source, "talk.wav");
  EXPECT_EQ(log.entries[0].heading, "Pitch Marker Entry: time, pitch, intensity");
  const auto readouts = pitch.Readouts();
  EXPECT_THAT(log.entries[0].columns, ElementsAre("0.5", readouts[1].value, readouts[2].value));
  EXPECT_EQ(readouts[0].label + readouts[0].value, "Time(sec)=0.5");

  log.capacity = 3;
  ASSERT_TRUE(RunWindowCommand(spectrogram, WindowCommand::kEnterFormantsAll));
  EXPECT_EQ(log.entries.size(), 3U);
}

TEST_F(Windows, SwitchesTurnTheSettingsOfTheirWindow) {
  struct Row {
    AnalysisWindow* window;
    WindowCommand command;
    const std::int32_t* setting;
  };
  auto& s = inMemory.settings;
  const Row rows[] = {
      {&spectrum, WindowCommand::kDrawLpc, &s.fftLpc.drawLpc},
      {&spectrum, WindowCommand::kRelativeLevel, &s.fftLpc.relative},
      {&spectrogram, WindowCommand::kDrawFormants, &s.spectrogram.displayFormants},
      {&spectrogram, WindowCommand::kDrawAudio, &s.spectrogram.drawAudio},
      {&spectrogram, WindowCommand::kDrawIntensity, &s.spectrogram.drawIntensity},
      {&spectrogram, WindowCommand::kDrawLabels, &s.spectrogram.drawLabels},
      {&pitch, WindowCommand::kDrawAudio, &pitch.strips.audio},
      {&pitch, WindowCommand::kDrawIntensity, &pitch.strips.intensity},
      {&pitch, WindowCommand::kDrawLabels, &pitch.strips.labels},
  };
  for (const Row& row : rows) {
    const std::int32_t was = *row.setting;
    changes = 0;
    EXPECT_TRUE(RunWindowCommand(*row.window, row.command));
    EXPECT_EQ(*row.setting, 1 - was);
    EXPECT_GE(changes, 1);
    EXPECT_FALSE(row.window->UpdateDue());
  }
  EXPECT_FALSE(RunWindowCommand(spectrum, WindowCommand::kDrawAudio)) << "none of its own";
}

}  // namespace
}  // namespace cantorix
