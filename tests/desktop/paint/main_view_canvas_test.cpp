// main_view_canvas_test.cpp - what a window paints anew, and what it keeps.
#include "desktop/paint/main_view_canvas.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/paint/paint_fixture.h"
#include "document/label.h"
#include "mainview/view_commands.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr PixelSize kClient{645, 500};

class MainViewCanvasTest : public testing::Test {
 protected:
  QImage Paint(double pixelRatio = 1.0) {
    const auto paint = [this](QPainter& painter, const PaintStyle& style) {
      canvas.Paint(painter, style);
    };
    return Painted(kClient, paint, pixelRatio);
  }
  // Changes the samples behind everybody's back: a picture that was kept does not show it.
  void ChangeSamplesSilently() {
    std::ranges::fill(recording.channel().samples.samples(), std::int16_t{0});
  }

  ViewWorld world;
  ViewedRecording recording{world, Vowels(), kFixtureRateHz};
  DocumentWaveform waveform{recording.document};
  MainViewCanvas canvas{recording.view, waveform};
};

TEST_F(MainViewCanvasTest, ACursorDragPaintsTheOverlayAlone) {
  const QImage first = Paint();
  ChangeSamplesSilently();
  PlaceMarker(recording.view, 500.0);
  const QImage marked = Paint();
  EXPECT_NE(marked, first) << "the cursor is seen";
  EXPECT_FALSE(recording.view.redrawNeeded);
  DropSelection(recording.view);
  recording.channel().cursor = {};
  recording.view.readouts = {};
  EXPECT_EQ(Paint().copy(40, 0, 600, 440), first.copy(40, 0, 600, 440));
}

TEST_F(MainViewCanvasTest, EveryOtherChangeIsPaintedAnew) {
  struct Row {
    const char* name;
    void (*change)(ViewedRecording&);
  };
  const Row rows[] = {
      {"samples", [](ViewedRecording& r) { r.view.Changed(DocumentChange::kSamples); }},
      {"labels",
       [](ViewedRecording& r) {
         AddLabel(r.document, 0, 300.0, "x");
         r.view.Changed(DocumentChange::kLabels);
       }},
      {"settings",
       [](ViewedRecording& r) {
         r.document.settings.display.drawGrids = 0;
         r.view.Changed(DocumentChange::kSettings);
       }},
      {"zoom", [](ViewedRecording& r) { ZoomView(r.view, Zoom::kIn); }},
  };
  for (const Row& row : rows) {
    const QImage before = Paint();
    if (std::string(row.name) == "samples") ChangeSamplesSilently();
    row.change(recording);
    EXPECT_NE(Paint(), before) << row.name;
  }
}

TEST_F(MainViewCanvasTest, IsTheSameAsThePictureItself) {
  recording.view.LayOut(kClient);
  const auto paint = [this](QPainter& painter, const PaintStyle& style) {
    PaintMainView(painter, {recording.view, waveform.Pyramid()}, style);
  };
  for (const double ratio : {1.0, 2.0}) {
    for (int time = 0; time < 2; ++time) EXPECT_EQ(Paint(ratio), Painted(kClient, paint, ratio));
  }
}

}  // namespace
}  // namespace cantorix
