// window_log_test.cpp - the rows that the analysis windows enter into the log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysisview/fft_lpc_log.h"
#include "analysisview/spectrogram_log.h"

namespace cantorix {

namespace {

using ::testing::ElementsAre;

Spectrum FourPoints() {
  Spectrum spectrum;
  spectrum.fftDb = {10.0, 20.25, 30.0, 0.0};
  spectrum.lpcDb = {1.0, 2.0, 3.0, 4.0};
  spectrum.maxHz = 400.0;
  spectrum.formants.frequencyHz = {250.55, 350.5, -1.0, -1.0, -1.0};
  spectrum.formants.bandwidthHz = {60.5, 70.5, -1.0, -1.0, -1.0};
  return spectrum;
}

TEST(FftLpcLog, HasOneDecimalOfWhatIsUnderTheMarkerOfTheFormantsAndOfEveryStep) {
  const LogEntry marker = FftLpcMarkerEntry("talk.wav", FourPoints(), 199.9);
  EXPECT_EQ(marker.source + ": " + marker.heading, "talk.wav: FFT/LPC Marker Entry: freq., FFT_dB");
  EXPECT_THAT(marker.columns, ElementsAre("199.9", "20.2"));
  EXPECT_THAT(FftLpcMarkerEntry("", FourPoints(), 400.0).columns, ElementsAre("400.0", "0.0"));
  EXPECT_THAT(FftLpcMarkerEntry("", FourPoints(), -1.0).columns, ElementsAre("-1.0", "0.0"));

  const LogEntry formants = FftLpcFormantsEntry("talk.wav", FourPoints());
  EXPECT_EQ(formants.heading,
            "FFT/LPC Formants Entry: F1, F2, F3, F4, F5, BW1, BW2, BW3, BW4, BW5");
  EXPECT_THAT(formants.columns, ElementsAre("250.6", "350.5", "-1.0", "-1.0", "-1.0", "60.5",
                                            "70.5", "-1.0", "-1.0", "-1.0"));

  const auto rows = FftLpcEntireFrameEntries("talk.wav", FourPoints(), 150);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].heading, "FFT/LPC Entire Frame Entry: freq., FFT_dB, LPC_dB");
  EXPECT_THAT(rows[1].columns, ElementsAre("150.0", "20.2", "2.0"));
  EXPECT_THAT(rows[2].columns, ElementsAre("300.0", "0.0", "4.0"));
  EXPECT_EQ(FftLpcEntireFrameEntries("", FourPoints(), 200).size(), 2U) << "below the top";
  EXPECT_EQ(FftLpcEntireFrameEntries("", FourPoints(), 0).size(), 400U) << "never endless";
  EXPECT_TRUE(FftLpcEntireFrameEntries("", {}, 10).empty());
}

// Two columns of 100 samples each, at 2 ms a sample.
struct TwoColumns {
  TwoColumns() {
    spectrogram.range = {50.0, 250.0};
    spectrogram.columns = 2;
    spectrogram.rows = 2;
    spectrogram.maxHz = 1000.0;
    spectrogram.levels.reset(new double[4]{1.0, 2.0, 3.0, 4.0});
    spectrogram.formants = {{500, 1500, 65535, 65535, 65535}, {0, 0, 0, 0, 0}};
  }
  Spectrogram spectrogram;
  SpectrogramLogContext context{"talk.wav", 2.0, 1.0};
};

// Times in milliseconds, then in seconds.
TEST(SpectrogramLog, RowsAreInTheTimeBase) {
  TwoColumns two;
  struct Row {
    double factor;
    const char *markerMs, *formantsMs, *allMs;
  };
  for (const Row& row : {Row{1.0, "1234.5", "299.0", "300.0"}, Row{0.001, "1.2", "0.3", "0.3"}}) {
    two.context.timeFactor = row.factor;
    const LogEntry marker = SpectrogramMarkerEntry(two.context, 1234.5, 700.0);
    EXPECT_EQ(marker.source + ": " + marker.heading,
              "talk.wav: Spec. Marker Entry: time, frequency");
    EXPECT_THAT(marker.columns, ElementsAre(row.markerMs, "700.0"));
    const auto here = SpectrogramFormantsEntries(two.context, two.spectrogram, 299.0);
    ASSERT_EQ(here.size(), 1U);
    EXPECT_EQ(here[0].heading, "Spec. Formants Entry: time, F1, F2, F3, F4, F5");
    EXPECT_THAT(here[0].columns, ElementsAre(row.formantsMs, "500.0", "1500.0", "-", "-", "-"))
        << "none is not silent";
    const auto all = SpectrogramFormantsAllEntries(two.context, two.spectrogram);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[1].heading, "Spec. Formants All Entry: time, F1, F2, F3, F4, F5");
    EXPECT_THAT(all[1].columns, ElementsAre(row.allMs, "0.0", "0.0", "0.0", "0.0", "0.0"));
  }
}

TEST(SpectrogramLog, EntireFrameIsTheColumnUnderTheCursor) {
  TwoColumns two;
  const auto rows = SpectrogramEntireFrameEntries(two.context, two.spectrogram, 300.0);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].heading, "Spec. Entire Frame Entry: frequency, dB");
  EXPECT_THAT(rows[0].columns, ElementsAre("0.0", "3.0"));
  EXPECT_THAT(rows[1].columns, ElementsAre("500.0", "4.0"));
  for (const double outside : {99.0, 500.0}) {
    EXPECT_TRUE(SpectrogramEntireFrameEntries(two.context, two.spectrogram, outside).empty());
    EXPECT_TRUE(SpectrogramFormantsEntries(two.context, two.spectrogram, outside).empty());
  }
  two.spectrogram.levels.reset();
  two.spectrogram.formants.clear();
  EXPECT_TRUE(SpectrogramEntireFrameEntries(two.context, two.spectrogram, 300.0).empty());
  EXPECT_TRUE(SpectrogramFormantsEntries(two.context, two.spectrogram, 300.0).empty());
}

}  // namespace
}  // namespace cantorix
