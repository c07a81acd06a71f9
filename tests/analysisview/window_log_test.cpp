// window_log_test.cpp - the rows that the analysis windows enter into the log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysisview/fft_lpc_log.h"
#include "analysisview/spectrogram_log.h"

namespace cantorix {

void PrintTo(const LogEntry& entry, std::ostream* stream) {
  *stream << entry.heading;
  for (const auto& column : entry.columns) *stream << " | " << column;
}

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

TEST(FftLpcLog, MarkerHasTheFrequencyAndItsLevel) {
  const LogEntry entry = FftLpcMarkerEntry("talk.wav", FourPoints(), 199.9);
  EXPECT_EQ(entry.source, "talk.wav");
  EXPECT_EQ(entry.heading, "FFT/LPC Marker Entry: freq., FFT_dB");
  EXPECT_THAT(entry.columns, ElementsAre("199.9", "20.2"));
  EXPECT_THAT(FftLpcMarkerEntry("", FourPoints(), 400.0).columns, ElementsAre("400.0", "0.0"));
  EXPECT_THAT(FftLpcMarkerEntry("", FourPoints(), -1.0).columns, ElementsAre("-1.0", "0.0"));
}

TEST(FftLpcLog, FormantsComeBeforeTheirBandwidths) {
  EXPECT_THAT(FftLpcFormantsEntry("talk.wav", FourPoints()).columns,
              ElementsAre("250.6", "350.5", "-1.0", "-1.0", "-1.0", "60.5", "70.5", "-1.0", "-1.0",
                          "-1.0"));
}

TEST(FftLpcLog, EntireFrameHasARowForEachStepBelowTheTop) {
  const auto rows = FftLpcEntireFrameEntries("talk.wav", FourPoints(), 150);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_THAT(rows[1].columns, ElementsAre("150.0", "20.2", "2.0"));
  EXPECT_THAT(rows[2].columns, ElementsAre("300.0", "0.0", "4.0"));
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

TEST(SpectrogramLog, MarkerHasTimeAndFrequencyInTheTimeBase) {
  TwoColumns two;
  const LogEntry entry = SpectrogramMarkerEntry(two.context, 1234.5, 700.0);
  EXPECT_EQ(entry.heading, "Spec. Marker Entry: time, frequency");
  EXPECT_THAT(entry.columns, ElementsAre("1234.5", "700.0"));
  two.context.timeFactor = 0.001;
  EXPECT_THAT(SpectrogramMarkerEntry(two.context, 1234.5, 700.0).columns,
              ElementsAre("1.2", "700.0"));
}

TEST(SpectrogramLog, FormantsTellNoneFromSilent) {
  const TwoColumns two;
  const auto rows = SpectrogramFormantsEntries(two.context, two.spectrogram, 299.0);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_THAT(rows[0].columns, ElementsAre("299.0", "500.0", "1500.0", "-", "-", "-"));
  const auto all = SpectrogramFormantsAllEntries(two.context, two.spectrogram);
  ASSERT_EQ(all.size(), 2U);
  EXPECT_THAT(all[1].columns, ElementsAre("300.0", "0.0", "0.0", "0.0", "0.0", "0.0"));
}

TEST(SpectrogramLog, EntireFrameIsTheColumnUnderTheCursor) {
  const TwoColumns two;
  const auto rows = SpectrogramEntireFrameEntries(two.context, two.spectrogram, 300.0);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_THAT(rows[0].columns, ElementsAre("0.0", "3.0"));
  EXPECT_THAT(rows[1].columns, ElementsAre("500.0", "4.0"));
  for (const double outside : {99.0, 500.0}) {
    EXPECT_TRUE(SpectrogramEntireFrameEntries(two.context, two.spectrogram, outside).empty());
    EXPECT_TRUE(SpectrogramFormantsEntries(two.context, two.spectrogram, outside).empty());
  }
}

}  // namespace
}  // namespace cantorix
