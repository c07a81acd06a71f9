// freshness_test.cpp - how the analysis windows keep up with edits, settings and sizes, and what
// their commands do meanwhile.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/pitch_view.h"
#include "analysisview/spectrogram_view.h"
#include "analysisview/window_commands.h"
#include "analysisview/window_fixture.h"
#include "mainview/analysis_commands.h"
#include "mainview/view_commands.h"
#include "platform/abandon.h"
#include "settings/field_text.h"
#include "settings/settings.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A spectrum at 900 ms, a spectrogram of 600 to 1000 ms and a pitch track of everything.
class Windows : public MainViewTest {
 protected:
  Windows() {
    for (AnalysisWindow* window : all) window->plot = {0, 0, 100, 50};
    spectrum.WantSize({100, 0});
    spectrogram.WantSize({100, 50});
    EXPECT_TRUE(spectrum.Show({9000.0, {}}));
    EXPECT_TRUE(spectrogram.Show({6000.0, 10000.0}));
    AnalysePitch(view, Stretch::kAll);
  }
  void PlaceMarkers() {
    spectrum.StepCursor(1, 0);
    spectrogram.StepCursor(1, 1);
    pitch.StepCursor(1, 0);
  }
  void UpdateAll() {
    for (AnalysisWindow* window : all) window->Update();
  }
  std::string Due() const {
    return JoinedEach(all, [](const AnalysisWindow* window) { return window->UpdateDue(); });
  }
  std::string Range() const {
    return Joined(spectrogram.spectrogram().range.start, spectrogram.spectrogram().range.end);
  }

  CFFTLPCView spectrum{document, Services()};
  CSpectrogramView spectrogram{document, Services()};
  CPitchView pitch{view, Services()};
  const std::vector<AnalysisWindow*> all{&spectrum, &spectrogram, &pitch};
};

TEST_F(Windows, AnEditLeavesAnOldPictureThatNoLogTakes) {
  PlaceMarkers();
  const auto before = spectrum.spectrum().fftDb;
  CutTo(5000);
  document.Notify(DocumentChange::kSettings);
  EXPECT_EQ(Due(), "0 0 0");
  for (AnalysisWindow* window : all) {
    for (const auto& row : WindowCommands()) {
      EXPECT_FALSE(row.group == WindowGroup::kLog && RunWindowCommand(*window, row.id)) << row.text;
    }
  }
  EXPECT_TRUE(spectrum.samplesChanged() && spectrogram.samplesChanged());
  EXPECT_EQ(spectrum.spectrum().fftDb, before);
  EXPECT_FALSE(pitch.computed()) << "the track went with the samples";
  EXPECT_THAT(log.entries, IsEmpty());
}

TEST_F(Windows, NothingIsUpdatedWhereThereNeverWasAnything) {
  CSonadexView bare(document, around.Services());
  CPitchView noTrack(bare, Services());
  CSpectrogramView noLevels(document, Services());
  CFFTLPCView noSpectrum(document, Services());
  for (AnalysisWindow* none :
       std::initializer_list<AnalysisWindow*>{&noTrack, &noLevels, &noSpectrum}) {
    EXPECT_FALSE(RunWindowCommand(*none, WindowCommand::kUpdate));
  }
}

TEST_F(Windows, UpdateStaysInsideTheShorterRecording) {
  CutTo(8000);
  for (AnalysisWindow* window : all) {
    EXPECT_TRUE(RunWindowCommand(*window, WindowCommand::kUpdate));
    EXPECT_EQ(window->freshness(), Freshness::kCurrent);
  }
  EXPECT_EQ(spectrum.place().position, 8000.0);
  EXPECT_EQ(Range(), "6000 8000");
  EXPECT_EQ(view.pitch.range.end, 8000.0) << "what was the whole recording is so again";

  CutTo(5000);
  spectrogram.Update();
  EXPECT_FALSE(spectrogram.computed()) << "nothing of its stretch is left";
  spectrogram.Show({0.0, 2000.0});
  document.Notify(DocumentChange::kSamples);
  spectrogram.Update();
  EXPECT_EQ(Range(), "0 2000") << "a beginning is not the whole";

  spectrum.Show({0.0, SampleRange{1000.0, 5000.0}});
  spectrogram.Show({0.0, 5000.0});
  CutTo(3000);
  UpdateAll();
  EXPECT_EQ(Joined(spectrum.place().selection->start, spectrum.place().selection->end),
            "1000 3000");
  EXPECT_EQ(Range(), "0 3000");
  Hold(document, testing::Noise(9000, 5000), 10000.0);
  document.Notify(DocumentChange::kSamples);
  spectrogram.Update();
  EXPECT_EQ(Range(), "0 9000") << "the whole recording stays whole";
}

