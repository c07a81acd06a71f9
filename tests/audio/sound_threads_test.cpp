// sound_threads_test.cpp - recorder and player with devices that run on threads of their own, many
// times over and for an hour of sound. Made for the thread sanitizer; the samples are compared
// everywhere.
#include <gtest/gtest.h>

#include "audio/sound_player.h"
#include "audio/sound_recorder.h"
#include "support/scripted_wave.h"
#include "support/sound_samples.h"
#include "support/virtual_clock.h"

namespace cantorix {
namespace {

#ifdef __SANITIZE_THREAD__
constexpr int kRounds = 10000;
#else
constexpr int kRounds = 100;
#endif

void LetOthersRun() { std::this_thread::sleep_for(std::chrono::microseconds(20)); }

// Endless sound that repeats after a prime number of samples.
class LongSound {
 public:
  std::span<const std::int16_t> Piece(std::int64_t at, std::size_t count) const {
    return std::span(samples_).subspan(static_cast<std::size_t>(at % kPeriod), count);
  }

 private:
  static constexpr std::int64_t kPeriod = 100003;
  std::vector<std::int16_t> samples_ = [] {
    auto samples = SamplesFrom(0, kPeriod);
    samples.insert(samples.end(), samples.begin(), samples.begin() + 65536);
    return samples;
  }();
};

class ComparingScope : public ScopeSink {
 public:
  explicit ComparingScope(const LongSound& sound) : sound_(sound) {}
  void Trace(std::span<const std::int16_t> samples) override {
    const auto expected = sound_.Piece(at, samples.size());
    if (!std::equal(samples.begin(), samples.end(), expected.begin())) ++wrongBuffers;
    at += static_cast<std::int64_t>(samples.size());
  }
  std::int64_t at = 0;
  int wrongBuffers = 0;

 private:
  const LongSound& sound_;
};

class SoundThreads : public testing::Test {
 protected:
  ~SoundThreads() override { EXPECT_TRUE(notices->texts().empty()); }

  const LongSound sound{};
  const std::shared_ptr<RecordingNotices> notices = std::make_shared<RecordingNotices>();
  VirtualClock clock;
  const FakeMemoryProbe memory{};
};

TEST_F(SoundThreads, AnHourOfRecordingHasEverySample) {
  constexpr std::uint32_t kFastestRateHz = 44100;
  constexpr std::int64_t kTotal = std::int64_t{kFastestRateHz} * 3600;
  constexpr std::int64_t kPeriod = 1102;  // of a callback
  const auto scope = std::make_shared<ComparingScope>(sound);
  const auto device = std::make_shared<ScriptedIn>();
  SoundRecorder recorder(device, notices, clock, memory);
  recorder.SetUp({kFastestRateHz, 16, {}, {}, nullptr, scope});
  ASSERT_TRUE(recorder.Start());
  for (std::int64_t at = 0; at < kTotal; at += kPeriod) {
    device->Deliver(sound.Piece(at, kPeriod));
    while (at - recorder.Status().deliveredSamples > 9 * kFastestRateHz) LetOthersRun();
  }
  recorder.Stop();
  EXPECT_EQ(scope->wrongBuffers, 0);
  EXPECT_GT(scope->at, kTotal - 16384);
  EXPECT_EQ(recorder.Status().device.lostSamples, 0);
}

TEST_F(SoundThreads, ManyRecordingsStartDeliverAndStop) {
  for (int round = 0; round < kRounds; ++round) {
    const auto scope = std::make_shared<ComparingScope>(sound);
    const auto device = std::make_shared<ScriptedIn>();
    SoundRecorder recorder(device, notices, clock, memory);
    recorder.SetUp({11025, 16, {}, {}, nullptr, scope});
    ASSERT_TRUE(recorder.Start());
    std::atomic<bool> ends{false};
    std::thread callback([&] {
      for (std::int64_t at = 0; !ends;) {
        if (at - recorder.Status().deliveredSamples > 50000) {
          LetOthersRun();
        } else {
          device->Deliver(sound.Piece(at, 1500));
          at += 1500;
        }
      }
    });
    while (recorder.Status().deliveredSamples < (round % 4) * 4096) LetOthersRun();
    recorder.Stop();
    ends = true;
    callback.join();
    ASSERT_EQ(scope->wrongBuffers, 0) << "round " << round;
    ASSERT_GE(scope->at, (round % 4) * 4096);
  }
}

TEST_F(SoundThreads, ManyPlaybacksStartPlayAndStop) {
  const auto stretch = sound.Piece(0, 40000);
  for (int round = 0; round < kRounds; ++round) {
    const auto device = std::make_shared<ScriptedOut>();
    SoundPlayer player(device, notices, clock, memory);
    player.SetUpFromMemory(SpanSource(stretch), {0, 40000, 16000});
    ASSERT_TRUE(player.Start());
    std::atomic<bool> ends{false};
    std::atomic<int> wrong{0};
    std::thread callback([&] {
      // Like a device it begins when there is enough, and asks at any time from then on.
      std::int64_t at = 0;
      while (!ends && !device->feed()->WantsStart()) LetOthersRun();
      while (!ends) {
        const auto heard = device->Take(400);
        for (const std::int16_t sample : heard) {
          if (sample == 0) continue;  // a gap, or the end
          wrong += sample != stretch[static_cast<std::size_t>(at++)];
        }
      }
    });
    while (device->Status().playedSamples < (round % 5) * 8000) LetOthersRun();
    player.Stop();
    ends = true;
    callback.join();
    ASSERT_EQ(wrong, 0) << "round " << round;
  }
}

}  // namespace
}  // namespace cantorix
