// following_test.cpp - windows that show what the main view shows, and those that were told not to.
#include <gtest/gtest.h>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/pitch_view.h"
#include "analysisview/spectrogram_view.h"
#include "analysisview/window_fixture.h"
#include "analysisview/window_wheel.h"
#include "mainview/analysis_commands.h"
#include "mainview/mouse.h"
#include "mainview/wheel_zoom.h"

namespace cantorix {
namespace {

// The second of noise at 10000 Hz, all of it in sight over 1000 columns.
class FollowingTest : public MainViewTest {
 protected:
  FollowingTest() {
    document.settings.display.trackMouse = 0;
    spectrogram.plot = pitch.plot = {50, 10, 1050, 110};
    spectrogram.WantSize({1000, 100});
    spectrum.WantSize({100, 100});
    EXPECT_TRUE(spectrogram.Show({0.0, 10000.0}));
    AnalysePitch(view, Stretch::kAll);
  }
  static std::string AxisOf(const AxisScale& axis) { return Joined(axis.low, axis.high); }
  static std::string RangeOf(const SampleRange& range) { return Joined(range.start, range.end); }

  CSpectrogramView spectrogram{document, Services()};
  CPitchView pitch{view, Services()};
  CFFTLPCView spectrum{document, Services()};
};

TEST_F(FollowingTest, AZoomShowsAtOnceAndIsComputedAtTheRest) {
  ZoomViewAroundSample(view, 0.0, 1);
  EXPECT_EQ(AxisOf(spectrogram.TimeAxis()), "0 500");
  EXPECT_EQ(AxisOf(pitch.TimeAxis()), "0 500");
  EXPECT_EQ(RangeOf(spectrogram.spectrogram().range), "0 10000") << "scaled until then";
  ASSERT_TRUE(spectrogram.UpdateDue());
  EXPECT_FALSE(pitch.UpdateDue()) << "its track is the main view's";
  spectrogram.Update();
  EXPECT_EQ(RangeOf(spectrogram.spectrogram().range), "0 5000");
  EXPECT_FALSE(spectrogram.UpdateDue());
  ZoomViewAroundSample(view, 0.0, 1);
  ZoomViewAroundSample(view, 0.0, -1);
  EXPECT_FALSE(spectrogram.UpdateDue()) << "back at what was computed";
  document.Notify(DocumentChange::kSamples);
  ZoomViewAroundSample(view, 0.0, -1);
  EXPECT_EQ(AxisOf(spectrogram.TimeAxis()), "0 500") << "not of the recording as it is now";
}

TEST_F(FollowingTest, SwitchedOffTheyKeepTheirStretch) {
  spectrogram.Toggle(WindowSwitch::kFollowView);
  ZoomViewAroundSample(view, 0.0, 2);
  EXPECT_EQ(AxisOf(spectrogram.TimeAxis()), "0 1000");
  EXPECT_FALSE(spectrogram.UpdateDue());
  EXPECT_EQ(AxisOf(pitch.TimeAxis()), "0 250") << "has a switch of its own";
  pitch.Toggle(WindowSwitch::kFollowView);
  ZoomViewAroundSample(view, 0.0, 1);
  EXPECT_EQ(AxisOf(pitch.TimeAxis()), "0 250");
  spectrogram.Toggle(WindowSwitch::kFollowView);
  EXPECT_EQ(AxisOf(spectrogram.TimeAxis()), "0 125") << "at once";
}

TEST_F(FollowingTest, TheWheelTurnsWhoeverHasTheStretch) {
  ZoomByWheel(spectrogram, 0.5, 1);
  EXPECT_EQ(Joined(view.channel().visibleStart.samples, view.channel().visibleEnd.samples),
            "2500 7500");
  ScrollByWheel(spectrogram, 1);
  EXPECT_EQ(AxisOf(spectrogram.TimeAxis()), "200 700") << "a line of the main view";
  spectrogram.Toggle(WindowSwitch::kFollowView);
  ZoomByWheel(spectrogram, 0.0, 1);
  EXPECT_EQ(AxisOf(spectrogram.TimeAxis()), "200 450");
  ScrollByWheel(spectrogram, -2);
  EXPECT_EQ(AxisOf(spectrogram.TimeAxis()), "250 500");
  ScrollByWheel(spectrogram, 100);
  EXPECT_EQ(AxisOf(spectrogram.TimeAxis()), "0 250") << "to the beginning";
  EXPECT_NEAR(view.channel().visibleStart.samples, 2000.0, 1e-9) << "alone";
  EXPECT_TRUE(spectrogram.UpdateDue());
}

TEST_F(FollowingTest, ASpectrumFollowsTheMarkerOnlyWhenToldTo) {
  ASSERT_TRUE(spectrum.Show({1000.0, {}}));
  PressAtTime(view, 300.0);
  EXPECT_FALSE(spectrum.UpdateDue());
  spectrum.Toggle(WindowSwitch::kFollowMarker);
  ASSERT_TRUE(spectrum.UpdateDue()) << "at the marker as it is";
  spectrum.Update();
  EXPECT_EQ(spectrum.place().position, 3000.0);
  EXPECT_FALSE(spectrum.UpdateDue());
  PressAtTime(view, 400.0);
  PressAtTime(view, 500.0);
  spectrum.Update();
  EXPECT_EQ(spectrum.place().position, 5000.0) << "the last one";
  spectrum.Toggle(WindowSwitch::kFollowMarker);
  PressAtTime(view, 600.0);
  EXPECT_FALSE(spectrum.UpdateDue());
}

}  // namespace
}  // namespace cantorix