// A line for each setting that calls for a new spectrum, spectrogram or pitch track when it
// changes.
TEST_F(Windows, SettingsOfTheAnalysisAloneCallForANewOne) {
  const DocumentSettings usual = document.settings;
  const auto set = [this](const DocumentSettings& settings) {
    document.settings = settings;
    document.Notify(DocumentChange::kSettings);
  };
  std::string text;
  for (const Field& field : Fields()) {
    const std::string name = std::string(field.group) + '.' + std::string(field.name);
    Settings changed{{}, usual};
    // A value that is none of the usual ones, and a size of a transform.
    if (SetFieldFromText(changed, name, "9").has_value() ||
        name.find("points") != std::string::npos) {
      SetFieldFromText(changed, name, "512");
    }
    set(changed.document);
    if (Due() != "0 0 0") text += Due() + ' ' + name + '\n';
    UpdateAll();
    EXPECT_EQ(Due(), "0 0 0") << name;
    set(usual);
    AnalysePitch(view, Stretch::kAll);
    EXPECT_FALSE(pitch.UpdateDue()) << "a new track of the main view will do";
    UpdateAll();
  }
  world.prompts.TakeTranscript();
  ExpectText("analysisview/expected/SettingsThatCount.txt", text);
}

TEST_F(Windows, AnotherDynamicRangeNeedsNoTransform) {
  const std::int64_t transforms = spectrogram.computation();
  const std::int64_t made = spectrogram.levelsNumber();
  document.settings.spectrogram.dynamicRangeDb = 90;
  document.Notify(DocumentChange::kSettings);
  CSpectrogramView anew(document, Services());
  anew.WantSize({100, 50});
  EXPECT_TRUE(anew.Show({6000.0, 10000.0}));
  const auto levels = [](const CSpectrogramView& window) {
    return std::vector(window.spectrogram().levels.get(),
                       window.spectrogram().levels.get() + 100 * 50);
  };
  EXPECT_EQ(levels(spectrogram), levels(anew));
  EXPECT_EQ(spectrogram.spectrogram().formants, anew.spectrogram().formants);
  EXPECT_EQ(Joined(spectrogram.computation() - transforms, spectrogram.levelsNumber() - made,
                   spectrogram.dynamicRangeDb()),
            "0 1 90");
}

TEST_F(Windows, ANewSizeIsComputedAtTheNextRestAndOnlyOnce) {
  const auto dueAndColumns = [this] {
    return Joined(spectrogram.UpdateDue(), spectrogram.spectrogram().columns);
  };
  spectrogram.WantSize({120, 60});
  EXPECT_EQ(dueAndColumns(), "1 100") << "scaled until then";
  spectrogram.WantSize({100, 50});
  EXPECT_EQ(dueAndColumns(), "0 100") << "back at the computed size";
  spectrogram.WantSize({120, 60});
  spectrogram.Update();
  EXPECT_EQ(dueAndColumns(), "0 120");
  EXPECT_EQ(Range(), "6000 10000");
}

TEST_F(Windows, WhatFailsIsNotTriedAgainByItself) {
  document.settings.fftLpc.rangeHz = 9000;
  document.Notify(DocumentChange::kSettings);
  EXPECT_EQ(Due(), "1 0 0");
  spectrum.Update();
  EXPECT_EQ(Due(), "0 0 0");
  EXPECT_TRUE(spectrum.computed());
  CutTo(8000);
  spectrum.Update();
  EXPECT_EQ(world.prompts.TakeTranscript().size(), 2U);
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
  for (const AnalysisWindow* window : all)
    EXPECT_THAT(window->LogRows(WindowLog::kMarker), IsEmpty());
  EXPECT_EQ(enabled(spectrum), "Enter &Formants;Enter &Entire Frame;");
  EXPECT_EQ(enabled(spectrogram), "Enter Formants &All;");
  EXPECT_EQ(enabled(pitch), "");
  PlaceMarkers();
  EXPECT_EQ(enabled(spectrum), "Enter &Marker;Enter &Formants;Enter &Entire Frame;");
  EXPECT_EQ(enabled(spectrogram),
            "Enter &Marker;Enter &Formants;Enter Formants &All;Enter &Entire Frame;");
  EXPECT_EQ(enabled(pitch), "Enter &Marker;");
  document.settings.spectrogram.trackFormants = 0;
  spectrogram.Update();
  EXPECT_EQ(enabled(spectrogram), "Enter &Marker;Enter &Entire Frame;");
  EXPECT_NE(TextOf(spectrogram).find("F1(Hz)=- F2(Hz)=-"), std::string::npos);
  around.logOpen = false;
  for (AnalysisWindow* window : all) EXPECT_EQ(enabled(*window), "");
}

// Kind of window and group, both as their numbers, text, key, tip, conditions, "strip" or "menu".
TEST_F(Windows, CommandsAreThoseOfTheList) {
  std::string list;
  for (const auto& row : WindowCommands()) {
    list += Joined(row.windows, static_cast<int>(row.group), row.text, "|", row.accelerator, "|",
                   row.toolTip, "|", row.conditions, row.onStrip ? "strip\n" : "menu\n");
  }
  ExpectText("analysisview/expected/Commands.txt", list);
}

