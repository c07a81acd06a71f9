// spectrum_test.cpp - spectra of single frames and averages against plain steps.
#include "analysis/spectrum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "analysis/plain_levels.h"
#include "analysis/test_signals.h"
#include "support/cancelling_progress.h"

namespace cantorix {
namespace {

using testing::CopyingSource;
using testing::Samples;

SpectrumFrameOptions Defaults() {
  return {.points = 256,
          .windowMs = 23.0,
          .lpcOrder = 14,
          .maxHz = 5000.0,
          .preEmphasis = 0.98,
          .rateHz = 11025.0,
          .displayPoints = 300};
}

Samples Voice() {
  const Samples voice = testing::Speech(4);
  return voice.empty() ? testing::Noise(16000, 4000) : voice;
}

// The levels of one frame before they are referenced.
std::vector<double> PlainFrame(const Samples& samples, double start,
                               const SpectrumFrameOptions& options) {
  const double window = options.windowMs * options.rateHz * 0.001 + 0.5;
  const int applied = std::min(options.points, static_cast<int>(window));
  std::vector<double> x(static_cast<std::size_t>(options.points) + 10);
  for (std::size_t i = 0; i < static_cast<std::size_t>(applied); ++i) {
    const std::size_t place = static_cast<std::size_t>(start) + i;
    x[i] = place < samples.size() ? samples[place] : 0.0;
  }
  return testing::PlainLevels(x, {options.points, options.preEmphasis, true, true,
                                  options.displayPoints, options.maxHz, options.rateHz});
}

std::vector<double> PlainReference(std::vector<double> levels) {
  const double least = *std::min_element(levels.begin(), levels.end());
  for (double& v : levels) v -= least;
  return levels;
}

TEST(SpectrumOfFrame, HasTheDigitsOfThePlainSteps) {
  const Samples voice = Voice();
  struct Row {
    std::string name;
    double position;
    SpectrumFrameOptions options;
  };
  Row rows[] = {
      {"defaults", 5000.0, Defaults()},
      {"between samples", 5000.9, Defaults()},
      {"short window", 5000.0, Defaults()},
      {"no window at all", 5000.0, Defaults()},
      {"window longer than the transform", 5000.0, Defaults()},
      {"long transform", 5000.0, Defaults()},
      {"no pre-emphasis", 5000.0, Defaults()},
      {"across the end", static_cast<double>(voice.size()) - 100.0, Defaults()},
      {"past the end", static_cast<double>(voice.size()) + 7.0, Defaults()},
  };
  rows[2].options.windowMs = 5.0;
  rows[3].options.windowMs = 0.0;
  rows[4].options.windowMs = 1000.0;
  rows[5].options.points = 8192;
  rows[5].options.windowMs = 300.0;
  rows[6].options.preEmphasis = 0.0;
  for (const Row& row : rows) {
    std::ostringstream errors;
    const CopyingSource source(voice);
    SpectrumFrameAnalyser analyser(source, row.options, errors);
    const Spectrum spectrum = SpectrumOfFrame(analyser, row.position);
    const auto expected = PlainReference(PlainFrame(voice, row.position, row.options));
    EXPECT_EQ(spectrum.fftDb, expected) << row.name;
    EXPECT_EQ(spectrum.fftMaxDb, *std::max_element(expected.begin(), expected.end())) << row.name;
    EXPECT_EQ(spectrum.fftMinDb, 0.0) << row.name;
    EXPECT_EQ(errors.str(), "") << row.name;
  }
}

TEST(SpectrumOfFrame, HasTheEnvelopeUpsideDownWithItsFormantsAsPeaks) {
  // A resonance at 1200 Hz, rung by pulses.
  const double rate = 11025.0;
  const double radius = std::exp(-3.14159265 * 80.0 / rate);
  Samples voice(4000);
  double y1 = 0.0, y2 = 0.0;
  for (std::size_t n = 0; n < voice.size(); ++n) {
    const double y = (n % 100 == 0 ? 3000.0 : 0.0) +
                     2.0 * radius * std::cos(6.2831853 * 1200.0 / rate) * y1 - radius * radius * y2;
    voice[n] = static_cast<std::int16_t>(y);
    y2 = y1;
    y1 = y;
  }
  std::ostringstream errors;
  const SpanSource source(voice);
  SpectrumFrameAnalyser analyser(source, Defaults(), errors);
  const Spectrum spectrum = SpectrumOfFrame(analyser, 2000.0);
  const auto peak = std::max_element(spectrum.lpcDb.begin(), spectrum.lpcDb.end());
  EXPECT_NEAR(spectrum.FrequencyHz(static_cast<std::size_t>(peak - spectrum.lpcDb.begin())), 1200.0,
              60.0);
  EXPECT_EQ(*std::min_element(spectrum.lpcDb.begin(), spectrum.lpcDb.end()), 0.0);
  EXPECT_EQ(spectrum.lpcSpanDb, *peak);
  const auto& hz = spectrum.formants.frequencyHz;
  EXPECT_TRUE(
      std::any_of(hz.begin(), hz.end(), [](double f) { return std::abs(f - 1200.0) < 40; }));
}

TEST(OrientEnvelope, TurnsAndLiftsIt) {
  std::vector<double> envelope{-3.0, 5.0, 1.0};
  EXPECT_EQ(OrientEnvelope(envelope), 8.0);
  EXPECT_EQ(envelope, (std::vector<double>{8.0, 0.0, 4.0}));
}

TEST(FrameLpc, LengthInMsIsTheOrderIsKept) {
  // 573 samples at 22050 Hz and order 26: the last one counts, the one behind the pre-emphasis's
  // reach does not.
  SpectrumFrameOptions options = Defaults();
  options.rateHz = 22050.0;
  options.lpcOrder = 26;
  options.maxHz = 11000.0;
  const auto envelopeWith = [&](std::size_t changed) {
    Samples noise = testing::Noise(2000, 5000);
    noise[changed] = 20000;
    std::ostringstream errors;
    const CopyingSource source(noise);
    SpectrumFrameAnalyser analyser(source, options, errors);
    return SpectrumOfFrame(analyser, 0.0).lpcDb;
  };
  EXPECT_NE(envelopeWith(573), envelopeWith(574));
  EXPECT_EQ(envelopeWith(574), envelopeWith(575));
}

TEST(SpectrumOfFrame, OfSilenceIsFlatWithoutFormants) {
  const Samples silence(1000, 0);
  std::ostringstream errors;
  const SpanSource source(silence);
  SpectrumFrameAnalyser analyser(source, Defaults(), errors);
  const Spectrum spectrum = SpectrumOfFrame(analyser, 100.0);
  EXPECT_EQ(spectrum.fftDb, std::vector<double>(300, 0.0));
  EXPECT_EQ(spectrum.lpcDb, std::vector<double>(300, 0.0));
  EXPECT_EQ(spectrum.lpcSpanDb, 0.0);
  for (const double hz : spectrum.formants.frequencyHz) EXPECT_EQ(hz, -1.0);
  EXPECT_EQ(errors.str(), "");
}

// Frames 10.5 ms' worth of samples apart are halved into the average one after the other.
TEST(AverageSpectrum, RunningHalvingIsKept) {
  const Samples voice = Voice();
  const SpectrumFrameOptions options = Defaults();
  const double step = 10.0 * 11025.0 * 0.001 + 0.5;
  // The third frame is the first to reach the end.
  const SampleRange selection{4000.5, 4000.5 + 2.0 * step + 200.0};
  const CopyingSource source(voice);
  std::ostringstream errors;
  SpectrumFrameAnalyser analyser(source, options, errors);
  CancellingProgress progress;
  const Spectrum average = AverageSpectrum(analyser, selection, 10.0, progress);

  std::vector<double> expected = PlainFrame(voice, 4000.5, options);
  FormantValues formants;
  std::vector<double> envelope(300);
  analyser.FrameLpc(4000.5, envelope, formants);
  for (const double j : {1.0, 2.0}) {
    const double start = step * j + 4000.5;
    const auto frame = PlainFrame(voice, start, options);
    for (std::size_t i = 0; i < 300; ++i) expected[i] = (frame[i] + expected[i]) * 0.5;
    FormantValues added;
    analyser.FrameLpc(start, envelope, added);
    for (std::size_t i = 0; i < kFormants; ++i) {
      formants.frequencyHz[i] = (added.frequencyHz[i] + formants.frequencyHz[i]) * 0.5;
      formants.bandwidthHz[i] = (added.bandwidthHz[i] + formants.bandwidthHz[i]) * 0.5;
    }
  }
  EXPECT_EQ(average.fftDb, PlainReference(expected));
  EXPECT_EQ(average.formants.frequencyHz, formants.frequencyHz);
  EXPECT_EQ(average.formants.bandwidthHz, formants.bandwidthHz);
  EXPECT_EQ(average.lpcDb, envelope) << "the last frame's";
}

TEST(AverageSpectrum, HalvingOfMissingFormantsIsKept) {
  Samples voice(2500, 0);
  const Samples noise = testing::Noise(3000, 5000);
  voice.insert(voice.end(), noise.begin(), noise.end());
  const SpanSource source(voice);
  std::ostringstream errors;
  SpectrumFrameAnalyser analyser(source, Defaults(), errors);
  NoProgress none;
  // A silent frame at 1000, then one of noise 200 ms on.
  const Spectrum average = AverageSpectrum(analyser, {1000.0, 1257.0}, 200.0, none);
  const Spectrum second = SpectrumOfFrame(analyser, 1000.0 + 2205.5);
  ASSERT_GT(second.formants.frequencyHz[0], 0.0);
  for (std::size_t i = 0; i < kFormants; ++i) {
    EXPECT_EQ(average.formants.frequencyHz[i], (second.formants.frequencyHz[i] - 1.0) * 0.5);
    EXPECT_EQ(average.formants.bandwidthHz[i], (second.formants.bandwidthHz[i] - 1.0) * 0.5);
  }
}

TEST(AverageSpectrum, TakesFramesUntilOneReachesTheEnd) {
  struct Row {
    std::string name;
    double length, stepMs;
    std::size_t frames;
  };
  // A step of 10 ms is 110.75 samples, one of 0 ms half a sample.
  const Row rows[] = {
      {"shorter than a frame", 100.0, 10.0, 1},
      {"a frame exactly", 256.0, 10.0, 1},
      {"a little more", 256.5, 10.0, 2},
      {"two steps exactly", 256.0 + 221.5, 10.0, 3},
      {"steps of half a sample", 260.0, 0.0, 9},
      {"steps backwards", 1000.0, -10.0, 1},
      {"backwards", -500.0, 10.0, 1},
  };
  const Samples voice = Voice();
  for (const Row& row : rows) {
    const CopyingSource source(voice);
    std::ostringstream errors;
    SpectrumFrameAnalyser analyser(source, Defaults(), errors);
    CancellingProgress progress;
    AverageSpectrum(analyser, {3000.0, 3000.0 + row.length}, row.stepMs, progress);
    EXPECT_EQ(progress.done.size(), row.frames - 1) << row.name;
    EXPECT_EQ(progress.endCount, 1) << row.name;
  }
}

TEST(AverageSpectrum, LeavesWhenCancelledBetweenFrames) {
  const Samples voice = Voice();
  const SpanSource source(voice);
  std::ostringstream errors;
  SpectrumFrameAnalyser analyser(source, Defaults(), errors);
  CancellingProgress progress(3);
  EXPECT_THROW(AverageSpectrum(analyser, {0.0, 10000.0}, 10.0, progress), Abandoned);
  EXPECT_EQ(progress.done.size(), 3U);
  EXPECT_EQ(progress.endCount, 1);
}

}  // namespace
}  // namespace cantorix
