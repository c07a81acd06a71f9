// sample_recording_test.cpp - whether a measurement can find in the sample recording what its
// truth tables promise, judged by the textbook measurements of measure.h.
#include "synth/sample_recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <sstream>

#include "tools/measure.h"

namespace cantorix::synth {
namespace {

using Row = std::map<std::string, std::string>;

// The rows of a tab-separated table by the names of its header line.
std::vector<Row> Rows(const std::string& table) {
  std::vector<std::vector<std::string>> lines;
  std::istringstream text(table);
  for (std::string line; std::getline(text, line);) {
    std::istringstream cells(line);
    lines.emplace_back();
    for (std::string cell; std::getline(cells, cell, '\t');) lines.back().push_back(cell);
  }
  std::vector<Row> rows;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    rows.emplace_back();
    for (std::size_t j = 0; j < lines[0].size(); ++j) rows.back()[lines[0][j]] = lines[i].at(j);
  }
  return rows;
}

double Number(const Row& row, const std::string& column) { return std::stod(row.at(column)); }

class SampleRecordingTest : public ::testing::Test {
 protected:
  std::int64_t SampleAt(double ms) const { return std::llround(ms * recording_.rateHz / 1000.0); }
  // Mean square of the 10 ms around a time.
  double Energy(double ms) const {
    double sum = 0.0;
    const std::int64_t half = SampleAt(5.0);
    for (std::int64_t n = SampleAt(ms) - half; n < SampleAt(ms) + half; ++n) {
      const double x = recording_.samples.at(static_cast<std::size_t>(n));
      sum += x * x;
    }
    return sum / static_cast<double>(2 * half);
  }

  const SampleRecording recording_ = MakeSampleRecording();
};

TEST_F(SampleRecordingTest, PeaksNearMinusThreeDecibelsAndRestsInQuietNoise) {
  int peak = 0;
  for (const std::int16_t x : recording_.samples) peak = std::max(peak, std::abs(int{x}));
  EXPECT_NEAR(20.0 * std::log10(peak / 32768.0), -3.0, 0.1);

  bool noiseSeen = false;
  for (std::int64_t n = 0; n < SampleAt(100.0); ++n) {
    const int x = recording_.samples[static_cast<std::size_t>(n)];
    noiseSeen = noiseSeen || x != 0;
    EXPECT_LE(std::abs(x), 6);
  }
  EXPECT_TRUE(noiseSeen);
}

TEST_F(SampleRecordingTest, VowelsAreFarAboveOnePercentOfTheLargestEnergyAndPausesBelow) {
  double largest = 0.0;
  for (int ms = 10; ms < recording_.durationMs() - 10.0; ms += 10) {
    largest = std::max(largest, Energy(ms));
  }
  for (const auto& [startMs, vowel] : recording_.vowels) {
    for (int ms = 40; ms <= vowel.durationMs - 50.0; ms += 10) {
      EXPECT_GT(Energy(startMs + ms), 0.03 * largest) << vowel.name << " " << ms;
    }
    EXPECT_LT(Energy(startMs + vowel.durationMs + 60.0), 1e-4 * largest) << vowel.name;
  }
}

TEST_F(SampleRecordingTest, PitchTableIsWhatACorrelationFinds) {
  const std::vector<Row> rows = Rows(PitchTruthTable(recording_));
  ASSERT_EQ(rows.size(), static_cast<std::size_t>(std::ceil(recording_.durationMs() / 10.0)));
  // Six rows in from an edge of a vowel, where the sound is full.
  constexpr std::size_t kEdge = 6;
  std::size_t judged = 0;
  double lowest = 1e9;
  double highest = 0.0;
  for (std::size_t i = kEdge; i + kEdge < rows.size(); ++i) {
    const double hz = Number(rows[i], "pitch_hz");
    if (hz == 0.0 || Number(rows[i - 4], "pitch_hz") == 0.0 ||
        Number(rows[i + kEdge], "pitch_hz") == 0.0) {
      continue;
    }
    const double ms = Number(rows[i], "time_ms");
    const double found =
        testing::CorrelationPitch(recording_.samples, SampleAt(ms), recording_.rateHz);
    EXPECT_NEAR(found / hz, 1.0, 0.004) << ms << " ms, " << hz << " Hz";
    lowest = std::min(lowest, hz);
    highest = std::max(highest, hz);
    ++judged;
  }
  EXPECT_GT(judged, 300U);
  EXPECT_LT(lowest, 100.0);
  EXPECT_GT(highest, 250.0);
}

TEST_F(SampleRecordingTest, FormantTableIsWhatLinearPredictionFinds) {
  constexpr int kOrder = 14;
  const std::vector<Row> rows = Rows(FormantTruthTable(recording_));
  ASSERT_EQ(rows.size(), 7U);
  for (const Row& row : rows) {
    const std::int64_t middle = SampleAt(Number(row, "middle_ms"));
    for (const std::size_t length : {256U, 512U, 1024U}) {
      for (const double preEmphasis : {0.0, 0.98}) {
        const std::vector<double> peaks = testing::EnvelopePeaks(
            recording_.samples, middle, length, kOrder, preEmphasis, recording_.rateHz);
        ASSERT_GE(peaks.size(), 3U) << row.at("name");
        for (std::size_t i = 0; i < 3; ++i) {
          const double truth = Number(row, "F" + std::to_string(i + 1) + "_hz");
          EXPECT_NEAR(peaks[i] / truth, 1.0, 0.03)
              << row.at("name") << " F" << i + 1 << ", " << length << " points, " << preEmphasis;
        }
      }
    }
  }
}

TEST_F(SampleRecordingTest, GlidesStayBelowSeventyHertzPerSecond) {
  for (const auto& [startMs, vowel] : recording_.vowels) {
    for (int ms = 10; ms <= vowel.durationMs; ms += 10) {
      EXPECT_LT(std::fabs(vowel.pitch.Hz(ms) - vowel.pitch.Hz(ms - 10.0)), 0.7) << vowel.name;
    }
  }
}

}  // namespace
}  // namespace cantorix::synth
