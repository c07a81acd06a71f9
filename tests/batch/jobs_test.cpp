// jobs_test.cpp - how many threads loop over recordings, and how many are left to computations.
#include "batch/jobs.h"

#include <gtest/gtest.h>

#include <latch>
#include <mutex>
#include <set>
#include <thread>

#include "batch/request.h"

namespace cantorix::batch {
namespace {

// The threads that may still begin to compute.
int FreeThreads(Workers& workers) {
  int count = 0;
  while (workers.Take()) ++count;
  for (int i = 0; i < count; ++i) workers.Return();
  return count;
}

TEST(Jobs, LoopSideBySideAndLeaveTheirThreadsToTheOthers) {
  struct Row {
    int wanted, count, most;
  };
  for (const Row& row : {Row{5, 3, 5}, {1, 3, 3}, {1, 1, 1}, {4, 1, 4}, {0, 1, ProcessorCount()}}) {
    Request request;
    request.threads = row.wanted;
    Jobs jobs(request, row.count);
    EXPECT_EQ(FreeThreads(jobs.workers()), row.most - row.count) << row.wanted;
    std::latch all(row.count);
    std::mutex mutex;
    std::multiset<std::thread::id> threads;
    jobs.Run([&] {
      all.arrive_and_wait();
      const std::lock_guard lock(mutex);
      threads.insert(std::this_thread::get_id());
    });
    EXPECT_EQ(threads.size(), static_cast<std::size_t>(row.count)) << row.wanted;
    EXPECT_EQ(threads.count(std::this_thread::get_id()), 1U);
    EXPECT_EQ(FreeThreads(jobs.workers()), row.most) << row.wanted;
  }
}

}  // namespace
}  // namespace cantorix::batch
