// cepstral_pitch_test.cpp - single frames against the plain transcription, digit for digit, and
// the parts that make the fast frame: its levels, its search and its refusal to guess.
#include "analysis/cepstral_pitch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "analysis/decibel.h"
#include "analysis/fast_cepstrum.h"
#include "analysis/log_spectrum.h"
#include "analysis/plain_cepstrum.h"
#include "analysis/real_transform.h"

namespace cantorix {
namespace {

using testing::kInfinity;
using testing::kNan;
using testing::Samples;

constexpr CepstralOptions kDefaults{11025.0, 50.0, 500.0, 1024, 385};

// Compares the frames of a run that starts every `step` samples, to the end of the recording, as
// they come and all in the stated arithmetic. Returns the number of frames that took the exact path
// by themselves.
std::int64_t ExpectPlainDigits(const std::string& name, const Samples& recording,
                               const CepstralOptions& options, double step) {
  const SpanSource source(recording);
  SampleWindow samples(source, 0);
  CepstralWorkspace workspace(options), exact(options);
  exact.UseExactOnly();
  testing::PlainCepstrum plain(options);
  const auto total = static_cast<double>(recording.size());
  for (int i = 0; i * step < total; ++i) {
    const double t = i * step;
    const double expected = plain.Pitch(recording, t, total);
    EXPECT_EQ(CepstralPitch(samples, t, total, workspace), expected) << name << " at " << t;
    EXPECT_EQ(CepstralPitch(samples, t, total, exact), expected)
        << name << " at " << t << ", exact";
  }
  return workspace.exactFrames();
}

double OneFrame(const Samples& recording, const CepstralOptions& options, double start = 0.0) {
  const SpanSource source(recording);
  SampleWindow samples(source, 0);
  CepstralWorkspace workspace(options);
  return CepstralPitch(samples, start, static_cast<double>(recording.size()), workspace);
}

Samples PulseTrain(std::size_t count, std::size_t period) {
  Samples pulses(count);
  for (std::size_t i = 0; i < count; i += period) pulses[i] = 20000;
  return pulses;
}

TEST(CepstralPitch, HasTheDigitsOfThePlainSteps) {
  struct Row {
    std::string name;
    int decimation;
    CepstralOptions options;
    double step;
  };
  const Row rows[] = {
      {"wide window", 4, {11025.0, 50.0, 500.0, 2048, 1102}, 991.7},
      {"cut window", 4, {11025.0, 50.0, 500.0, 4096, 4090}, 4001.3},
      {"high rate", 1, {48000.0, 50.0, 500.0, 2048, 1680}, 4801.9},
      {"small transform", 6, {8000.0, 80.0, 400.0, 128, 128}, 177.7},
      {"range beyond the half", 4, {11025.0, 15.0, 400.0, 1024, 385}, 997.1},
      {"high end above ten times the rate", 4, {11025.0, 100.0, 200000.0, 1024, 385}, 997.1},
      {"two knots", 4, {11025.0, 495.0, 540.0, 1024, 385}, 331.3},
  };
  for (const Row& row : rows) {
    ExpectPlainDigits(row.name, testing::Speech(row.decimation), row.options, row.step);
  }
  EXPECT_LT(ExpectPlainDigits("speech", testing::Speech(4), kDefaults, 331.3), 5)
      << "decided without the exact path";
  Samples click(1000);
  click[0] = 1;  // a flat spectrum: nothing but rounding in the cepstrum
  ExpectPlainDigits("click", click, kDefaults, 110.25);
  ExpectPlainDigits("noise", testing::Noise(30000, 1000), kDefaults, 551.2);
  ExpectPlainDigits("least bits", testing::Noise(30000, 1), kDefaults, 551.2);
  ExpectPlainDigits("sine", testing::Sine(20000, 11025.0, 200.0, 30000.0), kDefaults, 551.2);
  ExpectPlainDigits("constant", Samples(5000, 12345), kDefaults, 551.2);
}

TEST(CepstralPitch, SurvivesRangesWithoutPointsAndRefusesOtherTransforms) {
  const auto pulses = PulseTrain(4000, 100);
  for (const CepstralOptions& empty : {
           CepstralOptions{11025.0, 500.0, 50.0, 1024, 385},  // ends exchanged
           {11025.0, 0.0, 0.0, 1024, 385},
           {11025.0, -50.0, 500.0, 1024, 385},
           {11025.0, 50.0, -500.0, 1024, 385},
           {11025.0, 50.0, kNan, 1024, 385},
           {kInfinity, 50.0, 500.0, 1024, 385},
           {0.0, 50.0, 500.0, 1024, 385},
           {11025.0, 5.0, 20.0, 128, 128},  // beyond the half
           {11025.0, 1e-300, 1e-299, 1024, 385},
           {11025.0, 50.0, 500.0, 1024, 0},
       }) {
    EXPECT_EQ(OneFrame(pulses, empty), 0.0) << empty.lowHz << ' ' << empty.highHz;
  }
  EXPECT_EQ(OneFrame(Samples(1000), kDefaults), 0.0);
  EXPECT_EQ(OneFrame({}, kDefaults), 0.0);
  EXPECT_GT(OneFrame(pulses, {11025.0, 1e-300, 500.0, 1024, 385}), 0.0);
  for (const std::int64_t points : {-1024, 0, 1, 64, 1000, 1025, 8192}) {
    EXPECT_EQ(OneFrame(pulses, {11025.0, 50.0, 500.0, points, 0}), -1.0) << points;
  }
  for (const std::int64_t window : {-1, 129}) {
    EXPECT_EQ(OneFrame(pulses, {11025.0, 50.0, 500.0, 128, window}), -1.0) << window;
  }
}

TEST(CepstralPitch, LeftOverFrameIsKept) {
  auto recording = PulseTrain(3000, 100);
  std::fill(recording.begin() + 2700, recording.end(), std::int16_t{0});
  const SpanSource source(recording);
  SampleWindow samples(source, 0);
  CepstralWorkspace workspace(kDefaults);
  const double voiced = CepstralPitch(samples, 2000.0, 3000.0, workspace);
  EXPECT_GT(voiced, 0.0);
  // Silence, but too close to the end to be copied: the frame before is heard again.
  EXPECT_EQ(CepstralPitch(samples, 2701.0, 3000.0, workspace), voiced);
  EXPECT_EQ(OneFrame(recording, kDefaults, 2701.0), 0.0);  // a fresh buffer holds zeros
  // A length with a fraction decides whether the last frame fits.
  CepstralWorkspace fresh(kDefaults);
  EXPECT_EQ(CepstralPitch(samples, 2310.25, 2700.0, fresh), 0.0);  // ends 0.25 beyond
  EXPECT_GT(CepstralPitch(samples, 2310.25, 2700.25, fresh), 0.0);
}

TEST(CepstralPitch, FineIndexOffsetIsKept) {
  // 10 rate / high = 226.6...: the grid starts at index 226 with the value of quefrency 22.
  const CepstralOptions options{11025.0, 50.0, 486.5, 1024, 385};
  EXPECT_EQ(FindQuefrencyRange(11025.0, 50.0, 486.5, 1024).fineFirst, 226);
  const double pitch = OneFrame(PulseTrain(4000, 100), options, 1000.0);
  EXPECT_NEAR(11025.0 / pitch, 100.6, 0.11);
}

TEST(FindLevelsFast, StaysWithinItsErrorOrRefuses) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> exponent(-29.9, 29.9);
  std::uniform_real_distribution<double> nearOne(-1e-3, 1e-3);
  std::vector<double> power{0.0, -0.0, 1.0, 2.0, 0.5, M_SQRT2, M_SQRT1_2, 1e-30, 1e30};
  for (int i = 0; i < 50000; ++i) {
    power.insert(power.end(), {std::pow(10.0, exponent(random)), 1.0 + nearOne(random)});
  }
  std::vector<double> levels(power.size());
  ASSERT_TRUE(FindLevelsFast(power, levels));
  double worst = 0.0;
  for (std::size_t i = 0; i < power.size(); ++i) {
    const double exact = PowerDb(power[i]);
    worst = std::max(worst, std::abs(levels[i] - exact) / (std::abs(exact) + 1.0));
  }
  EXPECT_LT(worst, 16.0 * 0x1p-53);  // a quarter of what kFastLevelError grants
  for (const double odd : {1e-31, 5e-324, 1e31, kInfinity, kNan, -1.0}) {
    power.assign(64, 1.0);
    power[37] = odd;
    EXPECT_FALSE(FindLevelsFast(power, levels)) << odd;
  }
}

// |X[k]|^2 by the plain steps.
std::vector<double> PlainPowersOf(std::vector<double> values, int m) {
  values.resize(std::size_t{1} << m);
  std::vector<double> im(values.size());
  testing::PlainFft(values, im, m);
  for (std::size_t k = 0; k < im.size(); ++k) values[k] = values[k] * values[k] + im[k] * im[k];
  return values;
}

std::vector<double> PlainCepstrumOf(const std::vector<double>& frame, int m) {
  auto levels = PlainPowersOf(frame, m);
  for (double& level : levels) level = PowerDb(level);
  return PlainPowersOf(levels, m);
}

TEST(FastCepstrum, StaysWithinItsErrorOrRefuses) {
  struct Row {
    std::string name;
    testing::Samples samples;
  };
  const Row rows[] = {{"speech", testing::Speech(4)},
                      {"noise", testing::Noise(9000, 1000)},
                      {"least bits", testing::Noise(9000, 1)}};
  for (const int m : {7, 10, 11, 12}) {
    const std::size_t points = std::size_t{1} << m;
    for (const std::size_t length : {points, points - 1, points / 2 + 1}) {
      const std::vector<double> window(length, 0.75);
      FastCepstrum fast(m);
      for (const Row& row : rows) {
        const std::vector<double> frame(row.samples.begin() + 3000,
                                        row.samples.begin() + 3000 + std::ssize(window));
        std::vector<double> weighted = frame;
        for (double& x : weighted) x *= 0.75;
        const auto plain = PlainCepstrumOf(weighted, m);
        const std::size_t first = points / 32;
        std::vector<double> cepstrum(points / 4);
        const auto error = fast.Find(window, frame, first, cepstrum);
        // Whole numbers may add up to 0.
        if (!error && row.name == "least bits") continue;
        ASSERT_TRUE(error) << row.name << ' ' << m;
        EXPECT_LT(*error, 1e-3 * *std::max_element(cepstrum.begin(), cepstrum.end()));
        for (std::size_t k = 0; k < cepstrum.size(); ++k) {
          ASSERT_NEAR(cepstrum[k], plain[first + k], *error) << row.name << ' ' << m << ' ' << k;
        }
      }
      // Bins of 0, and no number.
      std::vector<double> frame(length, 100.0), cepstrum(8);
      EXPECT_EQ(fast.Find(window, frame, 0, cepstrum).has_value(), length != points) << m;
      for (const double odd : {kNan, kInfinity, 1e200}) {
        frame.assign(length, 1.0);
        frame[5] = odd;
        EXPECT_FALSE(fast.Find(window, frame, 0, cepstrum)) << odd;
      }
    }
  }
}

// Every term of the bound leads in one of the rows.
TEST(FastCepstrum, AddsUpItsErrorAsItsHeadSays) {
  constexpr double kRounding = 0x1p-53;
  const auto speech = testing::Speech(4);
  for (const int m : {7, 10, 12}) {
    const double e = RealTransform(m).error();
    const double points = std::ldexp(1.0, m);
    const std::vector<double> window(std::size_t{1} << m, 1.0);
    std::vector<double> one(window.size()), loud(window.size());
    one[0] = 1.0;
    loud[0] = 9e14;
    const std::vector<double> voiced(speech.begin() + 3000, speech.begin() + 3000 + (1 << m));
    FastCepstrum fast(m);
    for (const auto& frame : {one, loud, voiced}) {
      for (const std::size_t first : {0, 1}) {
        std::vector<double> cepstrum(window.size() / 4);
        const auto error = fast.Find(window, frame, first, cepstrum);
        double sum = 0.0;
        for (const double x : frame) sum += std::abs(x);
        const double least = std::sqrt(std::ranges::min(PlainPowersOf(frame, m)));
        const double level =
            20.0 / std::log(10.0) * 1.01 * e * sum / least + 64.0 * kRounding * (300.0 + 1.0);
        const double bin = points * (1.01 * level + e * 300.0);
        const double greatest = std::ranges::max(cepstrum);
        const double expected =
            2.0 * std::sqrt(greatest) * bin + bin * bin + 8.0 * kRounding * greatest;
        ASSERT_TRUE(error);
        EXPECT_NEAR(*error / expected, 1.0, 1e-6) << m << ' ' << frame[0] << ' ' << first;
      }
    }
    // A sum of 2, and at least `least` in bin 0: what is known of it has to be good to 1 / 200.
    for (const double part : {0.98, 1.02}) {
      const double least = part * 200.0 * 2.0 * e;
      std::vector<double> frame(window.size()), cepstrum(8);
      frame[0] = 1.0;
      frame[1] = least - 1.0;
      EXPECT_EQ(fast.Find(window, frame, 1, cepstrum).has_value(), part > 1.0) << m;
    }
  }
}

// Random knots with two high peaks, of which the first is higher by `gap`.
std::vector<double> TwoPeaks(std::size_t knots, double gap, unsigned seed) {
  std::mt19937_64 random(seed);
  std::uniform_real_distribution<double> low(0.0, 1000.0);
  std::vector<double> y(knots);
  for (double& value : y) value = low(random);
  const std::size_t first = knots / 4;
  const std::size_t second = 3 * knots / 4;
  y[first] = y[second] = 5e5;
  for (const std::size_t side : {first - 1, first + 1}) y[side + knots / 2] = y[side];
  y[first] += gap;
  return y;
}

TEST(CepstralPeak, IsCertainOnlyWhenNoErrorCanChangeIt) {
  constexpr double kError = 1e-3;
  const QuefrencyRange range = FindQuefrencyRange(11025.0, 50.0, 500.0, 1024);
  CepstralPeak peak(range);
  int certain = 0;
  for (unsigned seed = 0; seed < 200; ++seed) {
    const auto y = TwoPeaks(range.knots, std::pow(10.0, seed % 8) * 1e-5, seed);
    const auto answer = peak.FindCertain(y, kError);
    if (!answer) continue;
    ++certain;
    std::mt19937_64 random(seed);
    for (int trial = 0; trial < 20; ++trial) {
      auto moved = y;
      for (double& value : moved) value += random() % 2 == 0 ? kError : -kError;
      ASSERT_EQ(peak.Find(moved), answer) << "seed " << seed;
    }
  }
  EXPECT_GT(certain, 50);
  EXPECT_LT(certain, 150);
  std::vector<double> twins(range.knots), rising(range.knots);
  twins[20] = twins[120] = 1e6;
  for (std::size_t j = 0; j < rising.size(); ++j) rising[j] = static_cast<double>(j * j);
  EXPECT_EQ(peak.Find(twins), 200u) << "the first of equals";
  EXPECT_EQ(peak.FindCertain(twins, 0.0), std::nullopt);
  EXPECT_EQ(peak.FindCertain(std::vector<double>(range.knots), 0.0), std::nullopt);
  EXPECT_EQ(peak.FindCertain(rising, 1e-6), range.fineCount - 1) << "beyond the last knot";
}

}  // namespace
}  // namespace cantorix
