// power_spectrum_test.cpp - levels of known frames, and whole spectra against their plain steps.
#include "analysis/power_spectrum.h"

#include <gtest/gtest.h>

#include <string>

#include "analysis/plain_frames.h"

namespace cantorix {
namespace {

// The levels, and a check that nothing is written behind them.
std::vector<double> Levels(const std::vector<double>& x, const PowerSpectrumOptions& options) {
  PowerSpectrumPlan plan(options);
  std::vector<double> out(plan.outputSize() + 3, 77.0);
  PowerSpectrumDb(x, plan, out);
  EXPECT_EQ(std::vector(out.end() - 3, out.end()), std::vector(3, 77.0));
  out.resize(plan.outputSize());
  return out;
}

TEST(PowerSpectrum, HasTheDigitsOfThePlainSteps) {
  struct Row {
    std::string name;
    PowerSpectrumOptions options;
  };
  const Row rows[] = {
      {"bins", {256, 0.0, true, false, 0, 5000.0, 11025.0}},
      {"two points", {2, 0.0, true, false, 0, 5000.0, 11025.0}},
      {"pre-emphasis", {1024, 0.98, true, false, 0, 5000.0, 11025.0}},
      {"negative pre-emphasis", {64, -0.5, false, false, 0, 5000.0, 11025.0}},
      {"display", {256, 0.98, true, true, 501, 5000.0, 11025.0}},
      {"few display points", {8192, 0.0, true, true, 3, 5000.0, 44100.0}},
      {"beyond half the rate", {32, 0.0, false, true, 200, 5000.0, 8000.0}},
      {"no power of two", {300, 0.5, true, true, 100, 4000.0, 11025.0}},
      {"four points", {4, 0.0, false, true, 9, 5000.0, 11025.0}},
  };
  const auto speech = testing::Speech(4);
  const std::vector<double> x(speech.begin() + 6000, speech.begin() + 6000 + 8193);
  for (const Row& row : rows) {
    EXPECT_EQ(Levels(x, row.options), testing::PlainLevels(x, row.options)) << row.name;
  }
}

TEST(PowerSpectrum, OfKnownFramesIsKnown) {
  PowerSpectrumOptions bins{512, 0.0, false, false, 0, 5000.0, 11025.0};
  std::vector<double> impulse(512);
  impulse[0] = 1.0;
  EXPECT_EQ(Levels(impulse, bins), std::vector<double>(256, 0.0));
  EXPECT_EQ(Levels(std::vector<double>(257), {256, 0.98, true, true, 40, 5000.0, 11025.0}),
            std::vector<double>(40, 0.0));

  std::vector<double> cosine(512);
  for (std::size_t i = 0; i < cosine.size(); ++i) {
    cosine[i] = 1000.0 * std::cos(2.0 * M_PI * static_cast<double>(i) * 100.0 / 512.0);
  }
  EXPECT_NEAR(Levels(cosine, bins)[100], 20.0 * std::log10(1000.0 * 256.0), 1e-9);
  bins.hamming = true;  // takes 0.54 of the amplitude
  EXPECT_NEAR(Levels(cosine, bins)[100], 20.0 * std::log10(540.0 * 256.0), 1e-9);
}

TEST(PowerSpectrum, RefusesWhatItCannotCompute) {
  PowerSpectrumOptions options{64, 0.9, true, false, 0, 5000.0, 11025.0};
  PowerSpectrumPlan plan(options);
  std::vector<double> out(32);
  EXPECT_THROW(PowerSpectrumDb(std::vector<double>(64), plan, out), std::invalid_argument);
  out.resize(31);
  EXPECT_THROW(PowerSpectrumDb(std::vector<double>(65), plan, out), std::invalid_argument);
  for (const int points : {1, -8, (1 << 24) + 1}) {
    options.points = points;
    EXPECT_THROW(PowerSpectrumPlan{options}, std::invalid_argument) << points;
  }
}

}  // namespace
}  // namespace cantorix
