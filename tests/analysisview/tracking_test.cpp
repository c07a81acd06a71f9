// tracking_test.cpp - cursor and selection of the analysis windows, and how they and the main view
// follow each other's pointer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/main_view_fixture.h"
#include "analysisview/pitch_view.h"
#include "analysisview/spectrogram_view.h"
#include "mainview/analysis_commands.h"
#include "mainview/mouse.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

// 200 to 700 ms over 500 columns, 0 to 5000 Hz over 100 rows.
class SpectrogramTracking : public MainViewFixture, public ::testing::Test {
 protected:
  SpectrogramTracking() {
    window.plot = {50, 10, 550, 110};
    window.WantSize({500, 100});
    EXPECT_TRUE(window.Show({2000.0, 7000.0}));
    inMemory.settings.display.trackMouse = 1;
    listener.cursorMoved = [this](MousePhase phase, double ms) {
      window.FollowMainView(phase, ms);
    };
  }
  CSpectrogramView window{inMemory, Services()};
};

TEST_F(SpectrogramTracking, APressPutsBothCursorsUnderThePointer) {
  window.Press(150, 59);
  window.Release(150, 59);
  EXPECT_DOUBLE_EQ(window.cursorMs, 300.0);
  EXPECT_DOUBLE_EQ(window.cursorHz, 2500.0);
  EXPECT_DOUBLE_EQ(view.channel().cursor.ms, 300.0);
  EXPECT_TRUE(window.markerSet && view.markerSet);
  EXPECT_FALSE(window.selectionShown || view.selectionShown);
}

TEST_F(SpectrogramTracking, AMoveOfMoreThanFivePixelsSelectsInBoth) {
  struct Row {
    std::int32_t toX;
    bool selects;
    double startMs, endMs;
  };
  for (const Row& row : {Row{155, false, 300.0, 305.0}, Row{145, false, 295.0, 300.0},
                         Row{156, true, 300.0, 306.0}, Row{144, true, 294.0, 300.0},
                         Row{9000, true, 300.0, 699.0}, Row{-9000, true, 200.0, 300.0}}) {
    window.selectionShown = view.selectionShown = false;
    window.Press(150, 59);
    window.Move(row.toX, 0);
    window.Release(row.toX, 0);
    EXPECT_EQ(window.selectionShown, row.selects) << row.toX;
    EXPECT_EQ(view.selectionShown, row.selects) << row.toX;
    EXPECT_EQ(window.markerSet, !row.selects) << row.toX;
    EXPECT_NEAR(window.selection.startMs, row.startMs, 1e-9) << row.toX;
    EXPECT_NEAR(window.selection.endMs, row.endMs, 1e-9) << row.toX;
    EXPECT_NEAR(view.channel().selectionEnd.ms, row.endMs, 1.0) << row.toX;
  }
}

TEST_F(SpectrogramTracking, OutsideThePlotNothingIsPressed) {
  for (const auto& [x, y] : {std::pair{49, 50}, {550, 50}, {100, 9}, {100, 110}}) {
    window.Press(x, y);
    window.Move(300, 50);
    window.Release(300, 50);
    EXPECT_FALSE(window.markerSet || window.selectionShown) << x << ", " << y;
  }
  EXPECT_FALSE(view.markerSet);
}

TEST_F(SpectrogramTracking, FollowsTheMainViewAtItsOwnFrequency) {
  window.Press(150, 59);
  window.Release(150, 59);
  PressMouse(view, 40 + 400, 250);
  EXPECT_DOUBLE_EQ(window.cursorMs, 400.0);
  EXPECT_DOUBLE_EQ(window.cursorHz, 2500.0);
  MoveMouse(view, 40 + 600, 250);
  ReleaseMouse(view, 40 + 600, 250);
  EXPECT_TRUE(window.selectionShown);
  EXPECT_NEAR(window.selection.startMs, 400.0, 1e-9);
  EXPECT_NEAR(window.selection.endMs, 600.0, 1e-9);
}

TEST_F(SpectrogramTracking, GoesSeparateWaysUnlessAllWindowsTrackOrAfterAnEdit) {
  const auto pressBoth = [this] {
    window.Press(150, 59);
    window.Release(150, 59);
    EXPECT_NE(view.channel().cursor.ms, 300.0);
    PressMouse(view, 40 + 400, 250);
    ReleaseMouse(view, 40 + 400, 250);
    EXPECT_DOUBLE_EQ(window.cursorMs, 300.0);
  };
  inMemory.settings.display.trackMouse = 0;
  pressBoth();
  inMemory.settings.display.trackMouse = 1;
  CutTo(9000);
  pressBoth();
}