TEST_F(Windows, RowsGoToTheLogUntilItHasEnoughOrTheUserCancels) {
  PlaceMarkers();
  pitch.StepCursor(50, 0);
  spectrum.StepCursor(1, 0);
  spectrogram.StepCursor(0, 3);
  document.settings.display.timeBase = 1;
  document.settings.logStepHz = 100;
  const struct {
    AnalysisWindow& window;
    WindowCommand command;
    std::size_t rows;
    std::string heading, first;  // their beginnings
  } rows[] = {
      {pitch, WindowCommand::kEnterMarker, 1, "Pitch Marker Entry: time, pitch, intensity", "0.5"},
      {spectrum, WindowCommand::kEnterMarker, 1, "FFT/LPC Marker", "50.0"},
      {spectrum, WindowCommand::kEnterFormants, 1, "FFT/LPC Formants", ""},
      {spectrum, WindowCommand::kEnterEntireFrame, 50, "FFT/LPC Entire Frame", "0.0"},
      {spectrogram, WindowCommand::kEnterMarker, 1, "Spec. Marker", "0.6 300.0"},
      {spectrogram, WindowCommand::kEnterFormants, 1, "Spec. Formants Entry", "0.6"},
      {spectrogram, WindowCommand::kEnterFormantsAll, 100, "Spec. Formants All", "0.6"},
      {spectrogram, WindowCommand::kEnterEntireFrame, 50, "Spec. Entire Frame", "0.0"},
  };
  for (const auto& row : rows) {
    log.entries.clear();
    world.progress = CancellingProgress();
    ASSERT_TRUE(RunWindowCommand(row.window, row.command)) << row.heading;
    ASSERT_EQ(log.entries.size(), row.rows) << row.heading;
    EXPECT_EQ(log.entries[0].source, "talk.wav");
    EXPECT_EQ(log.entries[0].heading.substr(0, row.heading.size()), row.heading);
    const std::string values = JoinedEach(log.entries[0].columns, std::identity());
    EXPECT_EQ(values.substr(0, row.first.size()), row.first) << row.heading;
    EXPECT_EQ(world.progress.texts.back(), "Entering into the log...(Press mouse to cancel)");
    EXPECT_EQ(world.progress.done.back(), world.progress.totals.back());
  }
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
  for (const auto& [change, picture] : {std::pair{DocumentChange::kCursor, false},
                                        {DocumentChange::kTitle, false},
                                        {DocumentChange::kSettings, true},
                                        {DocumentChange::kTracks, true},
                                        {DocumentChange::kSamples, true}}) {
    for (AnalysisWindow* window : all) {
      const std::int64_t before = window->revision();
      changes = 0;
      document.Notify(change);
      EXPECT_EQ(window->revision() > before, picture);
      EXPECT_GE(changes, 3) << "every window is told";
    }
  }
}

TEST_F(Windows, TheSpectrogramPlaysTheRecordingItsSelectionOrItself) {
  EXPECT_FALSE(RunWindowCommand(spectrogram, WindowCommand::kPlaySelection)) << "none";
  SelectSpan(view, 300.0, 400.0);
  for (const auto command :
       {WindowCommand::kPlayAll, WindowCommand::kPlaySelection, WindowCommand::kPlayWindow}) {
    EXPECT_TRUE(RunWindowCommand(spectrogram, command));
  }
  EXPECT_THAT(around.playback.played, ElementsAre("0 10000", "3000 4000", "6000 10000"));
  document.loaded = false;
  EXPECT_FALSE(RunWindowCommand(spectrogram, WindowCommand::kPlayAll));
}

TEST_F(Windows, SwitchesTurnTheSettingsOfTheirWindow) {
  auto& s = document.settings;
  const struct {
    AnalysisWindow& window;
    WindowCommand command;
    const std::int32_t& setting;
  } rows[] = {
      {spectrum, WindowCommand::kDrawLpc, s.fftLpc.drawLpc},
      {spectrum, WindowCommand::kRelativeLevel, s.fftLpc.relative},
      {spectrogram, WindowCommand::kDrawFormants, s.spectrogram.displayFormants},
      {spectrogram, WindowCommand::kDrawAudio, s.spectrogram.drawAudio},
      {spectrogram, WindowCommand::kDrawIntensity, s.spectrogram.drawIntensity},
      {spectrogram, WindowCommand::kDrawLabels, s.spectrogram.drawLabels},
      {pitch, WindowCommand::kDrawAudio, s.pitch.addAudio},
      {pitch, WindowCommand::kDrawIntensity, s.pitch.addIntensity},
      {pitch, WindowCommand::kDrawLabels, s.pitch.addLabels},
  };
  for (const auto& row : rows) {
    const std::int32_t was = row.setting;
    changes = 0;
    around.listener.notices.clear();
    EXPECT_TRUE(RunWindowCommand(row.window, row.command));
    EXPECT_EQ(row.setting, 1 - was);
    EXPECT_GE(changes, 1);
    EXPECT_EQ(around.listener.notices.size(), 1U) << "the settings are kept";
    EXPECT_FALSE(row.window.UpdateDue());
  }
  EXPECT_FALSE(RunWindowCommand(spectrum, WindowCommand::kDrawAudio)) << "none of its own";
}

}  // namespace
}  // namespace cantorix
