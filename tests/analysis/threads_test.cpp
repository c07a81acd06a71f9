// threads_test.cpp - the digits of every analysis are those of one thread, up to the frames at the
// end that keep what an earlier one left, and a store that fails ends it.
#include <gtest/gtest.h>

#include <condition_variable>
#include <functional>
#include <limits>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "analysis/intensity.h"
#include "analysis/pitch.h"
#include "analysis/spectrogram.h"
#include "platform/file_error.h"
#include "platform/workers.h"
#include "settings/settings.h"
#include "support/cancelling_progress.h"

namespace cantorix {
namespace {

constexpr double kSpeechRateHz = 11025.0;

// A buzz with noise and pauses.
std::vector<std::int16_t> Speech(std::size_t count) {
  std::mt19937 random(20261122);
  std::vector<std::int16_t> samples(count);
  for (std::size_t i = 0; i < count; ++i) {
    const bool pause = i / 3000 % 4 == 3;
    const auto noise = static_cast<int>(random() % 600) - 300;
    samples[i] = pause ? static_cast<std::int16_t>(noise / 100)
                       : static_cast<std::int16_t>(noise + (i % (70 + i / 5000) < 9 ? 9000 : -900));
  }
  return samples;
}

// Reads of the first thread wait until as many have read as shall take part. From `badFrom` on the
// samples cannot be read.
class WatchedSource : public SampleSource {
 public:
  WatchedSource(const std::vector<std::int16_t>& samples, std::size_t threads,
                std::int64_t badFrom = std::numeric_limits<std::int64_t>::max())
      : samples_(samples), expected_(threads), badFrom_(badFrom) {}

  std::int64_t length() const override { return std::ssize(samples_); }
  std::span<const std::int16_t> View(std::int64_t start, std::int64_t count,
                                     std::vector<std::int16_t>& scratch) const override {
    std::unique_lock lock(mutex_);
    seen_.insert(std::this_thread::get_id());
    changed_.notify_all();
    changed_.wait_for(lock, std::chrono::seconds(10), [&] { return seen_.size() >= expected_; });
    lock.unlock();
    if (start + count > badFrom_) throw FileError("unreadable");
    scratch.assign(samples_.begin() + start, samples_.begin() + start + count);
    return scratch;
  }
  std::size_t threads() const { return seen_.size(); }

 private:
  const std::vector<std::int16_t>& samples_;
  std::size_t expected_;
  std::int64_t badFrom_;
  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  mutable std::set<std::thread::id> seen_;
};

using Digits = std::vector<double>;
using Measuring = std::function<Digits(const SampleSource&, Progress&, Workers*)>;

SampleRange Whole(const SampleSource& samples) {
  return {0.0, static_cast<double>(samples.length())};
}

Measuring Pitch(std::int32_t method, double stepMs) {
  return [=](const SampleSource& samples, Progress& progress, Workers* workers) {
    PitchSettings settings;
    settings.method = method;
    settings.stepMs = stepMs;
    return ComputePitch(samples, Whole(samples), kSpeechRateHz, settings, progress, std::nullopt,
                        workers)
        .PitchTrack;
  };
}

Measuring Intensity(std::int32_t relative) {
  return [=](const SampleSource& samples, Progress& progress, Workers* workers) {
    return ComputeIntensity(samples, Whole(samples), kSpeechRateHz, {20.0, 0.5, relative}, progress,
                            workers)
        .IntensityTrack.levels();
  };
}

Measuring Columns(bool keepLevels, bool formants) {
  return [=](const SampleSource& samples, Progress& progress, Workers* workers) {
    SpectrogramSettings settings;
    settings.trackFormants = formants ? 1 : 0;
    const auto total = static_cast<double>(samples.length());
    const auto picture =
        ComputeSpectrogram(samples, {Whole(samples), total, kSpeechRateHz, 900, 40, keepLevels},
                           settings, progress, workers);
    Digits digits;
    if (keepLevels) digits.assign(picture.levels.get(), picture.levels.get() + 900 * 40);
    for (const auto& column : picture.formants) {
      digits.insert(digits.end(), column.begin(), column.end());
    }
    digits.push_back(picture.formantsFound ? 1.0 : 0.0);
    return digits;
  };
}

const struct {
  const char* name;
  Measuring run;
  std::size_t samples;
} kAnalyses[] = {
    {"cepstral pitch", Pitch(kCepstral, 1.0), 20000},
    {"autocorrelation pitch", Pitch(kAutoCorrelation, 10.0), 1100000},
    {"intensity", Intensity(0), 40000},
    {"relative intensity", Intensity(1), 40000},
    {"spectrogram", Columns(true, false), 20000},
    {"spectrogram with formants", Columns(true, true), 20000},
    {"formants", Columns(false, true), 20000},
};

TEST(Threads, ChangeNoDigit) {
  for (const auto& row : kAnalyses) {
    const auto speech = Speech(row.samples);
    NoProgress none;
    const Digits alone = row.run(WatchedSource(speech, 1), none, nullptr);
    EXPECT_GT(std::set<double>(alone.begin(), alone.end()).size(), 5U) << row.name;
    for (const int threads : {1, 2, 5}) {
      Workers workers(threads);
      const WatchedSource source(speech, static_cast<std::size_t>(threads));
      EXPECT_EQ(row.run(source, none, &workers), alone) << row.name << ' ' << threads;
      EXPECT_EQ(source.threads(), static_cast<std::size_t>(threads)) << row.name;
    }
  }
}

TEST(Threads, AStoreThatFailsEndsTheAnalysis) {
  for (const auto& row : kAnalyses) {
    const auto speech = Speech(row.samples);
    const auto badFrom = static_cast<std::int64_t>(row.samples / 2);
    const auto reason = [&](Workers* workers, std::size_t threads) -> std::string {
      NoProgress none;
      try {
        row.run(WatchedSource(speech, threads, badFrom), none, workers);
      } catch (const FileError& error) {
        return error.what();
      }
      return "no failure";
    };
    Workers workers(3);
    EXPECT_NE(reason(nullptr, 1), "no failure") << row.name;
    EXPECT_NE(reason(&workers, 3), "no failure") << row.name;
  }
}

}  // namespace
}  // namespace cantorix