TEST_F(SpectrogramTracking, ArrowKeysStepByPixelsInsideThePicture) {
  window.Press(150, 59);
  window.Release(150, 59);
  window.StepCursor(3, 2);
  EXPECT_DOUBLE_EQ(window.cursorMs, 303.0);
  EXPECT_DOUBLE_EQ(window.cursorHz, 2600.0);
  EXPECT_DOUBLE_EQ(view.channel().cursor.ms, 303.0);
  window.StepCursor(-100000, -100000);
  EXPECT_EQ(window.cursorMs, 200.0);
  EXPECT_EQ(window.cursorHz, 0.0);
  window.StepCursor(100000, 100000);
  EXPECT_NE(window.LevelAtCursor(), std::nullopt) << "the last column and row are inside";
}

TEST_F(SpectrogramTracking, EveryPixelReadsItsOwnColumnAndRow) {
  for (std::int32_t x = 0; x < 500; ++x) {
    window.Press(50 + x, 109 - x % 100);
    window.Release(50 + x, 109 - x % 100);
    const auto level = window.spectrogram().Column(x)[static_cast<std::size_t>(x % 100)];
    EXPECT_EQ(window.LevelAtCursor(), level) << x;
  }
}

TEST(FftLpcCursor, EveryPixelReadsItsOwnPointWhateverTheWidth) {
  MainViewFixture main;
  CFFTLPCView window(main.inMemory, main.Services());
  main.inMemory.settings.fftLpc.rangeHz = 3000;
  for (const int width : {1, 7, 333, 1111}) {
    window.plot = {13, 0, 13 + width, 100};
    window.WantSize({width, 0});
    ASSERT_TRUE(window.Show({500.0, {}}));
    for (int x = 0; x < width; ++x) {
      window.Press(13 + x, 50);
      window.Release(13 + x, 50);
      const std::string level =
          FormatOneDecimal(window.spectrum().fftDb[static_cast<std::size_t>(x)]);
      ASSERT_EQ(window.Readouts()[1].value, level) << x << " of " << width;
    }
  }
}

TEST(FftLpcCursor, ArrowKeysStepByDisplayPoints) {
  MainViewFixture main;
  CFFTLPCView window(main.inMemory, main.Services());
  window.WantSize({500, 0});
  ASSERT_TRUE(window.Show({500.0, {}}));
  struct Row {
    int points;
    double hz;
  };
  for (const Row& row :
       {Row{1, 0.0}, Row{1, 10.0}, Row{10, 110.0}, Row{-500, 0.0}, Row{9999, 4990.0}}) {
    window.StepCursor(row.points, 0);
    EXPECT_DOUBLE_EQ(window.cursorHz, row.hz) << row.points;
  }
}

TEST(FftLpcCursor, TheLevelAxisEndsAtTheOptionsOrAtWhatIsDrawn) {
  MainViewFixture main;
  CFFTLPCView window(main.inMemory, main.Services());
  window.WantSize({500, 0});
  ASSERT_TRUE(window.Show({500.0, {}}));
  FftLpcSettings& options = main.inMemory.settings.fftLpc;
  const Spectrum& spectrum = window.spectrum();
  options.relative = 1;
  options.drawLpc = 0;
  EXPECT_EQ(window.TopLevelDb(), spectrum.fftMaxDb * 1.05);
  options.drawLpc = 1;
  EXPECT_EQ(window.TopLevelDb(), std::max(spectrum.fftMaxDb, spectrum.lpcSpanDb) * 1.05);
  options.relative = 0;
  options.absoluteDb = 64;
  EXPECT_EQ(window.TopLevelDb(), 64.0);
  options.absoluteDb = -5;
  EXPECT_EQ(window.TopLevelDb(), 1.0);
}

TEST(PitchTracking, PassesItsMovesOnlyAndStaysOverTheTrack) {
  MainViewFixture main;
  AnalysePitch(main.view, SampleRange{2000.0, 7000.0});
  CPitchView window(main.view, main.Services());
  window.plot = {50, 10, 550, 110};
  main.inMemory.settings.display.trackMouse = 1;
  ASSERT_TRUE(window.computed());
  EXPECT_DOUBLE_EQ(window.TimeAxis().low, 200.0);
  EXPECT_DOUBLE_EQ(window.TimeAxis().high, 700.0);
  window.Press(150, 50);
  EXPECT_DOUBLE_EQ(window.cursorMs, 300.0);
  EXPECT_EQ(main.view.channel().dragPoint.ms, 0.0);
  window.Move(250, 50);
  EXPECT_DOUBLE_EQ(main.view.channel().dragPoint.ms, 400.0);
  window.Release(350, 50);
  EXPECT_DOUBLE_EQ(main.view.channel().dragPoint.ms, 400.0);
  EXPECT_DOUBLE_EQ(window.cursorMs, 500.0);
}

}  // namespace
}  // namespace cantorix
