// scarce_memory_test.cpp - memory that ends anywhere, in the reading of the command, in the work or
// while things are given back: one line and exit code 1, never a crash.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>

#include "batch/command.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

// Runs with ever more memory until it suffices. A prime, so that no place is met each time.
constexpr int kFirst = 1;
constexpr int kMore = 211;
constexpr int kEnough = 200000;

TEST(ScarceMemory, EndsInOneLineWhereverItIsMet) {
  const TemporaryFolder folder;
  PutFile(folder / "still.wav", Wave(std::vector<int>(1200, 0), 10000));
  const std::string wave = folder / "still.wav";
  const Words rows[] = {
      {"info", wave},
      {"spectrum", wave, "--at", "10"},
      {"labels", wave, "--memory-minutes", "0"},
      {"edit", wave, "select:0:100", "cut", "-o", folder / "cut.qrv"},
  };
  for (const Words& words : rows) {
    int failures = 0;
    int news = kFirst;
    for (; news < kEnough; news += kMore) {
      ::setenv("CANTORIX_NEWS", std::to_string(news).c_str(), 1);
      const CommandResult result = RunBatch(words, {.program = CANTORIX_SCARCE_PROGRAM});
      if (result.exitCode == 0) break;
      ++failures;
      ASSERT_EQ(result.exitCode, 1) << words[0] << " with " << news << ": " << result.err;
      ASSERT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    }
    ::unsetenv("CANTORIX_NEWS");
    EXPECT_GT(failures, 3) << words[0];
    EXPECT_LT(news, kEnough) << words[0];
  }
}

}  // namespace
}  // namespace cantorix::batch
