// autocorrelation_pitch_test.cpp - the tracker against a plain transcription of the method that
// holds every array whole, against known pitches, and at settings that could run it off its data.
#include "analysis/autocorrelation_pitch.h"

#include <gtest/gtest.h>

#include <limits>

#include "analysis/plain_amdf.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

using testing::CopyingSource;
using testing::Noise;
using testing::PlainTracker;
using testing::Samples;
using testing::Sine;
using testing::Speech;

std::vector<double> Track(const SampleSource& samples, std::int64_t start, std::int64_t end,
                          const AutoCorrelationOptions& options) {
  NoProgress none;
  ProgressScope scope(none, "", 0.0);
  std::vector<double> out(
      static_cast<std::size_t>(std::max<std::int64_t>(end - start, 0) / 100 + 1), 77.0);
  EXPECT_EQ(AutoCorrelationPitch(samples, start, end, options, out, scope), 0);
  return out;
}

std::vector<double> Track(const Samples& x, const AutoCorrelationOptions& options) {
  return Track(SpanSource(x), 0, static_cast<std::int64_t>(x.size()), options);
}

std::size_t VoicedCount(const std::vector<double>& track) {
  return static_cast<std::size_t>(
      std::count_if(track.begin(), track.end(), [](double hz) { return hz > 0.0; }));
}

Samples Clicks(std::size_t count, std::size_t period) {
  Samples x(count, 0);
  for (std::size_t i = 0; i < count; i += period) x[i] = 32767;
  return x;
}

Samples Square(std::size_t count, std::size_t period) {
  Samples x(count);
  for (std::size_t i = 0; i < count; ++i) x[i] = i % period < period / 2 ? 32767 : -32768;
  return x;
}

TEST(AutoCorrelationPitch, GivesTheDigitsOfThePlainMethod) {
  struct Signal {
    const char* name;
    Samples samples;
  };
  const Signal signals[] = {
      {"speech", Speech(1)},
      {"speech, every third sample", Speech(3)},
      {"speech, every fourth sample", Speech(4)},
      {"loud noise", Noise(40000, 32767)},
      {"soft noise", Noise(40000, 600, 7)},
      {"silence", Samples(3000, 0)},
      {"clicks", Clicks(60000, 97)},
      {"full scale", Square(60000, 83)},
      {"lowest value", Samples(30000, -32768)},
      {"offset", Samples(30000, 9000)},
  };
  const AutoCorrelationOptions settings[] = {
      {8000, 50, 500, 100, 1},  {11025, 50, 500, 100, 1}, {11025, 80, 300, 20, 40},
      {12000, 60, 700, 10, 12}, {16000, 50, 500, 30, 1},  {44100, 50, 500, 100, 1},
      {48000, 70, 400, 15, 5},  {48000, 20, 3000, 50, 0}, {1000, 45, 500, 100, -5},
  };
  for (const Signal& signal : signals) {
    for (const AutoCorrelationOptions& o : settings) {
      EXPECT_EQ(Track(signal.samples, o), PlainTracker(signal.samples, o).Track())
          << signal.name << " at " << o.rateHz << " Hz, " << o.lowHz << " to " << o.highHz;
    }
  }
}

TEST(AutoCorrelationPitch, DividesExactlyHoweverLongTheMovingAverage) {
  Samples x = Square(6000, 301);
  const Samples noise = Noise(3000, 32767);
  std::copy(noise.begin(), noise.end(), x.begin() + 3000);
  for (const int length : {1, 2, 3, 5, 7, 13, 31, 64, 97, 128, 251, 255, 256, 257, 300}) {
    const AutoCorrelationOptions options{1000 * length, 2 * length + 7, 9 * length, 100, 1};
    EXPECT_EQ(Track(x, options), PlainTracker(x, options).Track()) << length;
  }
}

TEST(AutoCorrelationPitch, DoesNotDependOnWhereTheSamplesAreOrOnTheirNeighbours) {
  const Samples speech = Speech(4);
  if (speech.empty()) GTEST_SKIP() << "no recorded speech on this machine";
  const AutoCorrelationOptions options{12000, 50, 500, 100, 1};
  const std::int64_t start = 1234;
  const std::int64_t end = 40321;
  const Samples cut(speech.begin() + start, speech.begin() + end);
  const auto expected = PlainTracker(cut, options).Track();
  EXPECT_GT(VoicedCount(expected), 50u);
  EXPECT_EQ(Track(CopyingSource(speech), start, end, options), expected);
  EXPECT_EQ(Track(SpanSource(speech), start, end, options), expected);
}

TEST(AutoCorrelationPitch, FindsTheFundamentalOfAGlide) {
  for (const int rate : {8000, 11025, 16000, 44100, 48000}) {
    Samples glide(static_cast<std::size_t>(2 * rate));
    double phase = 0.0;
    for (std::size_t i = 0; i < glide.size(); ++i) {
      const double hz = 110.0 + 80.0 * static_cast<double>(i) / static_cast<double>(glide.size());
      phase += 2.0 * 3.14159265358979 * hz / rate;
      double x = 0.0;
      for (int harmonic = 1; harmonic <= 6; ++harmonic) x += std::sin(harmonic * phase) / harmonic;
      glide[i] = static_cast<std::int16_t>(std::lround(9000.0 * x));
    }
    const auto track = Track(glide, {rate, 97, 500, 10, 1});
    EXPECT_GT(VoicedCount(track), track.size() * 9 / 10) << rate;
    for (std::size_t f = 0; f < track.size(); ++f) {
      if (track[f] < 0.0) continue;
      const double hz =
          110.0 + 80.0 * 100.0 * static_cast<double>(f) / static_cast<double>(glide.size());
      EXPECT_NEAR(track[f], hz, hz * 0.04) << "frame " << f << " at " << rate << " Hz";
    }
  }
}

