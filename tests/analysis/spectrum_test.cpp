// spectrum_test.cpp - spectra of single frames and averages against plain steps.
#include "analysis/spectrum.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>

#include "analysis/plain_frames.h"
#include "support/cancelling_progress.h"

namespace cantorix {
namespace {

using testing::CopyingSource;
using testing::Samples;

SpectrumFrameOptions Options(int points = 256, double windowMs = 23.0, double preEmphasis = 0.98) {
  return {.points = points,
          .windowMs = windowMs,
          .lpcOrder = 14,
          .maxHz = 5000.0,
          .preEmphasis = preEmphasis,
          .rateHz = 11025.0,
          .displayPoints = 300};
}

// An analyser of samples in a store that has nothing to say.
struct Analysis {
  explicit Analysis(const Samples& samples, const SpectrumFrameOptions& options = Options())
      : source(samples), analyser(source, options, errors) {}
  ~Analysis() { EXPECT_EQ(errors.str(), ""); }
  CopyingSource source;
  std::ostringstream errors;
  SpectrumFrameAnalyser analyser;
};

// Samples from `start` on, zeros behind the `used` first ones and outside the recording.
std::vector<double> PlainSamples(const Samples& samples, double start, int used, int count) {
  std::vector<double> x(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < static_cast<std::size_t>(used); ++i) {
    const std::size_t place = static_cast<std::size_t>(start) + i;
    x[i] = place < samples.size() ? samples[place] : 0.0;
  }
  return x;
}

// The levels of one frame before they are referenced.
std::vector<double> PlainFrame(const Samples& samples, double start,
                               const SpectrumFrameOptions& o) {
  const int window = static_cast<int>(std::floor(o.windowMs * o.rateHz * 0.001 + 0.5));
  const auto x = PlainSamples(samples, start, std::min(o.points, window), o.points + 10);
  return testing::PlainLevels(
      x, {o.points, o.preEmphasis, true, true, o.displayPoints, o.maxHz, o.rateHz});
}

std::vector<double> PlainReference(std::vector<double> levels) {
  const double least = *std::min_element(levels.begin(), levels.end());
  for (double& v : levels) v -= least;
  return levels;
}

// The envelope and the formants of one frame.
struct PlainLpc {
  PlainLpc(const Samples& samples, double start, const SpectrumFrameOptions& o)
      : envelope(static_cast<std::size_t>(o.displayPoints)) {
    const int length = static_cast<int>(o.rateHz * 0.001 * o.lpcOrder);
    const auto x = PlainSamples(samples, start, length + 1, length + 1);
    const auto y = testing::PlainInput(x, static_cast<std::size_t>(length), o.preEmphasis);
    const testing::PlainPoles poles(y, o.lpcOrder, o.rateHz);
    if (poles.a.empty()) return;
    envelope = testing::PlainEnvelope(poles.a, o.maxHz, o.rateHz, o.displayPoints);
    const double most = *std::max_element(envelope.begin(), envelope.end());
    for (double& v : envelope) v = most - v;
    envelope = PlainReference(envelope);
    for (std::size_t i = 0; i < poles.formants.size(); ++i) {
      formants.frequencyHz[i] = poles.formants[i].frequencyHz;
      formants.bandwidthHz[i] = poles.formants[i].bandwidthHz;
    }
  }
  std::vector<double> envelope;
  FormantValues formants;
};

TEST(SpectrumOfFrame, HasTheDigitsOfThePlainSteps) {
  const Samples voice = testing::Speech(4);
  const auto total = static_cast<double>(voice.size());
  struct Row {
    std::string name;
    double position;
    SpectrumFrameOptions options;
  };
  const Row rows[] = {
      {"between samples", 5000.9, Options()},
      {"short window", 5000.0, Options(256, 5.0)},
      {"no window at all", 5000.0, Options(256, 0.0)},
      {"window longer than the transform", 5000.0, Options(256, 1000.0)},
      {"long transform", 5000.0, Options(8192, 300.0)},
      {"no pre-emphasis", 5000.0, Options(256, 23.0, 0.0)},
      {"across the end", total - 100.0, Options()},
      {"past the end, silent", total + 7.0, Options()},
  };
  for (const Row& row : rows) {
    Analysis analysis(voice, row.options);
    const Spectrum spectrum = SpectrumOfFrame(analysis.analyser, row.position);
    const auto expected = PlainReference(PlainFrame(voice, row.position, row.options));
    EXPECT_EQ(spectrum.fftDb, expected) << row.name;
    EXPECT_EQ(spectrum.fftMaxDb, *std::max_element(expected.begin(), expected.end())) << row.name;
    EXPECT_EQ(spectrum.fftMinDb, 0.0) << row.name;
    const PlainLpc lpc(voice, row.position, row.options);
    EXPECT_EQ(spectrum.lpcDb, lpc.envelope) << row.name;
    EXPECT_EQ(spectrum.lpcSpanDb, *std::max_element(lpc.envelope.begin(), lpc.envelope.end()));
    EXPECT_EQ(spectrum.formants.frequencyHz, lpc.formants.frequencyHz) << row.name;
    EXPECT_EQ(spectrum.formants.bandwidthHz, lpc.formants.bandwidthHz) << row.name;
    EXPECT_EQ(spectrum.maxHz, 5000.0);
  }
}

TEST(FrameLpc, LengthInMsIsTheOrderIsKept) {
  // 573 samples at 22050 Hz and order 26: the last one counts, the one behind the pre-emphasis's
  // reach does not.
  SpectrumFrameOptions options = Options();
  options.rateHz = 22050.0;
  options.lpcOrder = 26;
  const auto envelopeWith = [&](std::size_t changed) {
    Samples noise = testing::Noise(2000, 5000);
    noise[changed] = 20000;
    Analysis analysis(noise, options);
    return SpectrumOfFrame(analysis.analyser, 0.0).lpcDb;
  };
  EXPECT_NE(envelopeWith(573), envelopeWith(574));
  EXPECT_EQ(envelopeWith(574), envelopeWith(575));
}

// Frames 10.5 ms' worth of samples apart are halved into the average one after the other, the
// missing formants of a silent one as -1.
TEST(AverageSpectrum, RunningHalvingIsKept) {
  Samples voice = testing::Speech(4);
  std::fill(voice.begin(), voice.begin() + 4000, std::int16_t{0});
  const double step = 10.0 * 11025.0 * 0.001 + 0.5;
  for (const double first : {4000.5, 3700.0}) {
    Analysis analysis(voice);
    NoProgress none;
    // The third frame is the first to reach the end.
    const Spectrum average =
        AverageSpectrum(analysis.analyser, {first, first + 2.0 * step + 200.0}, 10.0, none);

    std::vector<double> expected = PlainFrame(voice, first, Options());
    PlainLpc lpc(voice, first, Options());
    FormantValues formants = lpc.formants;
    for (const double j : {1.0, 2.0}) {
      const double start = step * j + first;
      const auto frame = PlainFrame(voice, start, Options());
      for (std::size_t i = 0; i < 300; ++i) expected[i] = (frame[i] + expected[i]) * 0.5;
      lpc = PlainLpc(voice, start, Options());
      for (std::size_t i = 0; i < kFormants; ++i) {
        double& hz = formants.frequencyHz[i];
        double& bandwidth = formants.bandwidthHz[i];
        hz = (lpc.formants.frequencyHz[i] + hz) * 0.5;
        bandwidth = (lpc.formants.bandwidthHz[i] + bandwidth) * 0.5;
      }
    }
    EXPECT_EQ(average.fftDb, PlainReference(expected));
    EXPECT_EQ(average.formants.frequencyHz, formants.frequencyHz);
    EXPECT_EQ(average.formants.bandwidthHz, formants.bandwidthHz);
    EXPECT_EQ(average.lpcDb, lpc.envelope) << "the last frame's";
    EXPECT_EQ(average.lpcSpanDb, *std::max_element(lpc.envelope.begin(), lpc.envelope.end()));
  }
}

TEST(AverageSpectrum, TakesFramesUntilOneReachesTheEndOrTheUserCancels) {
  struct Row {
    std::string name;
    double length, stepMs;
    int frames;
    double total;  // of the status text
  };
  // A step of 10 ms is 110.75 samples, one of 0 ms half a sample.
  const Row rows[] = {
      {"shorter than a frame", 100.0, 10.0, 1, 100.0 / 110.75},
      {"a frame exactly", 256.0, 10.0, 1, 256.0 / 110.75},
      {"a little more", 256.5, 10.0, 2, 256.5 / 110.75},
      {"two steps exactly", 256.0 + 221.5, 10.0, 3, 477.5 / 110.75},
      {"steps of half a sample", 260.0, 0.0, 9, 520.0},
      {"steps backwards", 1000.0, -10.0, 1, 1000.0 / -109.75},
      {"backwards", -500.0, 10.0, 1, -500.0 / 110.75},
  };
  for (const Row& row : rows) {
    const SampleRange selection{3000.0, 3000.0 + row.length};
    for (int cancelAt = 1; cancelAt <= row.frames; ++cancelAt) {
      Analysis analysis(testing::Noise(5000, 4000));
      CancellingProgress progress(cancelAt);
      const auto average = [&] {
        AverageSpectrum(analysis.analyser, selection, row.stepMs, progress);
      };
      if (cancelAt < row.frames) {
        EXPECT_THROW(average(), Abandoned) << row.name << " at " << cancelAt;
      } else {
        average();
      }
      EXPECT_EQ(std::ssize(progress.done), std::min(cancelAt, row.frames - 1)) << row.name;
      EXPECT_EQ(progress.texts,
                std::vector<std::string>{" Processing FFT/LPC...(Press mouse to cancel)"});
      EXPECT_DOUBLE_EQ(progress.totals[0], row.total) << row.name;
      EXPECT_EQ(progress.endCount, 1) << row.name;
    }
  }
}

}  // namespace
}  // namespace cantorix
