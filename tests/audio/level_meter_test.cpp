// level_meter_test.cpp - levels of known signals, and where they are clipped.
#include "audio/level_meter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace cantorix {
namespace {

constexpr std::uint32_t kRateHz = 8000;

std::vector<std::int16_t> Sine(double amplitude, double seconds) {
  std::vector<std::int16_t> samples(static_cast<std::size_t>(seconds * kRateHz));
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double phase = 2.0 * std::numbers::pi * 400.0 * static_cast<double>(i) / kRateHz;
    samples[i] = static_cast<std::int16_t>(std::lround(amplitude * std::sin(phase)));
  }
  return samples;
}

TEST(LevelMeter, MeasuresASineInDecibelsBelowFullScale) {
  struct Row {
    double amplitude, peakDb;
  };
  for (const Row& row : {Row{16384.0, -6.0206}, Row{3276.8, -20.0}, Row{32.768, -60.0}}) {
    LevelMeter meter(kRateHz);
    meter.Take(Sine(row.amplitude, 0.5));
    const LevelReading reading = meter.Reading();
    EXPECT_NEAR(reading.peakDb, row.peakDb, 0.1) << row.amplitude;
    EXPECT_NEAR(reading.heldPeakDb, row.peakDb, 0.1) << row.amplitude;
    EXPECT_NEAR(reading.rmsDb, row.peakDb - 3.0103, 0.1) << row.amplitude;
  }
  const LevelReading silence = LevelMeter(kRateHz).Reading();
  EXPECT_TRUE(std::isinf(silence.peakDb) && std::isinf(silence.rmsDb));
  EXPECT_EQ(silence.firstClipSample, -1);
}

TEST(LevelMeter, ForgetsThePeakAfterAThirdOfASecondAndTheHeldOneAfterOne) {
  struct Row {
    double silentSeconds;
    bool hasPeak, hasHeldPeak;
  };
  for (const Row& row : {Row{0.2, true, true}, Row{0.4, false, true}, Row{0.9, false, true},
                         Row{1.1, false, false}}) {
    LevelMeter meter(kRateHz);
    meter.Take(Sine(1000.0, 0.05));
    meter.Take(std::vector<std::int16_t>(static_cast<std::size_t>(row.silentSeconds * kRateHz)));
    const LevelReading reading = meter.Reading();
    EXPECT_EQ(std::isfinite(reading.peakDb), row.hasPeak) << row.silentSeconds;
    EXPECT_EQ(std::isfinite(reading.rmsDb), row.hasPeak) << row.silentSeconds;
    EXPECT_EQ(std::isfinite(reading.heldPeakDb), row.hasHeldPeak) << row.silentSeconds;
  }
}

TEST(LevelMeter, CountsThePlacesWithThreeSamplesAtFullScale) {
  LevelMeter meter(kRateHz);
  // Two in a row are none; signs may differ; a long run is one place, also across two calls.
  meter.Take(std::vector<std::int16_t>{32767, 32767, 0, 32766, 32766, 32766});
  EXPECT_EQ(meter.Reading().clips, 0);
  meter.Take(std::vector<std::int16_t>{5, 32767, -32768});
  meter.Take(std::vector<std::int16_t>{-32767, 32767, 32767, 32767, 32767});
  EXPECT_EQ(meter.Reading().clips, 1);
  EXPECT_EQ(meter.Reading().firstClipSample, 7);
  meter.Take(std::vector<std::int16_t>{0, 32767, 32767, 32767});
  EXPECT_EQ(meter.Reading().clips, 2);
  EXPECT_EQ(meter.Reading().firstClipSample, 7);
}

}  // namespace
}  // namespace cantorix
