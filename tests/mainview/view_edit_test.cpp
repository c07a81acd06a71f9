// view_edit_test.cpp - whatever the user does, the window and the other views are told once.
#include "mainview/view_edit.h"

#include <gtest/gtest.h>

#include <functional>

#include "mainview/analysis_commands.h"
#include "mainview/editing.h"
#include "mainview/label_commands.h"
#include "mainview/mouse.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "mainview/wheel_zoom.h"
#include "platform/abandon.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

using enum DocumentChange;

class ViewEditTest : public LabelTest {
 protected:
  ViewEditTest() { second.Begin({545, 200}); }

  RecordingListener elsewhere;
  ViewServices ServicesOfSecond() {
    ViewServices services = world.Services();
    return {services.clipboard,
            services.temporaryDirectory,
            services.textMeasurer,
            elsewhere,
            services.sound,
            services.dialogs,
            std::move(services.openLog)};
  }
  CSonadexView second{document, ServicesOfSecond()};
};

TEST_F(ViewEditTest, EachThingThatIsDoneTellsOnceWhatItChanged) {
  const DocumentChanges edit = kSamples | kStretch | kCursor | kTitle;
  const struct {
    const char* name;
    std::function<void()> act;
    DocumentChanges changes;
    int stops = 1;  // of playback
  } rows[] = {
      {"press", [this] { PressMouse(view, 240, 150); }, kCursor},
      {"move", [this] { MoveMouse(view, 300, 150); }, kCursor, 0},
      {"release", [this] { ReleaseMouse(view, 340, 150); }, kCursor, 0},
      {"press of another window", [this] { PressAtTime(view, 2000.0); }, kCursor},
      {"its move", [this] { MoveAtTime(view, 3000.0); }, kCursor, 0},
      {"span", [this] { SelectSpan(view, 2500.0, 3000.0); }, kCursor, 0},
      {"zoom", [this] { ZoomView(view, Zoom::kIn); }, kStretch},
      {"scroll", [this] { ScrollView(view, ScrollRequest::kLineForward); }, kStretch, 0},
      {"wheel", [this] { ZoomViewAround(view, 500, -2); }, kStretch},
      {"pitch", [this] { AnalysePitch(view, Stretch::kAll); }, kTracks, 0},
      {"cut", [this] { CutSelection(view); }, edit, 2},
      {"paste", [this] { Paste(view); }, edit},
      {"undo", [this] { Undo(view); }, edit},
      {"smooth", [this] { Smooth(view); }, kSamples | kTitle},
      {"reference", [this] { SetReferenceOfAllChannels(view); }, kReference | kTitle, 2},
      {"new label", [this] { AddLabelToTier(view, kWords, {}); }, kLabels | kTitle},
      {"moved", [this] { MoveLabel(view, kWords, 0, 1.0, 0.5); }, kLabels | kTitle},
      {"edited", [this] { EditLabel(view, kWords, 0, {}); }, kLabels | kTitle},
      {"deleted", [this] { DeleteLabel(view, kWords, 0); }, kLabels | kTitle},
      {"undo of a label", [this] { Undo(view); },
       DocumentChanges(kLabels | kReference | kStretch) | kCursor | kTitle},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    document.SetModified(false);
    listener = elsewhere = {};
    playback.stops = 0;
    view.redrawNeeded = false;
    row.act();
    ASSERT_EQ(listener.notices.size(), 1U);
    EXPECT_EQ(listener.notices[0], row.changes);
    ASSERT_EQ(elsewhere.notices.size(), 1U);
    EXPECT_EQ(elsewhere.notices[0], row.changes);
    EXPECT_TRUE(view.redrawNeeded && second.redrawNeeded);
    EXPECT_EQ(playback.stops, row.stops);
  }
}

TEST_F(ViewEditTest, ADraggedLabelIsToldWithTheReleaseThatDropsIt) {
  ToggleLabelEntry(view);
  PressMouse(view, 40 + 205, 28);
  MoveMouse(view, 40 + 300, 10);
  listener = {};
  ReleaseMouse(view, 40 + 300, 10);
  ASSERT_EQ(listener.notices.size(), 1U);
  EXPECT_EQ(listener.notices[0], DocumentChanges(kCursor) | kLabels | kTitle);
}

TEST_F(ViewEditTest, AutomaticPitchBeginsInAWindowThatShowsTheEdit) {
  document.settings.display.automaticAnalysis = 1;
  SelectSpan(view, 2500.0, 3000.0);
  listener = {};
  CutSelection(view);
  ASSERT_EQ(listener.notices.size(), 2U);
  EXPECT_TRUE(listener.notices[0].Has(kSamples));
  EXPECT_EQ(listener.notices[1], kTracks);
}

TEST_F(ViewEditTest, WhatIsGivenUpTellsWhatHadChangedByThen) {
  document.SetModified(false);
  listener = {};
  const auto giveUp = [this](bool afterAChange) {
    ViewEdit edit(view, Playback::kStops);
    if (afterAChange) {
      edit.MarkModified();
      view.Changed(kLabels);
    }
    throw Abandoned(AbandonReason::kCancelled);
  };
  EXPECT_THROW(giveUp(false), Abandoned);
  EXPECT_TRUE(listener.notices.empty());
  EXPECT_THROW(giveUp(true), Abandoned);
  ASSERT_EQ(listener.notices.size(), 1U);
  EXPECT_EQ(listener.notices[0], kLabels | kTitle);
  EXPECT_TRUE(document.isModified());
}

}  // namespace
}  // namespace cantorix
