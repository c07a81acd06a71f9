// workers_test.cpp - parts in order, the earliest failure, and no more threads than are to be had.
#include "platform/workers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <new>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "platform/abandon.h"
#include "support/cancelling_progress.h"

namespace cantorix {
namespace {

using namespace std::chrono_literals;

// The threads that are at work, and the most that ever were. The first comers wait for as many as
// shall come.
class Crowd {
 public:
  explicit Crowd(std::size_t expected) : expected_(expected) {}

  void Stay() {
    std::unique_lock lock(mutex_);
    most_ = std::max(most_, ++present_);
    seen_.insert(std::this_thread::get_id());
    changed_.notify_all();
    changed_.wait_for(lock, 10s, [this] { return seen_.size() >= expected_; });
    --present_;
  }
  int most() const { return most_; }

 private:
  std::size_t expected_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::set<std::thread::id> seen_;
  int present_ = 0, most_ = 0;
};

TEST(ComputeParts, EveryPlaceIsComputedOnceByAsManyThreadsAsThereAre) {
  const struct {
    std::size_t count, partLength;
    int threads;
    int expected;  // threads at one time
  } rows[] = {{1000, 10, 1, 1}, {1000, 10, 2, 2}, {1000, 10, 5, 5}, {1001, 250, 16, 5},
              {10, 10, 16, 1},  {0, 10, 4, 0},    {7, 0, 3, 3}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.count) + " by " + std::to_string(row.threads));
    Workers workers(row.threads);
    Crowd crowd(static_cast<std::size_t>(row.expected));
    std::vector<int> times(row.count);
    CancellingProgress shown;
    ProgressScope scope(shown, "", 0.0);
    std::atomic<int> works = 0;
    const auto caller = std::this_thread::get_id();
    ComputeParts(&workers, row.count, row.partLength, scope, [&]() -> PartWork {
      const bool first = works++ == 0;
      EXPECT_TRUE(!first || std::this_thread::get_id() == caller);
      return [&](const Part& part, ProgressScope& progress) {
        crowd.Stay();
        EXPECT_LE(part.end - part.first, std::max<std::size_t>(row.partLength, 1));
        for (std::size_t i = part.first; i < part.end; ++i) ++times[i];
        progress.StepOrAbandon(static_cast<double>(part.first));
      };
    });
    EXPECT_EQ(times, std::vector<int>(row.count, 1));
    EXPECT_EQ(crowd.most(), row.expected);
    EXPECT_LE(works, row.expected);
    EXPECT_TRUE(std::is_sorted(shown.done.begin(), shown.done.end()));
    for (int i = 1; i < row.threads; ++i) EXPECT_TRUE(workers.Take()) << "all were given back";
    EXPECT_FALSE(workers.Take());
  }
}

TEST(ComputeParts, TwoAtOnceShareTheThreads) {
  Workers workers(3, 2);
  Crowd crowd(3);
  const auto compute = [&] {
    CancellingProgress shown;
    ProgressScope scope(shown, "", 0.0);
    ComputeParts(&workers, 200, 1, scope,
                 [&]() -> PartWork { return [&](const Part&, ProgressScope&) { crowd.Stay(); }; });
    workers.Return();
  };
  std::jthread other(compute);
  compute();
  other.join();
  EXPECT_EQ(crowd.most(), 3);
}

TEST(ComputeParts, TheEarliestFailureIsThrownAndEndsWhatIsBehindIt) {
  for (const int threads : {1, 2, 8}) {
    Workers workers(threads);
    std::atomic<int> behind = 0;
    std::vector<std::atomic<bool>> done(40);
    CancellingProgress shown;
    ProgressScope scope(shown, "", 0.0);
    try {
      ComputeParts(&workers, 40 * 4, 4, scope, [&]() -> PartWork {
        return [&](const Part& part, ProgressScope& progress) {
          const std::size_t i = part.first / 4;
          if (i >= 30) ++behind;
          if (i == 12) std::this_thread::sleep_for(20ms);  // fails last, but stands first
          if (i == 12 || i == 13) throw std::runtime_error(std::to_string(i));
          for (int step = 0; step < 20; ++step) {
            std::this_thread::sleep_for(100us);
            progress.StepOrAbandon(0.0);
          }
          done[i] = true;
        };
      });
      ADD_FAILURE() << "nothing thrown";
    } catch (const std::runtime_error& failure) {
      EXPECT_STREQ(failure.what(), "12") << threads;
    }
    for (std::size_t i = 0; i < 12; ++i) EXPECT_TRUE(done[i]) << i;
    EXPECT_EQ(behind, 0) << threads;
  }
}

TEST(ComputeParts, ACancelEndsAllThreadsSoon) {
  Workers workers(4);
  CancellingProgress shown(3);
  ProgressScope scope(shown, "", 0.0);
  std::atomic<int> begun = 0;
  EXPECT_THROW(ComputeParts(&workers, 10000, 1, scope,
                            [&]() -> PartWork {
                              return [&](const Part&, ProgressScope& progress) {
                                ++begun;
                                std::this_thread::sleep_for(100us);
                                progress.StepOrAbandon(0.0);
                              };
                            }),
               Abandoned);
  EXPECT_LT(begun, 1000);
}

TEST(ComputeParts, AThreadWithoutMemoryLeavesItsPartsToTheOthers) {
  Workers workers(4);
  CancellingProgress shown;
  ProgressScope scope(shown, "", 0.0);
  std::vector<int> times(100);
  const auto caller = std::this_thread::get_id();
  const auto newWork = [&]() -> PartWork {
    if (std::this_thread::get_id() != caller) throw std::bad_alloc();
    return [&](const Part& part, ProgressScope&) { ++times[part.first]; };
  };
  ComputeParts(&workers, times.size(), 1, scope, newWork);
  EXPECT_EQ(times, std::vector<int>(100, 1));
  EXPECT_THROW(ComputeParts(&workers, 1, 1, scope, []() -> PartWork { throw std::bad_alloc(); }),
               std::bad_alloc);
}

TEST(Workers, AProcessorIsThereAtLeast) {
  EXPECT_GE(ProcessorCount(), 1);
  EXPECT_LE(ProcessorCount(), static_cast<int>(std::thread::hardware_concurrency()));
}

}  // namespace
}  // namespace cantorix
