// intensity_test.cpp - levels and their spreading against the plain walk over samples, at the
// settings of everyday use and at those where rounding, silence or short ranges show.
#include "analysis/intensity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "analysis/frame_span.h"
#include "analysis/square_sum.h"
#include "analysis/test_signals.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

using testing::CopyingSource;
using testing::Noise;
using testing::Samples;
using testing::Speech;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct PlainIntensity {
  std::vector<double> track;
  double maximum = -1e9;
  double minimum = 1e9;
};

// trunc(j) for j = start, start + 1.0, ... while j < bound.
std::vector<std::size_t> PlainWalk(double start, double bound) {
  std::vector<std::size_t> indices;
  double j = start;
  while (j < bound) {
    indices.push_back(static_cast<std::size_t>(j));
    j += 1.0;
  }
  return indices;
}

std::vector<double> SpreadPlainly(const std::vector<double>& levels, double step, double window,
                                  std::int64_t length) {
  std::vector<double> track(static_cast<std::size_t>(length), 0.0);
  for (std::size_t i = 0; i < levels.size(); ++i) {
    const double start = static_cast<double>(i) * step;
    const double bound = std::trunc(start + window);
    for (const std::size_t k : PlainWalk(start, bound)) track.at(k) = levels[i];
    if (i + 1 < levels.size()) continue;
    for (auto k = static_cast<std::size_t>(bound); k < track.size(); ++k) track[k] = levels[i];
  }
  return track;
}

PlainIntensity ComputePlainly(const Samples& x, double start, double end, double rate,
                              const IntensitySettings& settings) {
  const double window = settings.windowMs * rate * 0.001 + 0.5;
  const double step = settings.stepMs * rate * 0.001;
  const double length = end - start;
  const auto frames = static_cast<std::int64_t>((length - window) / step);
  PlainIntensity plain;
  std::vector<double> levels;
  for (std::int64_t i = 0; i < frames; ++i) {
    const double p = static_cast<double>(i) * step;
    double sum = 0.0;
    for (const std::size_t j : PlainWalk(p, std::trunc(p + window))) {
      const auto place = static_cast<std::size_t>(start) + j;
      const double value = place < x.size() ? x[place] : 0;
      sum += value * value;
    }
    const double level = 10 * std::log10(sum / window);
    if (level > plain.maximum) plain.maximum = level;
    if (level < plain.minimum) plain.minimum = level;
    levels.push_back(level);
  }
  if (settings.relative != 0) {
    for (double& level : levels) level -= plain.minimum;
    plain.maximum -= plain.minimum;
    plain.minimum = 0.0;
  }
  plain.track = SpreadPlainly(levels, step, window, static_cast<std::int64_t>(length));
  return plain;
}

std::vector<double> Values(const LevelTrack& track) {
  std::vector<double> values;
  for (std::int64_t k = 0; k < track.size(); ++k) values.push_back(track[k]);
  return values;
}

IntensityResult Compute(const SampleSource& samples, double start, double end, double rate,
                        const IntensitySettings& settings) {
  NoProgress none;
  return ComputeIntensity(samples, {start, end}, rate, settings, none);
}

// NaN equals NaN; everything else to the last bit.
bool Same(const std::vector<double>& a, const std::vector<double>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); });
}

TEST(SpanOfFrame, TakesTheIndicesOfThePlainWalk) {
  std::vector<double> starts{0.0, 0.25, 110.25, 1e-20, 0.5, 3.9999, 1023.5};
  for (const double whole : {1.0, 2.0, 5.0, 31.0, 32.0, 500.0, 512.0, 60000.0, 65536.0, 131071.0}) {
    double below = whole;
    for (int ulps = 0; ulps < 6; ++ulps) {
      starts.push_back(below);
      below = std::nextafter(below, 0.0);
    }
  }
  for (const double start : starts) {
    for (const double window : {0.3, 1.0, 1.9, 2.0, 3.5, 20.5, 600.0, 140000.25}) {
      const auto expected = PlainWalk(start, std::trunc(start + window));
      const FrameSpan span = SpanOfFrame(start, window);
      std::vector<std::size_t> indices;
      for (std::int64_t k = span.first; k < span.end; ++k) {
        if (span.Holds(k)) indices.push_back(static_cast<std::size_t>(k));
      }
      EXPECT_TRUE(indices == expected) << FormatExact(start) << ", window " << window;
    }
  }
}

TEST(SpanOfFrame, SkipsTheIndexThatRoundingJumpsOverIsKept) {
  const FrameSpan span = SpanOfFrame(std::nextafter(512.0, 0.0), 10.0);
  EXPECT_EQ(span.first, 511);
  EXPECT_EQ(span.skipped, 512);
  EXPECT_FALSE(span.Holds(512));
}

