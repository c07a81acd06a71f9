// intensity_test.cpp - levels and their spreading against the plain walk over samples, at the
// settings of everyday use and at those where rounding, silence or short ranges show.
#include "analysis/intensity.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "analysis/frame_span.h"
#include "analysis/square_sum.h"
#include "analysis/test_signals.h"
#include "platform/numbers.h"
#include "settings/settings.h"
#include "support/cancelling_progress.h"

namespace cantorix {
namespace {

using testing::CopyingSource;
using testing::kInfinity;
using testing::kNan;
using testing::Noise;
using testing::Samples;
using testing::Whole;

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

PlainIntensity ComputePlainly(const Samples& x, const SampleRange& range, double rate,
                              const IntensitySettings& settings) {
  const double window = settings.windowMs * rate * 0.001 + 0.5;
  const double step = settings.stepMs * rate * 0.001;
  const double length = range.end - range.start;
  const auto frames = static_cast<std::int64_t>((length - window) / step);
  PlainIntensity plain;
  std::vector<double> levels;
  for (std::int64_t i = 0; i < frames; ++i) {
    const double p = static_cast<double>(i) * step;
    double sum = 0.0;
    for (const std::size_t j : PlainWalk(p, std::trunc(p + window))) {
      const auto place = static_cast<std::size_t>(range.start) + j;
      const double value = place < x.size() ? x[place] : 0;
      sum += value * value;
    }
    levels.push_back(10 * std::log10(sum / window));
    plain.maximum = std::max(plain.maximum, levels.back());
    plain.minimum = std::min(plain.minimum, levels.back());
  }
  if (settings.relative != 0) {
    for (double& level : levels) level -= plain.minimum;
    plain.maximum -= plain.minimum;
    plain.minimum = 0.0;
  }
  plain.track.resize(static_cast<std::size_t>(length));
  for (std::size_t i = 0; i < levels.size(); ++i) {  // later frames over earlier ones
    const double p = static_cast<double>(i) * step;
    const double bound = std::trunc(p + window);
    for (const std::size_t k : PlainWalk(p, bound)) plain.track.at(k) = levels[i];
    if (i + 1 < levels.size()) continue;
    std::fill(plain.track.begin() + static_cast<std::ptrdiff_t>(bound), plain.track.end(),
              levels[i]);
  }
  return plain;
}

std::vector<double> Values(const LevelTrack& track) {
  std::vector<double> values;
  for (std::int64_t k = 0; k < track.size(); ++k) values.push_back(track[k]);
  return values;
}

IntensityResult Compute(const SampleSource& samples, const SampleRange& range, double rate,
                        const IntensitySettings& settings) {
  NoProgress none;
  return ComputeIntensity(samples, range, rate, settings, none);
}

// NaN equals NaN; everything else to the last bit.
bool Same(const std::vector<double>& a, const std::vector<double>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); });
}

TEST(SpanOfFrame, SkipsTheIndexThatRoundingJumpsOverIsKept) {
  const FrameSpan span = SpanOfFrame(std::nextafter(512.0, 0.0), 10.0);
  EXPECT_EQ(span.first, 511);
  EXPECT_EQ(span.skipped, 512);
  EXPECT_FALSE(span.Holds(512));
}

