// trace_pacer_test.cpp - a trace that moves evenly, whatever pieces its sound comes in.
#include "audio/trace_pacer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace cantorix {
namespace {

constexpr std::uint32_t kTraceRateHz = 16000;
constexpr double kPictureMs = 1000.0 / 30.0;

std::vector<std::int16_t> Counting(int from, int count) {
  std::vector<std::int16_t> samples(static_cast<std::size_t>(count));
  std::iota(samples.begin(), samples.end(), static_cast<std::int16_t>(from));
  return samples;
}

TEST(TracePacer, DrawsEvenlyAndEverySampleOnceWhatComesInPieces) {
  // Sound every 25 ms, a picture every 33.3 ms, for one second.
  TracePacer pacer(kTraceRateHz);
  int arrived = 0;
  int drawn = 0;
  bool runs = false;
  for (int picture = 0; picture < 30; ++picture) {
    const double nowMs = picture * kPictureMs;
    for (; arrived <= nowMs * 16.0; arrived += 400) pacer.Take(Counting(arrived, 400));
    const auto due = pacer.Due(nowMs);
    for (const std::int16_t sample : due) ASSERT_EQ(sample, drawn++);
    const bool starts = !runs;
    runs = arrived >= 800;
    if (starts) continue;
    EXPECT_NEAR(static_cast<double>(due.size()), 533.0, 1.0) << picture;
    const double behindMs = nowMs - drawn / 16.0;
    EXPECT_GT(behindMs, 0.0);
    EXPECT_LT(behindMs, 60.0);
  }
  EXPECT_GT(drawn, 14000);
}

TEST(TracePacer, WhatComesLateIsCaughtUpWith) {
  struct Row {
    const char* name;
    int extra;            // samples on top of the first 800
    double pauseMs;       // until the next picture
    std::size_t due;      // then
    std::size_t nextDue;  // 10 ms later, 160 samples having arrived
  };
  const Row rows[] = {
      {"in time", 1600, 33.0, 528, 160},
      {"ran dry: waits for 50 ms in hand", 0, 100.0, 800, 0},
      {"just dry", 0, 50.0, 800, 160},
      {"far behind: all but 50 ms at once", 8000, 10.0, 8000, 160},
      {"more than a second came", 40000, 10.0, 15200, 160},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TracePacer pacer(kTraceRateHz);
    pacer.Take(Counting(0, 799));
    EXPECT_TRUE(pacer.Due(0.0).empty()) << "not 50 ms yet";
    pacer.Take(Counting(799, 1));
    EXPECT_TRUE(pacer.Due(500.0).empty()) << "the clock starts here";
    pacer.Take(Counting(800, row.extra));
    EXPECT_EQ(pacer.Due(500.0 + row.pauseMs).size(), row.due);
    pacer.Take(Counting(0, 160));
    EXPECT_EQ(pacer.Due(510.0 + row.pauseMs).size(), row.nextDue);
  }
}

}  // namespace
}  // namespace cantorix
