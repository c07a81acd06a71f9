// window_log_test.cpp - the rows that the analysis windows enter into the log.
#include <gtest/gtest.h>

#include <tuple>

#include "analysisview/fft_lpc_log.h"
#include "analysisview/spectrogram_log.h"
#include "support/expected_text.h"

namespace cantorix {

namespace {

Spectrum FourPoints() {
  Spectrum spectrum;
  spectrum.fftDb = {10.0, 20.25, 30.0, 5.0};
  spectrum.lpcDb = {1.0, 2.0, 3.0, 4.0};
  spectrum.maxHz = 400.0;
  spectrum.formants.frequencyHz = {250.55, 350.5, -1.0, -1.0, -1.0};
  spectrum.formants.bandwidthHz = {60.5, 70.5, -1.0, -1.0, -1.0};
  return spectrum;
}

// "source: heading | cells", a line for each row.
std::string TextOf(const std::vector<LogEntry>& entries) {
  std::string text;
  for (const LogEntry& entry : entries) {
    text += entry.source + ": " + entry.heading + " |";
    for (const std::string& cell : entry.columns) text += " " + cell;
    text += '\n';
  }
  return text;
}

TEST(FftLpcLog, HasOneDecimalOfWhatIsUnderTheMarkerOfTheFormantsAndOfEveryStep) {
  const Spectrum spectrum = FourPoints();
  std::vector<LogEntry> entries;
  for (const double hz : {199.9, 350.0, 399.9999999999, 400.0, -1.0}) {
    entries.push_back(FftLpcMarkerEntry("talk.wav", spectrum, hz));
  }
  entries.push_back(FftLpcFormantsEntry("talk.wav", spectrum));
  for (const int stepHz : {150, 200}) {
    const auto frame = FftLpcEntireFrameEntries("talk.wav", spectrum, stepHz);
    entries.insert(entries.end(), frame.begin(), frame.end());
  }
  ExpectText("analysisview/expected/SpectrumLog.txt", TextOf(entries));
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

// None is not silent: "-" is not 0.
TEST(SpectrogramLog, RowsAreInTheTimeBase) {
  TwoColumns two;
  EXPECT_EQ(ShownFormantText(6120, 5000.0), "\u2191 6120.0") << "in readouts alone";
  EXPECT_EQ(ShownFormantText(5000, 5000.0) + ShownFormantText(65535, 5000.0), "5000.0-");
  std::string text;
  for (const double factor : {1.0, 0.001}) {
    two.context.timeFactor = factor;
    text += TextOf({SpectrogramMarkerEntry(two.context, 1234.5, 700.0)}) +
            TextOf(SpectrogramFormantsEntries(two.context, two.spectrogram, 299.0)) +
            TextOf(SpectrogramFormantsAllEntries(two.context, two.spectrogram)) +
            TextOf(SpectrogramEntireFrameEntries(two.context, two.spectrogram, 300.0));
  }
  ExpectText("analysisview/expected/SpectrogramLog.txt", text);
}

TEST(SpectrogramLog, EntireFrameIsTheColumnUnderTheCursor) {
  TwoColumns two;
  const auto noneAt = [&two](double ms) {
    return SpectrogramEntireFrameEntries(two.context, two.spectrogram, ms).empty() &&
           SpectrogramFormantsEntries(two.context, two.spectrogram, ms).empty();
  };
  EXPECT_TRUE(noneAt(99.0) && noneAt(500.0));
  EXPECT_EQ(LevelAt(two.spectrogram, 2.0, 300.0, 999.0), std::nullopt) << "not computed";
  two.spectrogram.outcome = SpectrogramOutcome::kComputed;
  for (const auto& [ms, hz, levelDb] : {std::tuple{300.0, 999.0, 4.0},
                                        {300.0, 0.0, 3.0},
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
