// pitch_test.cpp - whole runs: known pitches, the rules between frames, and every way to fail.
#include "analysis/pitch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "analysis/cepstral_track.h"
#include "analysis/plain_cepstrum.h"
#include "support/cancelling_progress.h"

namespace cantorix {
namespace {

using testing::Samples;

PitchSettings Cepstral() {
  PitchSettings settings;
  settings.method = kCepstral;
  return settings;
}

SampleRange Whole(const Samples& samples) { return {0.0, static_cast<double>(samples.size())}; }

PitchResult Pitch(const Samples& samples, const SampleRange& range, PitchSettings settings,
                  double rateHz = 11025.0) {
  NoProgress progress;
  return ComputePitch(SpanSource(samples), range, rateHz, settings, progress);
}

// The run of the cepstral method step by step.
std::vector<double> PlainTrack(const Samples& x, const SampleRange& range, double rateHz,
                               const PitchSettings& settings) {
  const auto w = static_cast<std::int64_t>(rateHz * 0.001 * settings.windowMs);
  const double s = rateHz * 0.001 * settings.stepMs;
  const double f = (range.end - range.start) / s;
  testing::PlainCepstrum cepstrum({rateHz, settings.lowHz, settings.highHz, 1024, w});
  std::vector<double> raw(static_cast<std::size_t>(f + 5));
  std::vector<double> track(raw.size());
  std::vector<double> energy(raw.size());
  for (int i = 0; i < f; ++i) {
    raw[static_cast<std::size_t>(i)] =
        cepstrum.Pitch(x, i * s + range.start, static_cast<double>(x.size()));
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
  double greatest = -1e9;
  for (int i = 0; i < f; ++i) {
    const double p = i * s + range.start;
    double sum = 0.0;
    for (auto j = static_cast<std::size_t>(p); j < static_cast<std::size_t>(p + s); ++j) {
      if (j < x.size()) sum += static_cast<double>(x[j]) * x[j];
    }
    energy[static_cast<std::size_t>(i)] = sum / s;
    greatest = std::max(greatest, sum / s);
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
    double deviationHz, thresholdPercent;
  };
  const Row rows[] = {
      {"whole", {0.0, end}, 100.0, 1.0},
      {"fractional stretch", {5000.4, 12345.9}, 30.0, 1.0},
      {"end of the recording", {end - 3000.7, end}, 1000.0, 0.0},
      {"high threshold", {3000.0, 20000.0}, 100.0, 20.0},
  };
  for (const Row& row : rows) {
    auto settings = Cepstral();
    settings.deviationHz = row.deviationHz;
    settings.thresholdPercent = row.thresholdPercent;
    const PitchResult result = Pitch(speech, row.range, settings);
    EXPECT_TRUE(result.PitchValid) << row.name;
    EXPECT_EQ(result.PitchTrack, PlainTrack(speech, row.range, 11025.0, settings)) << row.name;
    EXPECT_EQ(result.PitchFrameCount, (row.range.end - row.range.start) / 110.25) << row.name;
  }
}

TEST(ComputePitch, IsTheSameFromAStore) {
  const auto speech = testing::Speech(4);
  for (const std::int32_t method : {kCepstral, kAutoCorrelation}) {
    PitchSettings settings;
    settings.method = method;
    NoProgress progress;
    const SampleRange range{1000.5, 30000.25};
    const auto fromStore =
        ComputePitch(testing::CopyingSource(speech), range, 12000.0, settings, progress);
    const auto fromMemory = Pitch(speech, range, settings, 12000.0);
    EXPECT_TRUE(fromStore.PitchValid);
    EXPECT_EQ(fromStore.PitchTrack, fromMemory.PitchTrack) << method;
  }
}

TEST(ComputePitch, FollowsAKnownPitch) {
  for (const std::size_t period : {30u, 45u, 63u, 92u}) {
    const double expected = 11025.0 / static_cast<double>(period);
    const auto voice = Voice(11025, period);
    const PitchResult result = Pitch(voice, Whole(voice), Cepstral());
    int voiced = 0;
    for (std::int64_t i = 0; i < result.count(); ++i) {
      const double pitch = result.PitchTrack[static_cast<std::size_t>(i)];
      if (pitch == 0.0) continue;
      ++voiced;
      EXPECT_NEAR(pitch, expected, 0.01 * expected) << "period " << period << ", entry " << i;
    }
    EXPECT_GT(voiced, 9 * result.count() / 10) << "period " << period;
  }
}

TEST(ComputePitch, FirstAndLastCepstralEntriesUnvoicedIsKept) {
  const auto voice = Voice(11025, 92);
  const PitchResult result = Pitch(voice, Whole(voice), Cepstral());
  ASSERT_EQ(result.count(), 100);
  EXPECT_EQ(result.PitchTrack.size(), 105u);
  EXPECT_EQ(result.PitchTrack[0], 0.0);
  EXPECT_GT(result.PitchTrack[1], 0.0);
  EXPECT_GT(result.PitchTrack[90], 0.0);
  EXPECT_EQ(result.PitchTrack[99], 0.0);
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

TEST(ApplyContinuity, UnvoicesBothSidesOfAJump) {
  struct Row {
    std::string name;
    std::vector<double> raw, expected;
  };
  const Row rows[] = {
      {"steady", {100, 101, 102, 103, 104}, {0, 101, 102, 103, 0}},
      {"just below, after truncation",
       {100, 149.99, 199.98, 200, 201},
       {0, 149.99, 199.98, 200, 0}},
      {"jump", {100, 100, 150, 150, 150}, {0, 0, 0, 150, 0}},
      {"single voiced frame", {0, 0, 120, 0, 0}, {0, 0, 0, 0, 0}},
      {"low pitch beside unvoiced", {0, 0, 49, 0, 0}, {0, 0, 49, 0, 0}},
      {"one entry", {100}, {0}},
      {"none", {}, {}},
  };
  for (const Row& row : rows) {
    std::vector<double> track(row.raw.size(), 7.0);
    ApplyContinuity(row.raw, 50.0, std::ssize(row.raw), track);
    EXPECT_EQ(track, row.expected) << row.name;
  }
}

TEST(SmoothTrack, AveragesForwardInPlace) {
  std::vector<double> track{3, 6, 9, 12, 0, 1, 2, 3};
  SmoothTrack(8, track);
  EXPECT_EQ(track, (std::vector<double>{6, 9, 9, 12, 0, 1, 2, 3}));
}

TEST(ComputePitch, CutsALongWindowAndSaysSo) {
  struct Row {
    double rateHz, windowMs, expectedMs;
  };
  const Row rows[] = {
      {11025.0, 371.0, 371.0},  // 4090 samples
      {11025.0, 371.6, 371.0},  // 4096
      {11025.0, 400.0, 371.0},  {44100.0, 1e300, 92.0},
      {1000.0, 5000.0, 4096.0},  // exactly 4096 samples remain
  };
  const auto voice = Voice(12000, 92);
  for (const Row& row : rows) {
    auto settings = Cepstral();
    settings.windowMs = row.windowMs;
    settings.stepMs = 100.0;
    NoProgress progress;
    const auto result =
        ComputePitch(SpanSource(voice), Whole(voice), row.rateHz, settings, progress);
    EXPECT_TRUE(result.PitchValid) << row.windowMs;
    EXPECT_EQ(settings.windowMs, row.expectedMs) << row.windowMs;
  }
}

TEST(ComputePitch, AutoCorrelationNeeds1100Samples) {
  const auto voice = Voice(4000, 92);
  const PitchResult shorter = Pitch(voice, {100.0, 1199.0}, {});
  EXPECT_FALSE(shorter.PitchValid);
  EXPECT_EQ(shorter.count(), 0);
  EXPECT_TRUE(shorter.PitchTrack.empty());
  const PitchResult result = Pitch(voice, {100.0, 1200.0}, {});
  EXPECT_TRUE(result.PitchValid);
  EXPECT_EQ(result.PitchFrameCount, 12.0);
  EXPECT_EQ(result.PitchTrack.size(), 17u);
  EXPECT_EQ(result.PitchTrack.front(), 0.0);
  EXPECT_EQ(result.PitchTrack[11], 0.0);
  for (const double pitch : result.PitchTrack) EXPECT_GE(pitch, 0.0);
}

TEST(ComputePitch, SurvivesSettingsThatFitNothing) {
  const double nan = std::nan("");
  const double inf = std::numeric_limits<double>::infinity();
  const auto voice = Voice(3000, 92);
  struct Row {
    std::string name;
    double stepMs, windowMs, rateHz;
    SampleRange range;
  };
  const SampleRange all = Whole(voice);
  const Row rows[] = {
      {"step 0", 0.0, 35.0, 11025.0, all},
      {"negative step", -10.0, 35.0, 11025.0, all},
      {"step without number", nan, 35.0, 11025.0, all},
      {"infinite step", inf, 35.0, 11025.0, all},
      {"step below all bounds", 1e-9, 35.0, 11025.0, all},
      {"negative window", 10.0, -35.0, 11025.0, all},
      {"rate 0", 10.0, 35.0, 0.0, all},
      {"rate without number", 10.0, 35.0, nan, all},
      {"infinite rate", 10.0, 35.0, inf, all},
      {"range without number", 10.0, 35.0, 11025.0, {nan, 3000.0}},
      {"range backwards", 10.0, 35.0, 11025.0, {2000.0, 1000.0}},
      {"range beyond all numbers", 10.0, 35.0, 11025.0, {0.0, 1e300}},
  };
  for (const Row& row : rows) {
    auto settings = Cepstral();
    settings.stepMs = row.stepMs;
    settings.windowMs = row.windowMs;
    const PitchResult result = Pitch(voice, row.range, settings, row.rateHz);
    EXPECT_FALSE(result.PitchValid) << row.name;
    EXPECT_TRUE(result.PitchTrack.empty()) << row.name;
  }
}

TEST(ComputePitch, OfAnEmptyStretchIsAnEmptyTrack) {
  const PitchResult result = Pitch(Voice(3000, 92), {500.0, 500.0}, Cepstral());
  EXPECT_TRUE(result.PitchValid);
  EXPECT_EQ(result.count(), 0);
}

TEST(ComputePitch, WithAStepBeyondTheEndIsAnEmptyTrack) {
  auto settings = Cepstral();
  for (const double stepMs : {1e6, 1e15, 1e300}) {
    settings.stepMs = stepMs;
    const PitchResult result = Pitch(Voice(3000, 92), {0.0, 3000.0}, settings);
    EXPECT_TRUE(result.PitchValid) << stepMs;
    EXPECT_EQ(result.count(), 0) << stepMs;
  }
}

TEST(ComputePitch, CancelLeavesNoTrack) {
  const auto voice = Voice(4000, 92);
  for (const std::int32_t method : {kCepstral, kAutoCorrelation}) {
    PitchSettings settings;
    settings.method = method;
    CancellingProgress whole;
    EXPECT_TRUE(ComputePitch(SpanSource(voice), Whole(voice), 11025.0, settings, whole).PitchValid);
    EXPECT_EQ(whole.texts.at(0), " Processing Pitch...(Press mouse to cancel)");
    EXPECT_LE(whole.done.back(), whole.totals.at(0));
    const int steps = static_cast<int>(whole.done.size());
    for (const int step : {1, (steps + 1) / 2, steps}) {
      CancellingProgress progress(step);
      const auto result =
          ComputePitch(SpanSource(voice), Whole(voice), 11025.0, settings, progress);
      EXPECT_FALSE(result.PitchValid) << method << " at step " << step;
      EXPECT_TRUE(result.PitchTrack.empty());
      EXPECT_EQ(progress.endCount, 1);
    }
  }
}

TEST(PitchResult, TimesDivideTheStretchEvenly) {
  PitchResult result;
  result.range = {1000.0, 3000.0};
  result.PitchFrameCount = 4.9;
  EXPECT_EQ(result.count(), 0);
  result.PitchValid = true;
  EXPECT_EQ(result.count(), 4);
  const double times[] = {500.0, 750.0, 1000.0, 1250.0};
  for (std::int64_t i = 0; i < 4; ++i) EXPECT_EQ(result.TimeMs(i, 0.5), times[i]);
}

}  // namespace
}  // namespace cantorix
