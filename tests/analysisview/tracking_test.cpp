// tracking_test.cpp - cursor and selection of the analysis windows, and how they and the main view
// follow each other's pointer.
#include <gtest/gtest.h>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/pitch_view.h"
#include "analysisview/spectrogram_view.h"
#include "analysisview/window_fixture.h"
#include "mainview/analysis_commands.h"
#include "mainview/mouse.h"
#include "mainview/view_commands.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

// 200 to 700 ms over 500 columns, 0 to 5000 Hz over 100 rows.
class SpectrogramTracking : public MainViewTest {
 protected:
  SpectrogramTracking() {
    window.plot = {50, 10, 550, 110};
    window.WantSize({500, 100});
    EXPECT_TRUE(window.Show({2000.0, 7000.0}));
    around.listener.forward = [this](MousePhase phase, double ms) {
      window.FollowMainView(phase, ms);
    };
  }
  void Click(std::int32_t x, std::int32_t y) {
    window.Press(x, y);
    window.Release(x, y);
  }
  void Drag(std::int32_t x, std::int32_t toX, std::int32_t toY = 59) {
    window.Press(x, 59);
    window.Move(toX, toY);
    window.Release(toX, toY);
  }
  // Cursor in ms and Hz, and what is shown of it.
  std::string Shown() const {
    return Joined(window.cursorMs, window.cursorHz) + (window.markerSet ? " marker" : "") +
           (window.selectionShown
                ? Joined(" from", window.selection.startMs, "to", window.selection.endMs)
                : "");
  }
  CSpectrogramView window{document, Services()};
};

TEST_F(SpectrogramTracking, APressPutsBothCursorsUnderThePointer) {
  window.Press(150, 59);
  EXPECT_EQ(Shown(), "300 2500 marker");
  EXPECT_EQ(MarksOf(view), "marker 300 of 300 300 = 0");
  window.StepCursor(3, 2);
  EXPECT_EQ(Shown(), "300 2500 marker") << "no step while the button is held";
  window.Release(150, 59);
  EXPECT_FALSE(window.selectionShown || view.selectionShown());
}

TEST_F(SpectrogramTracking, ReadoutsAreThoseOfTheCursorAndOfTheSelection) {
  EXPECT_EQ(TextOf(window),
            "Time(ms)=- Frequency(Hz)=- Level(dB)=- F1(Hz)=- F2(Hz)=- F3(Hz)=- F4(Hz)=- F5(Hz)=- "
            "Duration(ms)=0.0");
  window.Press(150, 59);
  std::string expected = "Time(ms)=300.0 Frequency(Hz)=2500.0 Level(dB)=" +
                         FormatOneDecimal(window.spectrogram().Column(100)[50]);
  for (std::size_t i = 0; i < kFormants; ++i) {
    const std::uint16_t hz = window.spectrogram().formants[100][i];
    expected +=
        " F" + std::to_string(i + 1) + "(Hz)=" + (hz == kNoFormantHz ? "-" : FormatOneDecimal(hz));
  }
  EXPECT_EQ(TextOf(window), expected + " Duration(ms)=0.0");
  window.Move(250, 59);
  EXPECT_EQ(TextOf(window), expected + " Duration(ms)=100.0");
  document.settings.display.timeBase = 1;
  EXPECT_EQ(TextOf(window).substr(0, 14), "Time(sec)=0.3 ");
  EXPECT_EQ(TextOf(window).substr(TextOf(window).rfind("Dur")), "Duration(sec)=0.1");
}

