// pitch_continuity_test.cpp - the rules over runs of frames on contours worked out by hand.
#include "analysis/pitch_continuity.h"

#include <gtest/gtest.h>

#include <vector>

namespace cantorix {
namespace {

using Contour = std::vector<std::int16_t>;

constexpr std::int16_t U = kUnvoiced;
constexpr std::int16_t R = kRejected;

TEST(KeepContinuousRuns, MendsPartsAndRejects) {
  struct Row {
    const char* what;
    Contour values, expected;  // tolerance 10 %
  };
  const Row rows[] = {
      {"nothing voiced", {U, U, U}, {U, U, U}},
      {"five frames stay", {U, 1000, 1100, 1000, 900, 990, U}, {U, 1000, 1100, 1000, 900, 990, U}},
      {"four frames go", {1000, 1000, 1000, 1000, U}, {R, R, R, R, U}},
      {"an outlier becomes the mean of its neighbours",
       {1000, 1000, 1500, 1001, 1000},
       {1000, 1000, 1000, 1001, 1000}},
      {"a frame between two near neighbours gives way when it cannot reach the next ones",
       {1000, 1000, 1100, 950, 950},
       {1000, 1000, 975, 950, 950}},
      {"two kept runs that touch lose the frame between them",
       {1000, 1000, 1000, 1000, 1000, 2000, 2000, 2000, 2000, 2000},
       {1000, 1000, 1000, 1000, U, 2000, 2000, 2000, 2000, 2000}},
      {"a rejected neighbour takes nothing away",
       {1000, 1000, 1000, 1000, 1000, 2000, 2000, 3000, 4000},
       {1000, 1000, 1000, 1000, 1000, R, R, R, R}},
      {"the first frame of a run is never mended",
       {600, 1000, 1000, 1000, 1000, 1000},
       {R, 1000, 1000, 1000, 1000, 1000}},
  };
  for (const Row& row : rows) {
    Contour values = row.values;
    KeepContinuousRuns(values, 10);
    EXPECT_EQ(values, row.expected) << row.what;
  }
}

TEST(BridgeGaps, DrawsALineOverShortGapsWithNearEnds) {
  struct Row {
    const char* what;
    Contour values, expected;  // tolerance 10 %
  };
  const Row rows[] = {
      {"one frame", {1000, R, 1100}, {1000, 1050, 1100}},
      {"falling, toward zero", {1000, R, R, 990}, {1000, 997, 994, 990}},
      {"one frame, ends at the limit of 14 %", {1000, R, 1150}, {1000, 1075, 1150}},
      {"one frame, ends beyond it", {1000, R, 1151}, {1000, U, 1151}},
      {"six frames",
       {1000, R, R, R, R, R, R, 1070},
       {1000, 1010, 1020, 1030, 1040, 1050, 1060, 1070}},
      {"seven frames", {1000, R, R, R, R, R, R, R, 1000}, {1000, U, U, U, U, U, U, U, 1000}},
      {"unvoiced after the gap", {1000, R, R, U, 1000}, {1000, U, U, U, 1000}},
      {"at both ends", {R, R, 1000, R, R}, {U, U, 1000, U, U}},
      {"a last frame that nothing leads up to", {1000, U, R}, {1000, U, R}},
  };
  for (const Row& row : rows) {
    Contour values = row.values;
    BridgeGaps(values, 10);
    EXPECT_EQ(values, row.expected) << row.what;
  }
}

TEST(SmoothWeighted, WeighsTheNeighboursThatHaveValues) {
  struct Row {
    Contour values, expected;
  };
  const Row rows[] = {
      {{}, {}},
      {{7}, {7}},
      {{U, 7, R, 9}, {U, 7, R, 9}},
      {{0, 10}, {2, 6}},          // backward 0 6
      {{0, 0, 60}, {5, 12, 30}},  // backward 0 0 30
  };
  for (const Row& row : rows) {
    Contour values = row.values;
    SmoothWeighted(values);
    EXPECT_EQ(values, row.expected);
  }
}

}  // namespace
}  // namespace cantorix
