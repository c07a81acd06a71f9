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
  EXPECT_DOUBLE_EQ(window.cursorMs, 300.0);
  EXPECT_DOUBLE_EQ(window.cursorHz, 2500.0);
  EXPECT_DOUBLE_EQ(view.channel().cursor.ms, 300.0);
  EXPECT_TRUE(window.markerSet && view.markerSet());
  window.StepCursor(3, 2);
  EXPECT_DOUBLE_EQ(window.cursorMs, 300.0) << "no step while the button is held";
  window.Release(150, 59);
  EXPECT_FALSE(window.selectionShown || view.selectionShown());
}

// Every readout as one text.
std::string TextOf(const AnalysisWindow& window) {
  std::string text;
  for (const WindowReadout& readout : window.Readouts())
    text += readout.label + readout.value + ' ';
  return text;
}

TEST_F(SpectrogramTracking, ReadoutsAreThoseOfTheCursorAndOfTheSelection) {
  EXPECT_EQ(TextOf(window),
            "Time(ms)=- Frequency(Hz)=- Level(dB)=- F1(Hz)=- F2(Hz)=- F3(Hz)=- F4(Hz)=- F5(Hz)=- "
            "Duration(ms)=0.0 ");
  window.Press(150, 59);
  std::string expected = "Time(ms)=300.0 Frequency(Hz)=2500.0 Level(dB)=" +
                         FormatOneDecimal(window.spectrogram().Column(100)[50]);
  for (std::size_t i = 0; i < kFormants; ++i) {
    const std::uint16_t hz = window.spectrogram().formants[100][i];
    expected +=
        " F" + std::to_string(i + 1) + "(Hz)=" + (hz == kNoFormantHz ? "-" : FormatOneDecimal(hz));
  }
  EXPECT_EQ(TextOf(window), expected + " Duration(ms)=0.0 ");
  window.Move(250, 59);
  EXPECT_EQ(TextOf(window), expected + " Duration(ms)=100.0 ");
  inMemory.settings.display.timeBase = 1;
  EXPECT_EQ(TextOf(window).substr(0, 14), "Time(sec)=0.3 ");
  EXPECT_EQ(TextOf(window).substr(TextOf(window).rfind("Dur")), "Duration(sec)=0.1 ");
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
    window.selectionShown = false;
    view.DropMarks();
    window.Press(150, 59);
    window.Move(row.toX, 0);
    window.Release(row.toX, 0);
    EXPECT_EQ(window.selectionShown, row.selects) << row.toX;
    EXPECT_EQ(view.selectionShown(), row.selects) << row.toX;
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
  EXPECT_FALSE(view.markerSet());
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

// What other windows pass on is the user's choice; the main view passes its pointer to every
// spectrogram of the same samples.
TEST_F(SpectrogramTracking, WithoutTrackingTheMainViewShowsAMarkAndIsFollowedStill) {
  inMemory.settings.display.trackMouse = 0;
  window.Press(150, 59);
  window.Move(160, 59);
  window.Release(160, 59);
  EXPECT_EQ(view.channel().cursor.ms, 0.0);
  EXPECT_FALSE(view.markerSet() || view.selectionShown());
  EXPECT_DOUBLE_EQ(view.otherPointerMs.value_or(-1.0), 310.0);
  PressMouse(view, 40 + 400, 250);
  ReleaseMouse(view, 40 + 400, 250);
  EXPECT_DOUBLE_EQ(window.cursorMs, 400.0);
  EXPECT_EQ(view.otherPointerMs, std::nullopt);
}

TEST_F(SpectrogramTracking, NothingIsPassedBetweenDifferentSamples) {
  CutTo(9000);
  window.Press(150, 59);
  window.Release(150, 59);
  EXPECT_FALSE(view.markerSet() || view.otherPointerMs);
  PressMouse(view, 40 + 400, 250);
  EXPECT_DOUBLE_EQ(window.cursorMs, 300.0);
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
    ASSERT_EQ(window.LevelAtCursor(),
              window.spectrogram().Column(x)[static_cast<std::size_t>(x % 100)])
        << x;
  }
}

class FftLpcCursor : public MainViewFixture, public ::testing::Test {
 protected:
  void Show(std::int32_t points) {
    window.plot = {13, 0, 13 + points, 100};
    window.WantSize({points, 0});
    ASSERT_TRUE(window.Show({500.0, {}}));
  }
  CFFTLPCView window{inMemory, Services()};
};