TEST(ComputeIntensity, GivesTheDigitsOfThePlainMethod) {
  struct Row {
    double rate;
    SampleRange range;
    IntensitySettings settings;
  };
  const double jump = std::nextafter(512.0, 0.0);
  // At 1000 Hz a window is half a sample longer than its ms, a step as many samples.
  const Row rows[] = {
      {11025.0, {0.0, 30000.0}, {20.0, 10.0, 0}},
      {11025.0, {0.0, 30000.0}, {20.0, 10.0, 1}},
      {44100.0, {1234.7, 29876.2}, {25.0, 3.0, 0}},    // fractional ends
      {22050.5, {100.0, 20000.0}, {8.0, 20.0, 0}},     // gaps
      {48000.0, {0.0, 30000.0}, {0.0, 1.0, 0}},        // half a sample
      {8000.0, {0.0, 29999.0}, {1.0, 0.05, 1}},        // less than a sample a step
      {48000.0, {0.0, 200000.0}, {1500.0, 500.0, 0}},  // a frame longer than a block of the store
      {16000.0, {0.0, 500.0}, {20.0, 12.0, 0}},        // too short for a frame: zeros
      {16000.0, {25000.0, 36000.0}, {20.0, 10.0, 0}},  // past the end of the recording
      {1000.0, {0.0, 5400.0}, {551.25, 110.25, 0}},    // each sample in five frames
      {1000.0, {0.0, 1700.0}, {80.0, 80.0, 0}},        // side by side
      {1000.0, {0.0, 1700.0}, {20.0, 80.3, 0}},        // uncovered samples between frames
      {1000.0, {0.0, 160.0}, {5.0, 0.37, 0}},          // several frames start in one sample
      {1000.0, {0.0, 5000.0}, {30.0, jump, 0}},        // a skipped sample that no frame covers
      {1000.0, {0.0, 6000.0}, {700.0, jump, 0}},       // that an earlier frame covers
      {1000.0, {0.0, 6000.0}, {700.0, jump / 4.0, 0}},
      {1000.0, {0.0, 120.0}, {0.2, 10.0, 0}},  // frames without a sample
      {1000.0, {0.0, 30.0}, {20.0, 7.7, 0}},   // one frame and its tail
  };
  Samples x = testing::Speech(4);
  x.resize(30000);
  std::copy_n(Noise(3000, 32767).begin(), 3000, x.begin() + 27000);
  Samples longer = Noise(200000, 9000);
  for (const Row& row : rows) {
    const Samples& samples = row.range.end > 100000.0 ? longer : x;
    const auto plain = ComputePlainly(samples, row.range, row.rate, row.settings);
    const CopyingSource store(samples);
    const SpanSource memory(samples);
    for (const SampleSource* source :
         {static_cast<const SampleSource*>(&store), static_cast<const SampleSource*>(&memory)}) {
      const auto result = Compute(*source, row.range, row.rate, row.settings);
      ASSERT_TRUE(result.IntensityValid);
      EXPECT_EQ(result.IntensityLength, row.range.end - row.range.start);
      EXPECT_EQ(result.range.start, row.range.start);
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
  const auto result = Compute(SpanSource(square), Whole(square), 11000.0, {20.0, 10.0, 0});
  EXPECT_EQ(result.IntensityTrack[5], 10.0 * std::log10(220.0 * 32767.0 * 32767.0 / 220.5));
}

TEST(ComputeIntensity, SilentFramesAreInfiniteAndNotANumberWhenRelativeIsKept) {
  Samples x(3000, 1000);
  std::fill(x.begin() + 1000, x.begin() + 2000, std::int16_t{0});
  const auto absolute = Compute(SpanSource(x), Whole(x), 10000.0, {20.0, 10.0, 0});
  EXPECT_EQ(absolute.IntensityMin, -kInfinity);
  EXPECT_EQ(absolute.IntensityTrack[1400], -kInfinity);
  const auto relative = Compute(SpanSource(x), Whole(x), 10000.0, {20.0, 10.0, 1});
  EXPECT_EQ(relative.IntensityMin, 0.0);
  EXPECT_EQ(relative.IntensityMax, kInfinity);
  EXPECT_EQ(relative.IntensityTrack[100], kInfinity);
  EXPECT_TRUE(std::isnan(relative.IntensityTrack[1400]));
  const Samples silence(900, 0);
  EXPECT_EQ(Compute(SpanSource(silence), Whole(silence), 10000.0, {20.0, 10.0, 0}).IntensityMax,
            -1e9);
}

TEST(ComputeIntensity, RefusesSettingsThatNeverEndOrOutgrowTheRecording) {
  struct Row {
    double windowMs, stepMs, rate, end;
  };
  const Samples x(5000, 77);
  for (const Row& row :
       {Row{20.0, 0.0, 11025.0, 5e3}, Row{20.0, kNan, 11025.0, 5e3}, Row{kNan, 10.0, 11025.0, 5e3},
        Row{-9.0, 10.0, 11025.0, 5e3}, Row{20.0, 10.0, 0.0, 5e3}, Row{20.0, 1e-9, 11025.0, 5e3},
        Row{20.0, 10.0, 11025.0, 1e300}, Row{20.0, 10.0, 11025.0, kNan}}) {
    const auto result =
        Compute(SpanSource(x), {0.0, row.end}, row.rate, {row.windowMs, row.stepMs, 0});
    EXPECT_FALSE(result.IntensityValid) << row.windowMs << ' ' << row.stepMs << ' ' << row.rate;
    EXPECT_EQ(result.IntensityTrack.size(), 0);
  }
}

TEST(ComputeIntensity, FillsItsBarUnlessTheUserCancels) {
  const Samples x = Noise(20000, 3000);
  for (const int relative : {0, 1}) {
    const int passes = relative == 0 ? 2 : 3;
    const int steps = passes * 197 + 1;  // of 197 frames and the part of one that is left
    for (const int cancelAt : {1, 198, steps - 1, steps, steps + 1}) {
      CancellingProgress progress(cancelAt);
      const auto result =
          ComputeIntensity(SpanSource(x), Whole(x), 10000.0, {20.0, 10.0, relative}, progress);
      EXPECT_EQ(progress.texts,
                std::vector<std::string>{" Processing Intensity...(Press mouse to cancel)"});
      EXPECT_EQ(progress.totals[0], passes * (20000.0 - 200.5) / 100.0);
      EXPECT_EQ(progress.done.size(), std::min(cancelAt, steps));
      EXPECT_TRUE(std::is_sorted(progress.done.begin(), progress.done.end()));
      EXPECT_EQ(progress.done.back() == progress.totals[0], cancelAt >= steps);
      EXPECT_EQ(progress.endCount, 1);
      EXPECT_EQ(result.IntensityValid, cancelAt > steps) << cancelAt;
      EXPECT_EQ(result.IntensityTrack.size(), cancelAt > steps ? 20000 : 0);
    }
  }
}

TEST(AddSquares, IsExactAndThenRoundsInOrder) {
  EXPECT_EQ(SumOfSquares(Samples(100003, -32768)), std::int64_t{100003} << 30);
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
