// pitch_test.cpp - whole runs: known pitches, the rules between frames, and every way to fail.
#include "analysis/pitch.h"

#include <gtest/gtest.h>

#include <string>

#include "analysis/cepstral_track.h"
#include "analysis/plain_cepstrum.h"
#include "settings/settings.h"
#include "support/cancelling_progress.h"

namespace cantorix {
namespace {

using testing::kInfinity;
using testing::kNan;
using testing::Samples;
using testing::Whole;

PitchSettings Cepstral() {
  PitchSettings settings;
  settings.method = kCepstral;
  return settings;
}

PitchResult Pitch(const SampleSource& samples, const SampleRange& range, PitchSettings settings,
                  double rateHz = 11025.0) {
  NoProgress progress;
  return ComputePitch(samples, range, rateHz, settings, progress);
}

PitchResult Pitch(const Samples& samples, const SampleRange& range, const PitchSettings& settings,
                  double rateHz = 11025.0) {
  return Pitch(SpanSource(samples), range, settings, rateHz);
}

// The run of the cepstral method step by step.
std::vector<double> PlainTrack(const Samples& x, const SampleRange& range, double rateHz,
                               const PitchSettings& settings) {
  const auto w = static_cast<std::int64_t>(rateHz * 0.001 * settings.windowMs);
  const double s = rateHz * 0.001 * settings.stepMs;
  const double f = (range.end - range.start) / s;
  testing::PlainCepstrum cepstrum({rateHz, settings.lowHz, settings.highHz, 1024, w});
  std::vector<double> raw(static_cast<std::size_t>(f + 5)), track(raw.size()), energy(raw.size());
  double greatest = -1e9;
  for (std::size_t i = 0; static_cast<double>(i) < f; ++i) {
    const double p = static_cast<double>(i) * s + range.start;
    raw[i] = cepstrum.Pitch(x, p, static_cast<double>(x.size()));
    double sum = 0.0;
    for (auto j = static_cast<std::size_t>(p); j < static_cast<std::size_t>(p + s); ++j) {
      if (j < x.size()) sum += static_cast<double>(x[j]) * x[j];
    }
    energy[i] = sum / s;
    greatest = std::max(greatest, energy[i]);
  }
  const auto whole = static_cast<std::size_t>(f);
  for (std::size_t i = 1; i + 1 < whole; ++i) {
    const bool jump = std::trunc(std::abs(raw[i - 1] - raw[i])) >= settings.deviationHz ||
                      std::trunc(std::abs(raw[i + 1] - raw[i])) >= settings.deviationHz;
    track[i] = jump ? 0.0 : raw[i];
  }
  for (std::size_t i = 0; i + 3 < whole; ++i) {
    if (track[i] != 0 && track[i + 1] != 0 && track[i + 2] != 0) {
      track[i] = (track[i] + track[i + 1] + track[i + 2]) / 3;
    }
  }
  const double limit = greatest * settings.thresholdPercent * 0.01;
  for (std::size_t i = 0; static_cast<double>(i) < f; ++i) {
    if (energy[i] - limit <= 0) track[i] = 0.0;
  }
  return track;
}

// Harmonics of one period in `period` samples that fall off as a voice's do, and a little breath.
Samples Voice(std::size_t count, std::size_t period) {
  Samples voice = testing::Noise(count, 600);
  for (std::size_t i = 0; i < count; ++i) {
    const double phase = 2.0 * M_PI * static_cast<double>(i % period) / static_cast<double>(period);
    double sum = 0.0;
    for (int h = 1; h <= 20; ++h) sum += std::cos(h * phase) / h;
    voice[i] = static_cast<std::int16_t>(voice[i] + 8000.0 * sum);
  }
  return voice;
}

TEST(ComputePitch, CepstralRunHasTheDigitsOfThePlainSteps) {
  const auto speech = testing::Speech(4);
  const auto end = static_cast<double>(speech.size());
  struct Row {
    std::string name;
    SampleRange range;
    double deviationHz, thresholdPercent, stepMs;
  };
  const Row rows[] = {
      {"whole", {0.0, end}, 100.0, 1.0, 10.0},
      {"fractional stretch", {5000.4, 12345.9}, 30.0, 1.0, 10.0},
      {"end of the recording", {end - 3000.7, end}, 1000.0, 0.0, 10.0},
      {"high threshold", {3000.0, 20000.0}, 100.0, 20.0, 10.0},
      {"steps longer than a block of the store", {0.0, end}, 1000.0, 1.0, 1e3},
  };
  for (const Row& row : rows) {
    auto settings = Cepstral();
    settings.deviationHz = row.deviationHz;
    settings.thresholdPercent = row.thresholdPercent;
    settings.stepMs = row.stepMs;
    const auto expected = PlainTrack(speech, row.range, 11025.0, settings);
    const PitchResult memory = Pitch(speech, row.range, settings);
    const PitchResult store = Pitch(testing::CopyingSource(speech), row.range, settings);
    EXPECT_TRUE(memory.PitchValid) << row.name;
    EXPECT_EQ(memory.PitchTrack, expected) << row.name;
    EXPECT_EQ(store.PitchTrack, expected) << row.name;
    EXPECT_EQ(memory.PitchFrameCount,
              (row.range.end - row.range.start) / (11025.0 * 0.001 * row.stepMs));
  }
}

TEST(ComputePitch, EnergyOfTheFrameBeyondTheEndIsKept) {
  auto voice = Voice(6000, 92);
  for (std::size_t i = 5513; i < 5600; ++i) voice[i] = 32767;  // inside the frame 50 only
  auto settings = Cepstral();
  settings.thresholdPercent = 50.0;
  const PitchResult without = Pitch(voice, {0.0, 5512.5}, settings);  // 50 frames
  const PitchResult with = Pitch(voice, {0.0, 5512.75}, settings);    // 50 and a piece
  EXPECT_EQ(without.count(), with.count());
  EXPECT_GT(*std::max_element(without.PitchTrack.begin(), without.PitchTrack.end()), 0.0);
  EXPECT_EQ(*std::max_element(with.PitchTrack.begin(), with.PitchTrack.end()), 0.0);
}

// Every frame has the energy of the loudest one, so a threshold of 100 % leaves none of them.
TEST(ComputePitch, AFrameAtTheThresholdIsUnvoiced) {
  const auto voice = Voice(110, 55);
  Samples even;
  for (int i = 0; i < 100; ++i) even.insert(even.end(), voice.begin(), voice.end());
  auto settings = Cepstral();
  for (const double percent : {99.0, 100.0}) {
    settings.thresholdPercent = percent;
    const auto track = Pitch(even, Whole(even), settings, 11000.0).PitchTrack;
    EXPECT_EQ(track[50] > 0.0, percent < 100.0);
  }
}

TEST(ApplyContinuity, FirstAndLastEntriesUnvoicedIsKept) {
  std::vector<double> track(5, 7.0);
  ApplyContinuity({100, 101, 102, 103, 104}, 50.0, 5, track);
  EXPECT_EQ(track, (std::vector<double>{0, 101, 102, 103, 0}));
  ApplyContinuity({0, 0, 49, 50.01, 100, 150, 150}, 50.0, 7, track = std::vector<double>(7));
  EXPECT_EQ(track, (std::vector<double>{0, 0, 49, 50.01, 0, 0, 0})) << "jumps, after truncation";
}

TEST(ComputePitch, CutsALongWindowAndSaysSo) {
  struct Row {
    double rateHz, windowMs, expectedMs;
  };
  const auto voice = Voice(12000, 92);
  for (const Row& row : {Row{11025.0, 371.0, 371.0},  // 4090 samples
                         {11025.0, 371.6, 371.0},     // 4096
                         {44100.0, 1e300, 92.0},
                         {1000.0, 5000.0, 4096.0}}) {  // exactly 4096 samples remain
    auto settings = Cepstral();
    settings.windowMs = row.windowMs;
    NoProgress none;
    EXPECT_TRUE(
        ComputePitch(SpanSource(voice), {0.0, 3000.0}, row.rateHz, settings, none).PitchValid);
    EXPECT_EQ(settings.windowMs, row.expectedMs) << row.windowMs;
  }
  // The shortest transform that holds the window.
  for (const auto& [windowSamples, points] :
       {std::pair{1023, 1024}, {1024, 2048}, {2047, 2048}, {2048, 4096}, {4095, 4096}}) {
    auto settings = Cepstral();
    settings.windowMs = windowSamples;
    EXPECT_EQ(FrameForCepstrum({0.0, 9000.0}, 1000.0, settings).options.points, points);
  }
}

TEST(ComputePitch, AutoCorrelationNeeds1100Samples) {
  const auto voice = Voice(4000, 92);
  EXPECT_FALSE(Pitch(voice, {100.0, 1199.0}, {}).PitchValid);
  const PitchResult result = Pitch(voice, {100.0, 1200.0}, {});
  EXPECT_TRUE(result.PitchValid);
  EXPECT_EQ(result.PitchFrameCount, 12.0);
  EXPECT_EQ(result.PitchTrack.size(), 17u);
  EXPECT_EQ(result.PitchTrack.front(), 0.0);
  EXPECT_EQ(result.PitchTrack[11], 0.0);
  for (const double pitch : result.PitchTrack) EXPECT_GE(pitch, 0.0);
}

TEST(ComputePitch, SurvivesSettingsThatFitNothing) {
  const auto voice = Voice(3000, 92);
  const auto expect = [&voice](bool valid, double stepMs, double windowMs, double rateHz,
                               const SampleRange& range) {
    auto settings = Cepstral();
    settings.stepMs = stepMs;
    settings.windowMs = windowMs;
    const PitchResult result = Pitch(voice, range, settings, rateHz);
    EXPECT_EQ(result.PitchValid, valid) << stepMs << ' ' << rateHz << ' ' << range.end;
    EXPECT_EQ(result.PitchTrack.empty(), !valid) << stepMs << ' ' << rateHz << ' ' << range.end;
    EXPECT_EQ(result.count(), 0);
  };
  const SampleRange all = Whole(voice);
  for (const double stepMs : {0.0, -10.0, kNan, kInfinity, 1e-9}) {
    expect(false, stepMs, 35.0, 11025.0, all);
  }
  for (const double rateHz : {0.0, kNan, kInfinity}) expect(false, 10.0, 35.0, rateHz, all);
  for (const SampleRange& range :
       {SampleRange{kNan, 3000.0}, {2000.0, 1000.0}, {0.0, 1e300}, {-1e300, 0.0}}) {
    expect(false, 10.0, 35.0, 11025.0, range);
  }
  expect(false, 10.0, -35.0, 11025.0, all);
  expect(true, 10.0, 35.0, 11025.0, {500.0, 500.0});
  expect(true, 1e300, 35.0, 11025.0, all);
}

// The steps of a run, in units; then a cancel at each of them.
TEST(ComputePitch, CountsItsStepsAndLeavesNoTrackWhenCancelled) {
  const auto voice = Voice(60000, 92);
  const std::vector<double> cepstral{0.0, 1.0, 2.0, 2.5, 3.5, 4.5, 5.0, 6.0, 7.0};
  // Blocks of 256 frames from frame 3 on.
  const std::vector<double> difference{3.0, 259.0, 515.0, 600.0};
  struct Row {
    std::int32_t method;
    SampleRange range;
    double total;
    std::vector<double> steps;
  };
  for (const Row& row : {Row{kCepstral, {0.0, 275.625}, 7.5, cepstral},
                         Row{kAutoCorrelation, Whole(voice), 600.0, difference}}) {
    PitchSettings settings;
    settings.method = row.method;
    for (std::size_t cancelAt = 1; cancelAt <= row.steps.size() + 1; ++cancelAt) {
      CancellingProgress progress(static_cast<int>(cancelAt));
      const auto result = ComputePitch(SpanSource(voice), row.range, 11025.0, settings, progress);
      const bool completed = cancelAt > row.steps.size();
      EXPECT_EQ(result.PitchValid, completed) << row.method << " at step " << cancelAt;
      EXPECT_EQ(result.PitchTrack.empty(), !completed);
      EXPECT_EQ(progress.endCount, 1);
      EXPECT_EQ(progress.done,
                std::vector(row.steps.begin(), row.steps.begin() + std::ssize(progress.done)));
      EXPECT_EQ(progress.done.size(), std::min(cancelAt, row.steps.size()));
      EXPECT_EQ(progress.texts.at(0), " Processing Pitch...(Press mouse to cancel)");
      EXPECT_EQ(progress.totals.at(0), row.total);
    }
  }
}

}  // namespace
}  // namespace cantorix
