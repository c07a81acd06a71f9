// autocorrelation_pitch_test.cpp - the tracker against a plain transcription of the method that
// holds every array whole, and at settings that could run it off its data.
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
using testing::Speech;

constexpr auto kMax = std::numeric_limits<std::int32_t>::max();
constexpr auto kMin = std::numeric_limits<std::int32_t>::min();

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

Samples Square(std::size_t count, std::size_t period, int high = 32767, int low = -32768) {
  Samples x(count);
  for (std::size_t i = 0; i < count; ++i) {
    x[i] = static_cast<std::int16_t>(i % period < period / 2 ? high : low);
  }
  return x;
}

// The whole of the samples from memory, and a stretch of them from a store.
void ExpectPlainDigits(const char* name, const Samples& x, const AutoCorrelationOptions& o) {
  const std::int64_t end = std::ssize(x) - 77;
  EXPECT_EQ(Track(x, o), PlainTracker(x, o).Track()) << name << " at " << o.rateHz << " Hz";
  EXPECT_EQ(Track(CopyingSource(x), 1234, end, o),
            PlainTracker(Samples(x.begin() + 1234, x.begin() + end), o).Track())
      << name << " at " << o.rateHz << " Hz, a stretch";
}

TEST(AutoCorrelationPitch, GivesTheDigitsOfThePlainMethodWhereverTheSamplesAre) {
  struct Signal {
    const char* name;
    Samples samples;
  };
  Samples clicks(40000, 0);
  for (std::size_t i = 0; i < clicks.size(); i += 97) clicks[i] = 32767;
  Samples bursts = Square(40000, 83);
  for (std::size_t i = 0; i < bursts.size(); ++i) bursts[i] = i % 1700 < 800 ? 0 : bursts[i];
  Samples growing = Square(40000, 83);  // too soft at first, and as periodic
  for (std::size_t i = 0; i < 700; ++i) growing[i] = static_cast<std::int16_t>(growing[i] / 40);
  const Signal signals[] = {
      {"speech, every fourth sample", Speech(4)},
      {"loud noise", Noise(40000, 32767)},
      {"soft noise", Noise(40000, 600, 7)},
      {"silence", Samples(3000, 0)},
      {"clicks", clicks},
      {"bursts", bursts},
      {"growing to full scale", growing},
      {"lowest value", Samples(9000, -32768)},
      {"offset", Samples(9000, 9000)},
  };
  const AutoCorrelationOptions settings[] = {
      {8000, 50, 500, 100, 60},  {11025, 80, 300, 20, 40}, {12000, 60, 700, 10, 12},
      {16000, 50, 500, 30, 150}, {44100, 50, 500, 100, 1}, {48000, 70, 400, 15, 5},
      {48000, 20, 3000, 50, 0},  {1000, 45, 500, 100, -5},
  };
  for (const Signal& signal : signals) {
    for (const auto& options : settings) ExpectPlainDigits(signal.name, signal.samples, options);
  }
  // Moving averages of these lengths: their division is exact.
  Samples x = Square(6000, 301);
  std::copy_n(Noise(3000, 32767).begin(), 3000, x.begin() + 3000);
  for (const int length : {1, 2, 3, 5, 7, 31, 64, 97, 251, 255, 256, 257, 300}) {
    ExpectPlainDigits("average", x, {1000 * length, 2 * length + 7, 9 * length, 100, 1});
  }
}

TEST(AutoCorrelationPitch, LevelIsScaledByOnePlaceTooFewIsKept) {
  const Samples x = Square(4000, 20, 31 * 256, -31 * 256);
  // 32 places of magnitude 31, times 10, over 31: 320 where the mean would give 310.
  EXPECT_GT(VoicedCount(Track(x, {1000, 30, 200, 100, 320})), 30u);
  EXPECT_EQ(VoicedCount(Track(x, {1000, 30, 200, 100, 321})), 0u);
}

TEST(AutoCorrelationPitch, SurvivesExtremeSettings) {
  const Samples x = testing::Sine(20000, 11025.0, 200.0, 12000.0);
  for (const AutoCorrelationOptions& nothingToSearch : {
           AutoCorrelationOptions{11025, 50, 20000, 100, 1},  // no lag at the high end
           {11025, 500, 50, 100, 1},                          // ends exchanged
           {11025, 5600, 11025, 100, 1},                      // one lag at both ends
           {11025, 4000, 11000, 100, 1},                      // lag 1 to 2: only the ends
           {999, 50, 400, 100, 1},                            // no sample in a millisecond
           {11025, 0, 500, 100, 1},                           // no low end
           {11025, 50, 0, 100, 1},                            // no high end
           {kMin, -1, -1, 100, 1},                            // negative throughout
           {44100, 1, 500, 100, 1},                           // lags longer than the recording
           {kMax, 1, kMax, 100, 1},                           //
           {11025, 50, 500, 100, kMax},                       // never loud enough
       }) {
    EXPECT_EQ(Track(x, nothingToSearch), std::vector<double>(201, -0.1)) << nothingToSearch.lowHz;
  }
  const Samples noise = Noise(9000, 20000);
  for (const AutoCorrelationOptions& edge : {
           AutoCorrelationOptions{1000, 250, 1000, 100, 1},  // levels reach past the end
           {11025, 50, 500, kMax, -kMax},
           {11025, 50, 500, -kMax, 1},
           {3000000, 600, 30000, 100, 1},  // a moving average of 3000 samples
           {48000, 8, 48000, 100, 1},      // pitches beyond 16 bits are none
       }) {
    for (const double hz : Track(noise, edge)) EXPECT_LE(hz, 3276.7) << edge.lowHz;
  }
  const AutoCorrelationOptions usual{11025, 50, 500, 100, 1};
  EXPECT_EQ(VoicedCount(Track(SpanSource(noise), 300, 200, usual)), 0u);
  EXPECT_EQ(Track(SpanSource(noise), -5000, 20000, usual).size(), 251u);
  NoProgress none;
  ProgressScope scope(none, "", 0.0);
  std::vector<double> wrong(20);
  EXPECT_THROW(AutoCorrelationPitch(SpanSource(x), 0, 2000, usual, wrong, scope),
               std::out_of_range);
}

}  // namespace
}  // namespace cantorix
