// window_log_test.cpp - the rows that the analysis windows enter into the log.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "analysisview/fft_lpc_log.h"
#include "analysisview/spectrogram_log.h"

namespace cantorix {

namespace {

using ::testing::ElementsAre;

Spectrum FourPoints() {
  Spectrum spectrum;
  spectrum.fftDb = {10.0, 20.25, 30.0, 5.0};
  spectrum.lpcDb = {1.0, 2.0, 3.0, 4.0};
  spectrum.maxHz = 400.0;
  spectrum.formants.frequencyHz = {250.55, 350.5, -1.0, -1.0, -1.0};
  spectrum.formants.bandwidthHz = {60.5, 70.5, -1.0, -1.0, -1.0};
  return spectrum;
}

// "source: heading | cells" of each row.
std::vector<std::string> TextsOf(const std::vector<LogEntry>& entries) {
  std::vector<std::string> texts;
  for (const LogEntry& entry : entries) {
    texts.push_back(entry.source + ": " + entry.heading + " |");
    for (const std::string& cell : entry.columns) texts.back() += " " + cell;
  }
  return texts;
}

TEST(FftLpcLog, HasOneDecimalOfWhatIsUnderTheMarkerOfTheFormantsAndOfEveryStep) {
  const Spectrum spectrum = FourPoints();
  const auto marker = [&](double hz) { return FftLpcMarkerEntry("talk.wav", spectrum, hz); };
  const std::string here = "talk.wav: FFT/LPC Marker Entry: freq., FFT_dB | ";
  EXPECT_THAT(
      TextsOf({marker(199.9), marker(350.0), marker(399.9999999999), marker(400.0), marker(-1.0)}),
      ElementsAre(here + "199.9 20.2", here + "350.0 5.0", here + "400.0 5.0", here + "400.0 0.0",
                  here + "-1.0 0.0"));
  EXPECT_THAT(
      TextsOf({FftLpcFormantsEntry("talk.wav", spectrum)}),
      ElementsAre("talk.wav: FFT/LPC Formants Entry: F1, F2, F3, F4, F5, BW1, BW2, BW3, BW4, BW5 "
                  "| 250.6 350.5 -1.0 -1.0 -1.0 60.5 70.5 -1.0 -1.0 -1.0"));
  const std::string frame = "talk.wav: FFT/LPC Entire Frame Entry: freq., FFT_dB, LPC_dB | ";
  EXPECT_THAT(
      TextsOf(FftLpcEntireFrameEntries("talk.wav", spectrum, 150)),
      ElementsAre(frame + "0.0 10.0 1.0", frame + "150.0 20.2 2.0", frame + "300.0 5.0 4.0"));
  EXPECT_EQ(FftLpcEntireFrameEntries("", spectrum, 200).size(), 2U) << "below the top";
  EXPECT_EQ(FftLpcEntireFrameEntries("", spectrum, 0).size(), 400U) << "never endless";
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

TEST(SpectrogramLog, RowsAreInTheTimeBase) {
  TwoColumns two;
  for (const bool seconds : {false, true}) {
    two.context.timeFactor = seconds ? 0.001 : 1.0;
    const auto time = [seconds](const char* ms, const char* s) { return seconds ? s : ms; };
    EXPECT_THAT(TextsOf({SpectrogramMarkerEntry(two.context, 1234.5, 700.0)}),
                ElementsAre(std::string("talk.wav: Spec. Marker Entry: time, frequency | ") +
                            time("1234.5", "1.2") + " 700.0"));
    EXPECT_THAT(
        TextsOf(SpectrogramFormantsEntries(two.context, two.spectrogram, 299.0)),
        ElementsAre(std::string("talk.wav: Spec. Formants Entry: time, F1, F2, F3, F4, F5 | ") +
                    time("299.0", "0.3") + " 500.0 1500.0 - - -"))
        << "none is not silent";
    const std::string all = "talk.wav: Spec. Formants All Entry: time, F1, F2, F3, F4, F5 | ";
    EXPECT_THAT(TextsOf(SpectrogramFormantsAllEntries(two.context, two.spectrogram)),
                ElementsAre(all + time("100.0", "0.1") + " 500.0 1500.0 - - -",
                            all + time("300.0", "0.3") + " 0.0 0.0 0.0 0.0 0.0"));
  }
}

TEST(SpectrogramLog, EntireFrameIsTheColumnUnderTheCursor) {
  TwoColumns two;
  const std::string frame = "talk.wav: Spec. Entire Frame Entry: frequency, dB | ";
  EXPECT_THAT(TextsOf(SpectrogramEntireFrameEntries(two.context, two.spectrogram, 300.0)),
              ElementsAre(frame + "0.0 3.0", frame + "500.0 4.0"));
  const auto noneAt = [&two](double ms) {
    return SpectrogramEntireFrameEntries(two.context, two.spectrogram, ms).empty() &&
           SpectrogramFormantsEntries(two.context, two.spectrogram, ms).empty();
  };
  EXPECT_TRUE(noneAt(99.0) && noneAt(500.0));
  EXPECT_EQ(LevelAt(two.spectrogram, 2.0, 300.0, 999.0), std::nullopt) << "not computed";
  two.spectrogram.outcome = SpectrogramOutcome::kComputed;
  for (const auto& [ms, hz, levelDb] : {std::tuple{300.0, 999.0, 4.0},
                                        {300.0, 1000.0, -1.0},
                                        {300.0, -1.0, -1.0},
                                        {99.0, 1.0, -1.0},
                                        {500.0, 1.0, -1.0}}) {
    EXPECT_EQ(LevelAt(two.spectrogram, 2.0, ms, hz).value_or(-1.0), levelDb) << ms << ' ' << hz;
  }
  two.spectrogram.levels.reset();
  two.spectrogram.formants.clear();
  EXPECT_TRUE(noneAt(300.0));
}

}  // namespace
}  // namespace cantorix