TEST_F(SpectrogramTracking, AMoveOfMoreThanFivePixelsSelectsInBoth) {
  const struct {
    std::int32_t toX;
    const char *shown, *marks;  // of the window and of the main view
  } rows[] = {
      {155, "300 2500 marker", "marker 300 of 300 305 = 50"},
      {145, "300 2500 marker", "marker 300 of 295 300 = 50"},
      {156, "300 2500 from 300 to 306", "selection to save 300 of 300 306 = 60"},
      {144, "300 2500 from 294 to 300", "selection to save 300 of 294 300 = 60"},
      {9000, "300 2500 from 300 to 699", "selection to save 300 of 300 699 = 3990"},
      {-9000, "300 2500 from 200 to 300", "selection to save 300 of 200 300 = 1000"},
  };
  for (const auto& row : rows) {
    view.DropMarks();
    Drag(150, row.toX, 0);
    EXPECT_EQ(Shown(), row.shown) << row.toX;
    EXPECT_EQ(MarksOf(view), row.marks) << row.toX;
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
  Click(150, 59);
  PressMouse(view, 40 + 400, 250);
  EXPECT_EQ(Shown(), "400 2500 marker");
  MoveMouse(view, 40 + 600, 250);
  EXPECT_EQ(Shown(), "400 2500 from 400 to 600");
}

// What other windows pass on is the user's choice; the main view passes its pointer to every
// spectrogram of the same samples.
TEST_F(SpectrogramTracking, WithoutTrackingTheMainViewShowsAMarkAndIsFollowedStill) {
  document.settings.display.trackMouse = 0;
  changes = 0;
  Drag(150, 160);
  EXPECT_EQ(changes, 3);
  EXPECT_EQ(MarksOf(view), "0 of 0 0 = 0");
  EXPECT_DOUBLE_EQ(view.otherPointerMs.value_or(-1.0), 310.0);
  PressMouse(view, 40 + 400, 250);
  EXPECT_DOUBLE_EQ(window.cursorMs, 400.0);
  EXPECT_EQ(view.otherPointerMs, std::nullopt);
}

TEST_F(SpectrogramTracking, NothingIsPassedBetweenDifferentSamples) {
  CutTo(9000);
  Click(150, 59);
  EXPECT_FALSE(view.markerSet() || view.otherPointerMs);
  PressMouse(view, 40 + 400, 250);
  EXPECT_DOUBLE_EQ(window.cursorMs, 300.0);
}

TEST_F(SpectrogramTracking, ArrowKeysStepByPixelsInsideThePicture) {
  window.StepCursor(1, 1);
  EXPECT_EQ(Shown(), "200 0 marker");
  Click(150, 59);
  window.StepCursor(3, 2);
  EXPECT_EQ(Shown(), "303 2600 marker");
  EXPECT_EQ(MarksOf(view), "marker 303 of 303 303 = 0");
  window.StepCursor(-100000, -100000);
  EXPECT_EQ(Shown(), "200 0 marker");
  window.StepCursor(100000, 100000);
  EXPECT_EQ(Shown(), "699 4950 marker") << "the last column and row";
}

TEST_F(SpectrogramTracking, EveryPixelReadsItsOwnColumnAndRow) {
  for (std::int32_t x = 0; x < 500; ++x) {
    Click(50 + x, 109 - x % 100);
    ASSERT_EQ(window.LevelAtCursor(),
              window.spectrogram().Column(x)[static_cast<std::size_t>(x % 100)])
        << x;
  }
}

class FftLpcCursor : public MainViewTest {
 protected:
  void Show(std::int32_t points) {
    window.plot = {13, 0, 13 + points, 100};
    window.WantSize({points, 0});
    ASSERT_TRUE(window.Show({500.0, {}}));
  }
  CFFTLPCView window{document, Services()};
  FftLpcSettings& options = document.settings.fftLpc;
};

TEST_F(FftLpcCursor, EveryPixelReadsItsOwnPointWhateverTheWidth) {
  options.rangeHz = 3000;
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
  document.channel().sampleRateHz = 10000.7;
  options.rangeHz = 2000;
  Show(500);
  std::string formants;
  for (std::size_t i = 0; i < kFormants; ++i) {
    const auto text = [](double hz) { return hz == -1.0 ? "-" : FormatOneDecimal(hz); };
    const std::string number = std::to_string(i + 1);
    const double hz = window.spectrum().formants.frequencyHz[i];
    formants += "F" + number + "(Hz)=" + (hz > 2000.0 ? "\u2191 " : "") + text(hz) + " BW" +
                number + "(Hz)=" + text(window.spectrum().formants.bandwidthHz[i]) + ' ';
  }
  EXPECT_NE(formants.find("=-"), std::string::npos) << "one is missing";
  EXPECT_NE(formants.find("\u2191"), std::string::npos) << "one is above the picture";
  EXPECT_EQ(TextOf(window),
            "Frequency(Hz)=- FFT(dB)=- LPC(dB)=- " + formants +
                "Points=256 Window(ms)=23 Step(ms)=10 LPC order=14 Sample Rate(Hz)=10000");
}

TEST_F(FftLpcCursor, ArrowKeysStepByDisplayPoints) {
  Show(500);
  for (const auto& [points, hz] :
       {std::pair{1, 0.0}, {1, 10.0}, {10, 110.0}, {-500, 0.0}, {9999, 4990.0}}) {
    window.StepCursor(points, 0);
    EXPECT_DOUBLE_EQ(window.cursorHz, hz) << points;
  }
  window.Press(13, 50);
  window.Move(13 + 100, 50);
  window.Release(13 + 100, 50);
  EXPECT_DOUBLE_EQ(window.cursorHz, 1000.0) << "the cursor follows the pointer";
  window.StepCursor(9999, 0);
  for (const std::int32_t rangeHz : {4991, 4990}) {
    options.rangeHz = rangeHz;
    window.Update();
    EXPECT_EQ(window.markerSet, rangeHz == 4991) << "the display ends before it";
  }
}

TEST_F(FftLpcCursor, TheLevelAxisEndsAtTheOptionsOrAtWhatIsDrawn) {
  Show(500);
  const Spectrum& spectrum = window.spectrum();
  options.relative = 1;
  options.drawLpc = 0;
  EXPECT_EQ(window.TopLevelDb(), spectrum.fftMaxDb * 1.05);
  options.drawLpc = 1;
  EXPECT_EQ(window.TopLevelDb(), std::max(spectrum.fftMaxDb, spectrum.lpcSpanDb) * 1.05);
  options.relative = 0;
  for (const auto& [levelDb, topDb] : {std::pair{64, 64.0}, {-5, 1.0}}) {
    options.absoluteDb = levelDb;
    EXPECT_EQ(window.TopLevelDb(), topDb);
  }
}

class PitchTracking : public MainViewTest {
 protected:
  PitchTracking() {
    AnalysePitch(view, SampleRange{2000.0, 7000.0});
    window.plot = {50, 10, 550, 110};
  }
  CPitchView window{view, Services()};
};

TEST_F(PitchTracking, PassesItsMovesOnlyAndStaysOverTheTrack) {
  const auto cursors = [this] { return Joined(window.cursorMs, view.channel().dragPoint.ms); };
  ASSERT_TRUE(window.computed());
  window.Press(49, 50);
  window.Move(150, 50);
  EXPECT_FALSE(window.markerSet) << "pressed outside";
  window.Press(150, 50);
  EXPECT_EQ(cursors(), "300 0");
  window.StepCursor(5, 0);
  EXPECT_EQ(cursors(), "300 0") << "no step while the button is held";
  window.Move(250, 50);
  EXPECT_EQ(cursors(), "400 400");
  EXPECT_EQ(MarksOf(view), "selection to save 300 of 300 400 = 1000") << "the press went first";
  EXPECT_EQ(TextOf(window), "Time(ms)=400.0 Pitch(Hz)=" + window.Readouts()[1].value +
                                " Int.(dB)=" + window.Readouts()[2].value);
  window.Release(350, 50);
  window.Move(450, 50);
  EXPECT_EQ(cursors(), "500 400");
  for (const auto& [right, ms] : {std::pair{0, 500.0}, {5, 505.0}, {-9999, 200.0}, {9999, 699.0}}) {
    window.StepCursor(right, 0);
    EXPECT_DOUBLE_EQ(window.cursorMs, ms) << right;
  }
  for (const double end : {6990.0, 6500.0}) {
    AnalysePitch(view, SampleRange{2000.0, end});
    EXPECT_EQ(window.markerSet, end == 6990.0) << "the new track ends before it";
  }
}

TEST_F(PitchTracking, FollowsTheMainViewOverTheTrack) {
  const struct {
    double ms;
    bool isShown;
  } presses[] = {{200.0, true}, {700.0, true}, {199.0, false}, {701.0, false}, {450.0, true}};
  for (const auto& [ms, isShown] : presses) {
    window.FollowMainView(MousePhase::kPress, ms);
    EXPECT_EQ(window.cursorMs, ms);
    EXPECT_EQ(window.markerSet, isShown) << ms;
  }
  window.Press(150, 50);
  window.FollowMainView(MousePhase::kPress, 450.0);
  EXPECT_EQ(window.cursorMs, 300.0) << "its own button is held";
  window.Release(150, 50);
  SelectSpan(view, 300.0, 400.0);
  window.FollowMainView(MousePhase::kRelease, 300.0);
  EXPECT_FALSE(window.markerSet) << "the selection is drawn instead";
}

}  // namespace
}  // namespace cantorix
