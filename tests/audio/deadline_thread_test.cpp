// deadline_thread_test.cpp - calls into something that hangs.
#include "audio/deadline_thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>

#include "support/sound_samples.h"

namespace cantorix {
namespace {

using std::chrono::milliseconds;

TEST(DeadlineThread, GivesWhatTheWorkGave) {
  DeadlineThread thread;
  EXPECT_TRUE(thread.Run([] { return true; }, milliseconds(10000)));
  EXPECT_FALSE(thread.Run([] { return false; }, milliseconds(10000)));
  EXPECT_TRUE(thread.isAnswering());
}

TEST(DeadlineThread, GivesUpAndCatchesUp) {
  const auto gate = std::make_shared<std::mutex>();
  const auto opened = std::make_shared<std::atomic<int>>(0);
  const auto undone = std::make_shared<std::atomic<int>>(0);
  const auto closed = std::make_shared<std::atomic<int>>(0);
  DeadlineThread thread;
  gate->lock();
  const auto open = [gate, opened] {
    const std::lock_guard wait(*gate);
    ++*opened;
    return true;
  };
  EXPECT_FALSE(thread.Run(open, milliseconds(50), [undone] { ++*undone; }));
  EXPECT_FALSE(thread.isAnswering());
  // Now it fails at once, and is never begun.
  EXPECT_FALSE(thread.Run(open, milliseconds(60000)));
  thread.Post([closed] { ++*closed; });
  EXPECT_EQ(*closed, 0);
  gate->unlock();
  EXPECT_TRUE(Eventually([&] { return *closed == 1 && thread.isAnswering(); }));
  EXPECT_EQ(*opened, 1);
  EXPECT_EQ(*undone, 1) << "a late success is taken back";
  EXPECT_TRUE(thread.Run([] { return true; }, milliseconds(10000)));
}

TEST(DeadlineThread, OutlivesItsOwnerWhenItHangs) {
  const auto gate = std::make_shared<std::mutex>();
  gate->lock();
  {
    // The work owns what owns the thread, as a stream owns its host.
    const auto owner = std::make_shared<DeadlineThread>();
    owner->Run(
        [gate, owner] {
          const std::lock_guard wait(*gate);
          return true;
        },
        milliseconds(20));
  }
  gate->unlock();
  EXPECT_TRUE(Eventually([&] { return gate.use_count() == 1; }));
}

}  // namespace
}  // namespace cantorix