TEST(LevelTrack, ReadsAsIfEveryFrameHadBeenWrittenOut) {
  struct Row {
    double step, window;
    std::size_t frames;
    std::int64_t length;
  };
  const double jump = std::nextafter(512.0, 0.0);
  const Row rows[] = {
      {110.25, 221.0, 40, 4800},   // each sample in two frames
      {110.25, 551.75, 40, 5400},  // in five
      {80.0, 80.5, 20, 1700},      // side by side
      {80.3, 20.5, 20, 1700},      // uncovered samples between frames
      {0.37, 5.5, 400, 160},       // several frames start in one sample
      {jump, 30.5, 7, 5000},       // a skipped sample that no frame covers
      {jump, 700.5, 9, 6000},      // that an earlier frame covers
      {jump / 4.0, 700.5, 30, 6000},
      {10.0, 0.7, 10, 120},  // frames without a sample
      {7.7, 20.5, 1, 90},    // one frame and its tail
      {7.7, 20.5, 0, 90},    // none
  };
  for (const Row& row : rows) {
    std::vector<double> levels;
    for (std::size_t i = 0; i < row.frames; ++i) levels.push_back(10.0 + static_cast<double>(i));
    const LevelTrack track(levels, row.step, row.window, row.length);
    EXPECT_EQ(Values(track), SpreadPlainly(levels, row.step, row.window, row.length))
        << "step " << row.step << ", window " << row.window;
  }
}

TEST(ComputeIntensity, GivesTheDigitsOfThePlainMethod) {
  struct Row {
    double rate, start, end;
    IntensitySettings settings;
  };
  const Row rows[] = {
      {11025.0, 0.0, 30000.0, {20.0, 10.0, 0}},
      {11025.0, 0.0, 30000.0, {20.0, 10.0, 1}},
      {44100.0, 1234.7, 29876.2, {25.0, 3.0, 0}},  // fractional ends
      {22050.5, 100.0, 20000.0, {8.0, 20.0, 0}},   // gaps
      {48000.0, 0.0, 30000.0, {0.0, 1.0, 0}},      // half a sample
      {8000.0, 0.0, 29999.0, {1.0, 0.05, 1}},      // less than a sample a step
      {1000.0, 0.0, 30000.0, {700.0, 511.99999999999994, 0}},
      {16000.0, 0.0, 500.0, {20.0, 12.0, 0}},        // too short for a frame
      {16000.0, 25000.0, 36000.0, {20.0, 10.0, 0}},  // past the end of the recording
  };
  Samples x = Speech(4);
  x.resize(30000);
  std::copy_n(Noise(3000, 32767).begin(), 3000, x.begin() + 27000);
  for (const Row& row : rows) {
    const auto plain = ComputePlainly(x, row.start, row.end, row.rate, row.settings);
    const CopyingSource copies(x);
    const SpanSource memory(x);
    for (const SampleSource* source :
         {static_cast<const SampleSource*>(&copies), static_cast<const SampleSource*>(&memory)}) {
      const auto result = Compute(*source, row.start, row.end, row.rate, row.settings);
      ASSERT_TRUE(result.IntensityValid);
      EXPECT_EQ(result.IntensityLength, row.end - row.start);
      EXPECT_EQ(result.IntensityMax, plain.maximum);
      EXPECT_EQ(result.IntensityMin, plain.minimum);
      EXPECT_TRUE(Same(Values(result.IntensityTrack), plain.track))
          << row.rate << " Hz, window " << row.settings.windowMs << ", step "
          << row.settings.stepMs;
    }
  }
}

TEST(ComputeIntensity, DividesByHalfASampleMoreThanItSumsIsKept) {
  // A window of 20 ms at 11000 Hz sums 220 samples of full scale and divides by 220.5.
  Samples square(2000);
  for (std::size_t i = 0; i < square.size(); ++i) square[i] = i % 2 == 0 ? 32767 : -32767;
  const auto result = Compute(SpanSource(square), 0.0, 2000.0, 11000.0, {20.0, 10.0, 0});
  EXPECT_EQ(result.IntensityTrack[5], 10.0 * std::log10(220.0 * 32767.0 * 32767.0 / 220.5));
  EXPECT_NEAR(result.IntensityMax, 90.3, 0.02);
}