TEST(AutoCorrelationPitch, LevelIsScaledByOnePlaceTooFewIsKept) {
  Samples x = Square(4000, 20);
  for (auto& value : x) value = static_cast<std::int16_t>(value > 0 ? 31 * 256 : -31 * 256);
  // 32 places of magnitude 31, times 10, over 31: 320 where the mean would give 310.
  EXPECT_GT(VoicedCount(Track(x, {1000, 30, 200, 100, 320})), 30u);
  EXPECT_EQ(VoicedCount(Track(x, {1000, 30, 200, 100, 321})), 0u);
}

TEST(AutoCorrelationPitch, LeavesEdgesAndTheLastEntryUnvoiced) {
  const Samples x = Sine(1100, 11025.0, 200.0, 12000.0);
  const auto track = Track(x, {11025, 50, 500, 100, 1});
  ASSERT_EQ(track.size(), 12u);
  for (const std::size_t f : {0u, 1u, 2u, 9u, 10u, 11u}) EXPECT_EQ(track[f], -0.1) << f;
}

TEST(AutoCorrelationPitch, StaysUnvoicedAtSettingsThatLeaveNothingToSearch) {
  constexpr auto kMax = std::numeric_limits<std::int32_t>::max();
  constexpr auto kMin = std::numeric_limits<std::int32_t>::min();
  const Samples x = Sine(20000, 11025.0, 200.0, 12000.0);
  const AutoCorrelationOptions settings[] = {
      {11025, 50, 20000, 100, 1},    // no lag at the high end
      {11025, 500, 50, 100, 1},      // ends exchanged
      {11025, 200, 200, 100, 1},     // no range
      {11025, 5600, 11025, 100, 1},  // one lag at both ends
      {999, 50, 400, 100, 1},        // no sample in a millisecond
      {0, 50, 500, 100, 1},          // no rate
      {11025, 0, 500, 100, 1},       // no low end
      {-11025, -500, -50, 100, 1},   // negative throughout
      {kMin, -1, -1, 100, 1},        //
      {44100, 1, 500, 100, 1},       // lags longer than the recording
      {kMax, 1, kMax, 100, 1},       //
      {11025, 50, 500, 100, kMax},   // never loud enough
      {11025, 4000, 11000, 100, 1},  // lag 1 to 2: only the ends
  };
  for (const AutoCorrelationOptions& o : settings) {
    EXPECT_EQ(VoicedCount(Track(x, o)), 0u) << o.rateHz << ", " << o.lowHz << " to " << o.highHz;
  }
}

TEST(AutoCorrelationPitch, StaysInsideItsDataAtExtremeSettings) {
  constexpr auto kMax = std::numeric_limits<std::int32_t>::max();
  const Samples x = Noise(9000, 20000);
  for (const AutoCorrelationOptions& o : {
           AutoCorrelationOptions{1000, 250, 1000, 100, 1},  // levels reach past the end
           {11025, 50, 500, kMax, -kMax},
           {11025, 50, 500, -kMax, 1},
           {48000, 8, 48000, 100, 1},      // pitches beyond 16 bits
           {3000000, 600, 30000, 100, 1},  // a moving average of 3000 samples
       }) {
    EXPECT_EQ(Track(x, o).size(), 91u);
  }
  EXPECT_EQ(VoicedCount(Track(SpanSource(x), 300, 200, {11025, 50, 500, 100, 1})), 0u);
  EXPECT_EQ(Track(SpanSource(x), -5000, 20000, {11025, 50, 500, 100, 1}).size(), 251u);
}

TEST(AutoCorrelationPitch, RefusesATrackOfAnotherSize) {
  const Samples x(2000, 0);
  NoProgress none;
  ProgressScope scope(none, "", 0.0);
  std::vector<double> out(20);
  EXPECT_THROW(AutoCorrelationPitch(SpanSource(x), 0, 2000, {11025, 50, 500, 100, 1}, out, scope),
               std::out_of_range);
}

TEST(AutoCorrelationPitch, EndsWhenTheUserCancels) {
  struct CancelAfter : NoProgress {
    bool Step(double done) override { return done >= 1000.0; }
  } impatient;
  ProgressScope scope(impatient, "", 0.0);
  const Samples x = Noise(300000, 10000);
  std::vector<double> out(3001);
  try {
    AutoCorrelationPitch(SpanSource(x), 0, 300000, {11025, 50, 500, 100, 1}, out, scope);
    ADD_FAILURE() << "not cancelled";
  } catch (const Abandoned& abandoned) {
    EXPECT_EQ(abandoned.reason(), AbandonReason::kCancelled);
  }
}

}  // namespace
}  // namespace cantorix
