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

// The rule for one column, sample by sample.
SampleExtent PlainColumn(const std::vector<std::int16_t>& samples, double from, double to) {
  const double length = static_cast<double>(samples.size());
  const bool fine = to - from < 4.0 * kPiece;
  const auto border = [&](double x) {
    return std::clamp(fine ? std::floor(x) : std::floor(x / kPiece + 0.5) * kPiece, 0.0, length);
  };
  const auto first = static_cast<std::size_t>(border(from));
  const double end = fine ? std::max(to, std::floor(from) + 1.0) : to;
  const auto last = static_cast<std::size_t>(!fine && to >= length ? length : border(end));
  return first < last ? ExtentOf(std::span(samples).subspan(first, last - first)) : SampleExtent{};
}

TEST(WaveformPyramid, HasTheExtentsOfItsSamples) {
  const struct {
    const char* name;
    std::size_t length;
    double start, end;
    std::size_t columns;
  } stretches[] = {{"whole", 1000003, 0.0, 1000003.0, 97},
                   {"odd start", 1000003, 12345.6, 987654.3, 211},
                   {"only pieces", 65536, 0.0, 65536.0, 16},
                   {"few samples per column", 5000, 100.5, 900.25, 333},
                   {"columns below one sample", 5000, 100.5, 140.25, 333},
                   {"beyond the end", 5000, 4000.0, 9000.0, 50},
                   {"far beyond the end", 300000, 200000.0, 900000.0, 50},
                   {"before the start", 5000, -300.0, 200.0, 50},
                   {"shorter than a piece", 100, 0.0, 100.0, 10},
                   {"of nothing", 0, 0.0, 10.0, 3},
                   {"one column", 777777, 0.0, 777777.0, 1}};
  for (const auto& stretch : stretches) {
    const auto samples = Noise(stretch.length);
    const SpanSource source(samples);
    std::vector<SampleExtent> columns(stretch.columns);
    WaveformPyramid(source).Extents(source, stretch.start, stretch.end, columns);
    const double width = (stretch.end - stretch.start) / static_cast<double>(stretch.columns);
    for (std::size_t c = 0; c < columns.size(); ++c) {
      const double from = stretch.start + static_cast<double>(c) * width;
      const double to = stretch.start + static_cast<double>(c + 1) * width;
      EXPECT_EQ(columns[c], PlainColumn(samples, from, to)) << stretch.name << ", column " << c;
    }
  }
}

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
  EXPECT_TRUE(WaveformPyramid().Whole().empty());
}

}  // namespace
}  // namespace cantorix