TEST_F(FftLpcCursor, EveryPixelReadsItsOwnPointWhateverTheWidth) {
  inMemory.settings.fftLpc.rangeHz = 3000;
  for (const int width : {1, 7, 333, 1111}) {
    Show(width);
    for (int x = 0; x < width; ++x) {
      window.Press(13 + x, 50);
      const auto point = static_cast<std::size_t>(x);
      ASSERT_EQ(window.Readouts()[1].value, FormatOneDecimal(window.spectrum().fftDb[point])) << x;
      ASSERT_EQ(window.Readouts()[2].value, FormatOneDecimal(window.spectrum().lpcDb[point])) << x;
      window.Release(13 + x, 50);
    }
    window.markerSet = false;
    for (const auto& [x, y] : {std::pair{12, 50}, {13 + width, 50}, {13, -1}, {13, 100}}) {
      window.Press(x, y);
      window.Move(13, 50);
      EXPECT_FALSE(window.markerSet) << "outside the plot";
    }
  }
}

TEST_F(FftLpcCursor, ReadoutsNameLevelsFormantsAndSettings) {
  inMemory.channel().sampleRateHz = 10000.7;
  Show(500);
  std::string formants;
  for (std::size_t i = 0; i < kFormants; ++i) {
    const auto text = [](double hz) { return hz == -1.0 ? "-" : FormatOneDecimal(hz); };
    const std::string number = std::to_string(i + 1);
    formants += "F" + number + "(Hz)=" + text(window.spectrum().formants.frequencyHz[i]) + " BW" +
                number + "(Hz)=" + text(window.spectrum().formants.bandwidthHz[i]) + ' ';
  }
  EXPECT_NE(formants.find("=-"), std::string::npos) << "one is missing";
  EXPECT_EQ(TextOf(window), "Frequency(Hz)=- FFT(dB)=- LPC(dB)=- " + formants +
                                "Points=256 Window(ms)=23 Step(ms)=10 LPC order=14 Sample "
                                "Rate(Hz)=10000 ");
}

TEST_F(FftLpcCursor, ArrowKeysStepByDisplayPoints) {
  Show(500);
  struct Row {
    int points;
    double hz;
  };
  for (const Row& row :
       {Row{1, 0.0}, Row{1, 10.0}, Row{10, 110.0}, Row{-500, 0.0}, Row{9999, 4990.0}}) {
    window.StepCursor(row.points, 0);
    EXPECT_DOUBLE_EQ(window.cursorHz, row.hz) << row.points;
  }
  inMemory.settings.fftLpc.rangeHz = 4991;
  window.Update();
  EXPECT_TRUE(window.markerSet);
  inMemory.settings.fftLpc.rangeHz = 4990;
  window.Update();
  EXPECT_FALSE(window.markerSet) << "the display ends before it";
}

TEST_F(FftLpcCursor, TheLevelAxisEndsAtTheOptionsOrAtWhatIsDrawn) {
  Show(500);
  FftLpcSettings& options = inMemory.settings.fftLpc;
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
  const double& mainDragMs = main.view.channel().dragPoint.ms;
  window.Press(49, 50);
  window.Move(150, 50);
  EXPECT_FALSE(window.markerSet) << "pressed outside";
  window.Press(150, 50);
  EXPECT_DOUBLE_EQ(window.cursorMs, 300.0);
  EXPECT_EQ(mainDragMs, 0.0);
  window.StepCursor(5, 0);
  EXPECT_DOUBLE_EQ(window.cursorMs, 300.0) << "no step while the button is held";
  window.Move(250, 50);
  EXPECT_DOUBLE_EQ(mainDragMs, 400.0);
  // The first move passes its press first.
  EXPECT_DOUBLE_EQ(main.view.channel().selectionStart.ms, 300.0);
  EXPECT_TRUE(main.view.selectionShown());
  window.Release(350, 50);
  window.Move(450, 50);
  EXPECT_DOUBLE_EQ(mainDragMs, 400.0);
  for (const auto& [right, ms] : {std::pair{0, 500.0}, {5, 505.0}, {-9999, 200.0}, {9999, 699.0}}) {
    window.StepCursor(right, 0);
    EXPECT_DOUBLE_EQ(window.cursorMs, ms) << right;
  }
  AnalysePitch(main.view, SampleRange{2000.0, 6990.0});
  EXPECT_TRUE(window.markerSet);
  AnalysePitch(main.view, SampleRange{2000.0, 6500.0});
  EXPECT_FALSE(window.markerSet) << "the new track ends before it";
}

}  // namespace
}  // namespace cantorix
