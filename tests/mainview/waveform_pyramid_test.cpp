// waveform_pyramid_test.cpp - the picture's extents against those of the samples themselves.
#include "mainview/waveform_pyramid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace cantorix {
namespace {

constexpr double kPiece = WaveformPyramid::kPieceSamples;

std::vector<std::int16_t> Noise(std::size_t count) {
  std::mt19937 random(7);
  std::vector<std::int16_t> samples(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double swell = 0.5 + 0.5 * std::sin(static_cast<double>(i) * 1e-4);
    samples[i] = static_cast<std::int16_t>(swell * (static_cast<double>(random() % 65536) - 32768));
  }
  return samples;
}

SampleExtent Between(const std::vector<std::int16_t>& samples, double from, double to) {
  const double length = static_cast<double>(samples.size());
  const auto first = static_cast<std::size_t>(std::clamp(from, 0.0, length));
  const auto last = static_cast<std::size_t>(std::clamp(to, 0.0, length));
  return first < last ? ExtentOf(std::span(samples).subspan(first, last - first)) : SampleExtent{};
}

// The rule for one column, sample by sample.
SampleExtent PlainColumn(const std::vector<std::int16_t>& samples, double from, double to) {
  const double length = static_cast<double>(samples.size());
  if (to - from < 4.0 * kPiece) {
    return Between(samples, std::floor(from), std::max(std::floor(to), std::floor(from) + 1.0));
  }
  const auto rounded = [](double x) { return std::floor(x / kPiece + 0.5) * kPiece; };
  return Between(samples, rounded(from), to >= length ? length : rounded(to));
}

struct Stretch {
  const char* name;
  std::size_t length;
  double start, end;
  std::size_t columns;
};

class WaveformPyramidStretch : public testing::TestWithParam<Stretch> {};

TEST_P(WaveformPyramidStretch, HasTheExtentsOfItsSamples) {
  const Stretch& stretch = GetParam();
  const auto samples = Noise(stretch.length);
  const SpanSource source(samples);
  const WaveformPyramid pyramid(source);
  std::vector<SampleExtent> columns(stretch.columns);
  pyramid.Extents(source, stretch.start, stretch.end, columns);
  const double width = (stretch.end - stretch.start) / static_cast<double>(stretch.columns);
  for (std::size_t c = 0; c < columns.size(); ++c) {
    const double from = stretch.start + static_cast<double>(c) * width;
    const double to = stretch.start + static_cast<double>(c + 1) * width;
    EXPECT_EQ(columns[c], PlainColumn(samples, from, to)) << "column " << c;
  }
}

INSTANTIATE_TEST_SUITE_P(All, WaveformPyramidStretch,
                         testing::Values(Stretch{"Whole", 1000003, 0.0, 1000003.0, 97},
                                         Stretch{"OddStart", 1000003, 12345.6, 987654.3, 211},
                                         Stretch{"OnlyPieces", 65536, 0.0, 65536.0, 16},
                                         Stretch{"FewSamplesPerColumn", 5000, 100.5, 900.25, 333},
                                         Stretch{"ColumnsBelowOneSample", 5000, 100.5, 140.25, 333},
                                         Stretch{"BeyondTheEnd", 5000, 4000.0, 9000.0, 50},
                                         Stretch{"FarBeyondTheEnd", 300000, 200000.0, 900000.0, 50},
                                         Stretch{"BeforeTheStart", 5000, -300.0, 200.0, 50},
                                         Stretch{"ShorterThanAPiece", 100, 0.0, 100.0, 10},
                                         Stretch{"OneColumn", 777777, 0.0, 777777.0, 1}),
                         [](const auto& stretch) { return stretch.param.name; });

TEST(WaveformPyramid, IsTheSameInPortionsOfAnySize) {
  const auto samples = Noise(100001);
  const SpanSource source(samples);
  WaveformPyramid portions;
  std::mt19937 random(3);
  for (std::size_t at = 0; at < samples.size();) {
    const std::size_t count = std::min<std::size_t>(random() % 1000, samples.size() - at);
    portions.Append(std::span(samples).subspan(at, count));
    at += count;
  }
  std::vector<SampleExtent> whole(20), inPortions(20);
  WaveformPyramid(source).Extents(source, 0.0, 100001.0, whole);
  portions.Extents(source, 0.0, 100001.0, inPortions);
  EXPECT_EQ(whole, inPortions);
  EXPECT_EQ(portions.Whole(), ExtentOf(samples));
}

TEST(WaveformPyramid, OfNothingHasNoExtents) {
  const SpanSource source({});
  std::vector<SampleExtent> columns(3);
  WaveformPyramid(source).Extents(source, 0.0, 10.0, columns);
  for (const SampleExtent& column : columns) EXPECT_TRUE(column.empty());
  EXPECT_TRUE(WaveformPyramid(source).Whole().empty());
}

}  // namespace
}  // namespace cantorix
