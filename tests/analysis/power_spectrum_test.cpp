// power_spectrum_test.cpp - levels of known frames, and whole spectra against their plain steps.
#include "analysis/power_spectrum.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

#include "analysis/plain_levels.h"
#include "analysis/test_signals.h"
#include "analysis/window.h"

namespace cantorix {
namespace {

PowerSpectrumOptions Bins(int points) {
  return {.points = points,
          .preEmphasis = 0.0,
          .hamming = false,
          .resample = false,
          .displayPoints = 0,
          .maxHz = 5000.0,
          .rateHz = 11025.0};
}

// The levels, and a check that nothing is written behind them.
std::vector<double> Levels(const std::vector<double>& x, const PowerSpectrumOptions& options) {
  PowerSpectrumPlan plan(options);
  std::vector<double> out(plan.outputSize() + 3, 77.0);
  PowerSpectrumDb(x, plan, out);
  for (std::size_t i = plan.outputSize(); i < out.size(); ++i) EXPECT_EQ(out[i], 77.0);
  out.resize(plan.outputSize());
  return out;
}

std::vector<double> SpeechFrame(std::size_t count) {
  const auto speech = testing::Speech(4);
  std::vector<double> x(count);
  for (std::size_t i = 0; i < count && i + 6000 < speech.size(); ++i) x[i] = speech[i + 6000];
  return x;
}

TEST(PowerSpectrum, HasTheDigitsOfThePlainSteps) {
  struct Row {
    std::string name;
    PowerSpectrumOptions options;
  };
  const Row rows[] = {
      {"bins", {256, 0.0, true, false, 0, 5000.0, 11025.0}},
      {"pre-emphasis", {1024, 0.98, true, false, 0, 5000.0, 11025.0}},
      {"negative pre-emphasis", {64, -0.5, false, false, 0, 5000.0, 11025.0}},
      {"display", {256, 0.98, true, true, 501, 5000.0, 11025.0}},
      {"few display points", {8192, 0.0, true, true, 3, 5000.0, 44100.0}},
      {"beyond half the rate", {32, 0.0, false, true, 200, 5000.0, 8000.0}},
      {"no power of two", {300, 0.5, true, true, 100, 4000.0, 11025.0}},
      {"four points", {4, 0.0, false, true, 9, 5000.0, 11025.0}},
  };
  const auto x = SpeechFrame(8193);
  for (const Row& row : rows) {
    EXPECT_EQ(Levels(x, row.options), testing::PlainLevels(x, row.options)) << row.name;
  }
}

TEST(PowerSpectrum, OfAnImpulseIsFlat) {
  std::vector<double> impulse(512);
  impulse[0] = 1.0;
  EXPECT_EQ(Levels(impulse, Bins(512)), std::vector<double>(256, 0.0));
}

TEST(PowerSpectrum, OfSilenceIsZeroDb) {
  auto options = Bins(256);
  options.resample = true;
  options.displayPoints = 40;
  options.preEmphasis = 0.98;
  EXPECT_EQ(Levels(std::vector<double>(257), options), std::vector<double>(40, 0.0));
}

TEST(PowerSpectrum, OfASineHasItsPowerInItsBin) {
  std::vector<double> sine(1024);
  for (std::size_t i = 0; i < sine.size(); ++i) {
    sine[i] = 1000.0 * std::cos(2.0 * M_PI * static_cast<double>(i) * 100.0 / 1024.0);
  }
  auto options = Bins(1024);
  EXPECT_NEAR(Levels(sine, options)[100], 20.0 * std::log10(1000.0 * 512.0), 1e-9);
  options.hamming = true;  // takes 0.54 of the amplitude
  EXPECT_NEAR(Levels(sine, options)[100], 20.0 * std::log10(540.0 * 512.0), 1e-9);
}

TEST(PowerSpectrum, RefusesWhatItCannotCompute) {
  EXPECT_THROW(PowerSpectrumPlan(Bins(1)), std::invalid_argument);
  EXPECT_THROW(PowerSpectrumPlan(Bins(-8)), std::invalid_argument);
  auto options = Bins(64);
  options.preEmphasis = 0.9;
  PowerSpectrumPlan plan(options);
  std::vector<double> out(32);
  EXPECT_THROW(PowerSpectrumDb(std::vector<double>(64), plan, out), std::invalid_argument);
  out.resize(31);
  EXPECT_THROW(PowerSpectrumDb(std::vector<double>(65), plan, out), std::invalid_argument);
}

TEST(HammingWindow, DividesByItsLength) {
  const auto window = HammingWindow(256);
  EXPECT_NEAR(window[0], 0.08, 1e-15);
  EXPECT_EQ(window[128], 1.0);
  EXPECT_GT(window[255], 0.0801);
}

}  // namespace
}  // namespace cantorix