TEST(ComputeIntensity, SilentFramesAreInfiniteAndNotANumberWhenRelativeIsKept) {
  Samples x(3000, 1000);
  std::fill(x.begin() + 1000, x.begin() + 2000, std::int16_t{0});
  const auto absolute = Compute(SpanSource(x), 0.0, 3000.0, 10000.0, {20.0, 10.0, 0});
  EXPECT_EQ(absolute.IntensityMin, -kInfinity);
  EXPECT_EQ(absolute.IntensityTrack[1400], -kInfinity);
  const auto relative = Compute(SpanSource(x), 0.0, 3000.0, 10000.0, {20.0, 10.0, 1});
  EXPECT_EQ(relative.IntensityMin, 0.0);
  EXPECT_EQ(relative.IntensityMax, kInfinity);
  EXPECT_EQ(relative.IntensityTrack[100], kInfinity);
  EXPECT_TRUE(std::isnan(relative.IntensityTrack[1400]));
  const auto silence = Compute(SpanSource(Samples(900, 0)), 0.0, 900.0, 10000.0, {20.0, 10.0, 0});
  EXPECT_EQ(silence.IntensityMax, -1e9);
}

TEST(ComputeIntensity, WithoutAFrameIsAValidTrackOfZeros) {
  const auto result = Compute(SpanSource(Samples(300, 9)), 0.0, 300.0, 11025.0, {20.0, 10.0, 0});
  EXPECT_TRUE(result.IntensityValid);
  EXPECT_EQ(Values(result.IntensityTrack), std::vector<double>(300, 0.0));
}

TEST(ComputeIntensity, RefusesSettingsThatNeverEndOrOutgrowTheRecording) {
  const double nan = std::nan("");
  struct Row {
    double windowMs, stepMs, rate, end;
  };
  const Row rows[] = {
      {20.0, 0.0, 11025.0, 5000.0},     {20.0, -1.0, 11025.0, 5000.0}, {20.0, nan, 11025.0, 5000.0},
      {-9.0, 10.0, 11025.0, 5000.0},    {nan, 10.0, 11025.0, 5000.0},  {20.0, 10.0, 0.0, 5000.0},
      {20.0, 10.0, nan, 5000.0},        {20.0, 1e-9, 11025.0, 5000.0}, {20.0, 10.0, 11025.0, 1e300},
      {20.0, 10.0, 11025.0, kInfinity}, {20.0, 10.0, 11025.0, nan},
  };
  const Samples x(5000, 77);
  for (const Row& row : rows) {
    const auto result =
        Compute(SpanSource(x), 0.0, row.end, row.rate, {row.windowMs, row.stepMs, 0});
    EXPECT_FALSE(result.IntensityValid) << row.windowMs << ' ' << row.stepMs << ' ' << row.rate;
    EXPECT_EQ(result.IntensityTrack.size(), 0);
  }
}

TEST(ComputeIntensity, ShowsItsTextAndEndsWhenTheUserCancels) {
  struct Recorder : Progress {
    void Begin(std::string_view text, double total) override {
      begun = text;
      units = total;
    }
    bool Step(double done) override { return done >= cancelAt; }
    void End() override { ended = true; }
    std::string begun;
    double units = 0.0;
    double cancelAt = kInfinity;
    bool ended = false;
  };
  const Samples x = Noise(20000, 3000);
  for (const int relative : {0, 1}) {
    Recorder progress;
    progress.cancelAt = relative == 0 ? kInfinity : 50.0;
    const auto result =
        ComputeIntensity(SpanSource(x), {0.0, 20000.0}, 10000.0, {20.0, 10.0, relative}, progress);
    EXPECT_EQ(progress.begun, " Processing Intensity...(Press mouse to cancel)");
    EXPECT_EQ(progress.units, (relative == 0 ? 2.0 : 3.0) * (20000.0 - 200.5) / 100.0);
    EXPECT_TRUE(progress.ended);
    EXPECT_EQ(result.IntensityValid, relative == 0);
    EXPECT_EQ(result.IntensityTrack.size(), relative == 0 ? 20000 : 0);
  }
}

TEST(SumOfSquares, IsExactAtFullScale) {
  const Samples lowest(100003, -32768);
  EXPECT_EQ(SumOfSquares(lowest), std::int64_t{100003} << 30);
}

TEST(AddSquares, RoundsInOrderWhereIntegersAreNoLongerExact) {
  const Samples x = Noise(1000, 32767, 3);
  const double start = 9007199254740000.0;  // the border of exact integers falls inside
  double expected = start;
  for (const double value : x) expected += value * value;
  double sum = start;
  AddSquares(x, sum);
  EXPECT_EQ(sum, expected);
}

}  // namespace
}  // namespace cantorix
