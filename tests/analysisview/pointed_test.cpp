// pointed_test.cpp - the line of values under the pointer, against values that the test puts there.
#include "analysisview/pointed.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/pitch_view.h"
#include "analysisview/spectrogram_view.h"
#include "document/label.h"
#include "platform/numbers.h"
#include "settings/settings.h"
#include "window_fixture.h"

namespace cantorix {
namespace {

class PointedTest : public MainViewTest {
 protected:
  // A track of the whole recording.
  void HoldTrack(std::vector<double> hz) {
    view.pitch.range = {0.0, 10000.0};
    view.pitch.PitchFrameCount = static_cast<double>(hz.size());
    view.pitch.PitchValid = true;
    hz.resize(hz.size() + 5);
    view.pitch.PitchTrack = std::move(hz);
  }
  std::string TextAt(std::int32_t x, std::int32_t y) {
    const auto pointed = PointedIn(view, x, y);
    return pointed ? pointed->text : "nothing";
  }
  std::string TextAt(const AnalysisWindow& window, std::int32_t x, std::int32_t y) {
    const auto pointed = PointedIn(window, x, y);
    return pointed ? pointed->text : "nothing";
  }
};

TEST_F(PointedTest, TheMainViewTellsSampleTracksAndLabel) {
  document.channel().samples.samples()[1230] = -321;
  document.channel().referenceLevel = 4.0;
  EXPECT_EQ(TextAt(163, 300), "123.0 ms  amp -325  pitch \u2013  int \u2013");
  HoldTrack({0.0, 203.7, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0});
  Tier& tier = document.channel().tiers[1];
  tier.inUse = true;
  for (const auto& [ms, text] : {std::pair{50.0, "front"}, {400.0, "back"}}) {
    tier.labels.push_back({.text = text, .timeMs = ms});
  }
  document.Notify(DocumentChange::kLabels);
  const std::int32_t inTier = view.layout.tier(1).top;
  const std::string values = "123.0 ms  amp -325  pitch 203.7 Hz  int \u2013";
  EXPECT_EQ(TextAt(163, view.layout.audio.top), values);
  EXPECT_EQ(TextAt(163, inTier), values + "  'front'");
  EXPECT_EQ(TextAt(163, view.layout.tier(1).bottom), values);
  EXPECT_NE(TextAt(90, inTier).find("  'front'"), std::string::npos) << "at its own time";
  EXPECT_EQ(TextAt(89, inTier).find('\''), std::string::npos) << "before the first one";
  document.settings.display.timeBase = 1;
  EXPECT_EQ(TextAt(163, inTier).substr(0, 9), "0.123 s  ");
  document.fileChannel = document.fileChannels = 2;
  EXPECT_EQ(StretchText(view),
            "channel 2 of 2 \u00b7 10000 Hz \u00b7 1.000 s \u00b7 shown 0.000 s \u2013 1.000 s");
  for (const auto& [x, y] : {std::pair{39, 300}, {1040, 300}, {163, -1}}) {
    EXPECT_EQ(TextAt(x, y), "nothing") << x << ' ' << y;
  }
  EXPECT_EQ(TextAt(163, view.layout.timeAxis.top), "nothing");
}

TEST_F(PointedTest, AnalysesTellWhatTheirPictureHasThere) {
  CSpectrogramView spectrogram(document, Services());
  spectrogram.plot = {50, 10, 150, 110};
  EXPECT_EQ(TextAt(spectrogram, 60, 20), "nothing") << "not computed";
  const auto samples = document.channel().samples.samples();
  std::ranges::fill(samples.subspan(5000), std::int16_t{0});
  spectrogram.WantSize({100, 100});
  document.settings.spectrogram.rangeHz = 5000;
  document.settings.spectrogram.trackFormants = 1;
  ASSERT_TRUE(spectrogram.Show({0.0, 10000.0}));
  // Noise is as loud as anything and has formants; behind it is silence.
  EXPECT_THAT(TextAt(spectrogram, 60, 59),
              ::testing::MatchesRegex("100.0 ms  2500 Hz  [0-9]+[.][0-9] dB  F1 [0-9]{2,4}  F2 "
                                      "[0-9]{3,4}  F3 .*  F4 .*  F5 .*"));
  EXPECT_THAT(TextAt(spectrogram, 60, 59), ::testing::Not(::testing::HasSubstr("65535")));
  EXPECT_EQ(TextAt(spectrogram, 130, 59),
            "800.0 ms  2500 Hz  0.0 dB  F1 \u2013  F2 \u2013  F3 \u2013  F4 \u2013  F5 \u2013");
  EXPECT_EQ(PointedIn(spectrogram, 60, 59)->ms, 100.0);
  EXPECT_NE(TextAt(spectrogram, 50, 59).find("  F5 "), std::string::npos);
  EXPECT_EQ(TextAt(spectrogram, 150, 59), "nothing");

  HoldTrack({150.0, 150.0, 150.0, 150.0, 150.0, 0.0, 150.0, 150.0, 150.0, 150.0});
  CPitchView pitch(view, Services());
  pitch.plot = {50, 10, 550, 110};
  EXPECT_EQ(TextAt(pitch, 200, 50), "300.0 ms  150.0 Hz  \u2013");
  EXPECT_EQ(TextAt(pitch, 325, 50), "550.0 ms  \u2013  \u2013");

  CFFTLPCView spectrum(document, Services());
  spectrum.plot = {50, 10, 150, 110};
  spectrum.WantSize({100, 100});
  ASSERT_TRUE(spectrum.Show({.position = 3000.0, .selection = {}}));
  const Spectrum& values = spectrum.spectrum();
  const auto half = static_cast<std::size_t>(50);
  EXPECT_EQ(TextAt(spectrum, 100, 50), std::to_string(std::lround(values.maxHz / 2.0)) +
                                           " Hz  FFT " + FormatOneDecimal(values.fftDb[half]) +
                                           " dB  LPC " + FormatOneDecimal(values.lpcDb[half]) +
                                           " dB  at 300.0 ms");
  EXPECT_FALSE(PointedIn(spectrum, 100, 50)->ms);
  CutTo(5000);
  EXPECT_EQ(TextAt(spectrum, 100, 50), "nothing") << "of samples that are gone";
}

}  // namespace
}  // namespace cantorix
