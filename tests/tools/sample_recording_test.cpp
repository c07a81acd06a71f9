// sample_recording_test.cpp - a level, pauses and glides that let a measurement find what the truth
// tables promise; that the program finds it stands in tests/batch.
#include "synth/sample_recording.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace cantorix::synth {
namespace {

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

TEST_F(SampleRecordingTest, GlidesStayBelowSeventyHertzPerSecond) {
  for (const auto& [startMs, vowel] : recording_.vowels) {
    for (int ms = 10; ms <= vowel.durationMs; ms += 10) {
      EXPECT_LT(std::fabs(vowel.pitch.Hz(ms) - vowel.pitch.Hz(ms - 10.0)), 0.7) << vowel.name;
    }
  }
}

}  // namespace
}  // namespace cantorix::synth
