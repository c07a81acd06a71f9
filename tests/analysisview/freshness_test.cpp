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
      EXPECT_FALSE(row.group == WindowGroup::kLog && RunWindowCommand(*window, row.id)) << row.text;
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

  spectrum.Show({0.0, SampleRange{1000.0, 5000.0}});
  spectrogram.Show({0.0, 5000.0});
  CutTo(3000);
  spectrum.Update();
  EXPECT_EQ(spectrum.place().selection->start, 1000.0);
  EXPECT_EQ(spectrum.place().selection->end, 3000.0);
  spectrogram.Update();
  EXPECT_EQ(spectrogram.spectrogram().range.end, 3000.0) << "the whole recording stays whole";
}

TEST_F(Windows, SettingsOfTheAnalysisAloneCallForANewOne) {
  struct Row {
    bool spectrumDue, spectrogramDue, pitchDue;
    std::vector<std::function<void(DocumentSettings&)>> changes;
  };
  // clang-format off
  const Row rows[] = {
      {true, false, false,
       {[](auto& s) { s.fftLpc.points = 512; }, [](auto& s) { s.fftLpc.windowMs = 5; },
        [](auto& s) { s.fftLpc.stepMs = 5; }, [](auto& s) { s.fftLpc.rangeHz = 4000; },
        [](auto& s) { s.fftLpc.lpcOrder = 9; }}},
      {true, true, false, {[](auto& s) { s.spectrogram.preEmphasis = 0.5; }}},
      {false, true, false,
       {[](auto& s) { s.spectrogram.points = 256; }, [](auto& s) { s.spectrogram.rangeHz = 4000; },
        [](auto& s) { s.spectrogram.dynamicRangeDb = 50; },
        [](auto& s) { s.spectrogram.trackFormants = 0; },
        [](auto& s) { s.spectrogram.lpcOrder = 9; }}},
      {false, false, true,
       {[](auto& s) { s.pitch.method = kCepstral; }, [](auto& s) { s.pitch.windowMs = 5; },
        [](auto& s) { s.pitch.stepMs = 5; }, [](auto& s) { s.pitch.lowHz = 66; },
        [](auto& s) { s.pitch.highHz = 444; }, [](auto& s) { s.pitch.thresholdPercent = 9; },
        [](auto& s) { s.pitch.deviationHz = 9; }, [](auto& s) { s.pitch.voicingLevel = 9; },
        [](auto& s) { s.pitch.tolerancePercent = 9; }}},
      {false, false, false,
       {[](auto& s) { s.fftLpc.powerGridDb = s.spectrogram.frequencyGridHz = 3; },
        [](auto& s) { s.fftLpc.relative = s.spectrogram.drawAudio = 0; },
        [](auto& s) { s.pitch.displayHighHz = s.pitch.frequencyGridHz = 800; }}},
  };
  // clang-format on
  const DocumentSettings settings = inMemory.settings;
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.changes.size(); ++i) {
      row.changes[i](inMemory.settings);
      inMemory.Notify(DocumentChange::kSettings);
      EXPECT_EQ(spectrum.UpdateDue(), row.spectrumDue) << i;
      EXPECT_EQ(spectrogram.UpdateDue(), row.spectrogramDue) << i;
      EXPECT_EQ(pitch.UpdateDue(), row.pitchDue) << i;
      for (AnalysisWindow* window : All()) window->Update();
      for (AnalysisWindow* window : All()) EXPECT_FALSE(window->UpdateDue()) << i;
      inMemory.settings = settings;
      inMemory.Notify(DocumentChange::kSettings);
      AnalysePitch(view, Stretch::kAll);
      EXPECT_FALSE(pitch.UpdateDue()) << "a new track of the main view will do";
      for (AnalysisWindow* window : All()) window->Update();
    }
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
      if (row.group == WindowGroup::kLog && Offers(window.kind(), row) &&
          IsEnabled(row, ConditionsOf(window))) {
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

TEST_F(Windows, RowsGoToTheLogUntilItHasEnoughOrTheUserCancels) {
  for (const int step : {1, 50}) pitch.StepCursor(step, 0);
  spectrum.StepCursor(1, 0);
  spectrogram.StepCursor(1, 1);
  inMemory.settings.display.timeBase = 1;
  inMemory.settings.logStepHz = 100;
  struct Row {
    AnalysisWindow* window;
    WindowCommand command;
    std::size_t rows;
    std::string heading;  // its beginning
  };
  const Row rows[] = {
      {&pitch, WindowCommand::kEnterMarker, 1, "Pitch Marker Entry: time, pitch, intensity"},
      {&spectrum, WindowCommand::kEnterMarker, 1, "FFT/LPC Marker"},
      {&spectrum, WindowCommand::kEnterFormants, 1, "FFT/LPC Formants"},
      {&spectrum, WindowCommand::kEnterEntireFrame, 50, "FFT/LPC Entire Frame"},
      {&spectrogram, WindowCommand::kEnterMarker, 1, "Spec. Marker"},
      {&spectrogram, WindowCommand::kEnterFormants, 1, "Spec. Formants Entry"},
      {&spectrogram, WindowCommand::kEnterFormantsAll, 100, "Spec. Formants All"},
      {&spectrogram, WindowCommand::kEnterEntireFrame, 50, "Spec. Entire Frame"},
  };
  for (const Row& row : rows) {
    log.entries.clear();
    world.progress = CancellingProgress();
    ASSERT_TRUE(RunWindowCommand(*row.window, row.command)) << row.heading;
    ASSERT_EQ(log.entries.size(), row.rows) << row.heading;
    EXPECT_EQ(log.entries[0].source, "talk.wav");
    EXPECT_EQ(log.entries[0].heading.substr(0, row.heading.size()), row.heading);
    EXPECT_EQ(world.progress.texts.back(), "Entering into the log...(Press mouse to cancel)");
    EXPECT_EQ(world.progress.done.back(), world.progress.totals.back());
  }
  EXPECT_EQ(log.entries[0].columns[0], "0.0");
  ASSERT_TRUE(RunWindowCommand(pitch, WindowCommand::kEnterMarker));
  const auto readouts = pitch.Readouts();
  EXPECT_THAT(log.entries.back().columns, ElementsAre("0.5", readouts[1].value, readouts[2].value));
  EXPECT_EQ(readouts[0].label + readouts[0].value, "Time(sec)=0.5");

  for (const bool full : {true, false}) {
    log.entries.clear();
    log.capacity = full ? 3 : 1000;
    world.progress = CancellingProgress(full ? 1000 : 7);
    ASSERT_TRUE(RunWindowCommand(spectrogram, WindowCommand::kEnterFormantsAll));
    EXPECT_EQ(log.entries.size(), full ? 3U : 7U);
  }
}

TEST_F(Windows, OnlyANewPictureIsARevision) {
  struct Row {
    DocumentChange change;
    bool picture;
  };
  for (const Row& row : {Row{DocumentChange::kCursor, false}, Row{DocumentChange::kTitle, false},
                         Row{DocumentChange::kSettings, true}, Row{DocumentChange::kTracks, true},
                         Row{DocumentChange::kSamples, true}}) {
    for (AnalysisWindow* window : All()) {
      const std::int64_t before = window->revision();
      changes = 0;
      inMemory.Notify(row.change);
      EXPECT_EQ(window->revision() > before, row.picture);
      EXPECT_GE(changes, 3) << "every window is told";
    }
  }
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
      {&pitch, WindowCommand::kDrawAudio, &s.pitch.addAudio},
      {&pitch, WindowCommand::kDrawIntensity, &s.pitch.addIntensity},
      {&pitch, WindowCommand::kDrawLabels, &s.pitch.addLabels},
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
