// sample_loader_test.cpp - memory or disk store, the blocks of the copy, and its cancel.
#include "document/sample_loader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/document_io.h"
#include "platform/abandon.h"
#include "platform/file.h"
#include "platform/file_error.h"
#include "support/joined.h"
#include "support/test_host.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kRateHz = 10.75;

void Ramp(std::int64_t position, std::span<std::int16_t> out) {
  for (auto& sample : out) sample = static_cast<std::int16_t>(position++ * 7);
}

std::vector<std::int16_t> RampOf(std::size_t count) {
  std::vector<std::int16_t> samples(count);
  Ramp(0, samples);
  return samples;
}

struct LoadTest : testing::Test {
  TestHost host;
  CSonadexDoc document{host.host};
};

TEST_F(LoadTest, OnlyBelowTheLimitAndWithinMemoryIsHeldInMemory) {
  struct Row {
    const char* name;
    std::int32_t limitMinutes;
    double durationMs;
    std::uint64_t grantedBytes;
    bool onDisk;
  };
  const Row rows[] = {
      {"below", 5, 299999.999, 2000, false},
      {"exactly the limit", 5, 300000.0, 2000, true},
      {"exactly an odd limit", 7, 420000.0, 2000, true},
      {"above", 5, 300000.1, 2000, true},
      {"memory is short", 5, 10.0, 1999, true},
      {"no limit at all", 0, 0.0, 2000, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    host.memory.limitBytes = row.grantedBytes;
    document.memoryLimitMinutes = row.limitMinutes;
    LoadSamples(document, row.durationMs, kRateHz, 1000, Ramp);
    EXPECT_EQ(document.samplesOnDisk(), row.onDisk);
    EXPECT_EQ(document.channel().samples.empty(), row.onDisk);
    EXPECT_EQ(SamplesOf(document), RampOf(1000));
  }
}

// A minute at 10 Hz, and a sample less; told before or not, and promised more than there is.
TEST_F(LoadTest, WhatAReaderGivesDecidesWhereItIsHeld) {
  host.memory.limitBytes = 2000;
  document.memoryLimitMinutes = 1;
  std::string text;
  for (const std::int64_t held : {599, 600}) {
    for (const std::optional<std::int64_t> told : {std::optional<std::int64_t>(held), {}}) {
      const auto count =
          LoadSamplesUpTo(document, 10.0, told, [&](std::int64_t position, auto out) {
            const auto left = static_cast<std::size_t>(held - position);
            Ramp(position, out.first(std::min(out.size(), left)));
            return std::min(out.size(), left);
          });
      EXPECT_EQ(SamplesOf(document), RampOf(static_cast<std::size_t>(held)));
      text += Joined(count, document.samplesOnDisk() ? "disk; " : "memory; ");
    }
  }
  EXPECT_EQ(text, "599 memory; 599 memory; 600 disk; 600 disk; ");
  EXPECT_EQ(LoadSamplesUpTo(document, 1000.0, 900,
                            [](std::int64_t position, auto out) {
                              Ramp(position, out.first(7));
                              return 7;
                            }),
            7);
  EXPECT_EQ(SamplesOf(document), RampOf(7));
}

TEST_F(LoadTest, CopiesToTheStoreInBlocksOfOneSecond) {
  struct Row {
    double rateHz;
    std::vector<std::size_t> blocks;
  };
  host.memory.limitBytes = 0;
  for (const Row& row : {Row{kRateHz, {10, 10, 5}}, Row{12.5, {12, 12, 1}}, Row{5e18, {25}},
                         Row{0.1, std::vector<std::size_t>(25, 1)}}) {
    SCOPED_TRACE(row.rateHz);
    std::vector<std::size_t> blocks;
    host.progress = CancellingProgress();
    LoadSamples(document, 1.0, row.rateHz, 25, [&](std::int64_t position, auto out) {
      blocks.push_back(out.size());
      EXPECT_EQ(host.progress.done.size(), blocks.size()) << "looked at before every block";
      Ramp(position, out);
    });
    EXPECT_EQ(blocks, row.blocks);
    EXPECT_EQ(SamplesOf(document), RampOf(25));
    EXPECT_THAT(host.progress.texts, ElementsAre(" Reading File...(Press mouse to cancel)"));
    EXPECT_EQ(host.progress.endCount, 1);
  }
}

TEST_F(LoadTest, LargeRecordingInMemoryComesInPiecesAndCanBeCancelled) {
  constexpr std::int64_t kCount = 5000000;
  LoadSamples(document, 1.0, kRateHz, kCount, Ramp);
  EXPECT_EQ(SamplesOf(document), RampOf(kCount));
  EXPECT_THAT(host.progress.done, ::testing::Not(IsEmpty()));
  host.progress = CancellingProgress(1);
  EXPECT_THROW(LoadSamples(document, 1.0, kRateHz, kCount, Ramp), Abandoned);
}

TEST_F(LoadTest, CancelledCopyLeavesNoStoreAndTheEarlierSamples) {
  LoadSamples(document, 1.0, kRateHz, 3, Ramp);
  host.memory.limitBytes = 0;
  host.progress = CancellingProgress(3);
  EXPECT_THROW(LoadSamples(document, 1.0, kRateHz, 100, Ramp), Abandoned);
  EXPECT_EQ(host.progress.endCount, 1);
  EXPECT_THAT(host.folder.Names(), IsEmpty());
  EXPECT_EQ(SamplesOf(document), RampOf(3));
}

TEST_F(LoadTest, StoreTakesTheNextNameThatNobodyHoldsAndGoesWithItsDocument) {
  host.memory.limitBytes = 0;
  WriteBytes(host.folder / "$$TempFile2", std::vector<std::byte>(9));  // of a program that died
  {
    const File held = File::Create(host.folder / "$$TempFile1");
    CSonadexDoc other(host.host);
    LoadSamples(other, 1.0, kRateHz, 4, Ramp);
    EXPECT_EQ(SamplesOf(other), RampOf(4));
    EXPECT_EQ(ReadBytes(host.folder / "$$TempFile2").size(), 8U);
    LoadSamples(document, 1.0, kRateHz, 4, Ramp);
    EXPECT_THAT(host.folder.Names(),
                ::testing::UnorderedElementsAre("$$TempFile1", "$$TempFile2", "$$TempFile3"));
  }
  EXPECT_THAT(host.folder.Names(), ::testing::UnorderedElementsAre("$$TempFile1", "$$TempFile3"));
}

TEST_F(LoadTest, StoreThatCannotBeMadeIsNamed) {
  host.memory.limitBytes = 0;
  host.host.programDirectory = host.folder / "gone";
  try {
    LoadSamples(document, 1.0, kRateHz, 4, Ramp);
    ADD_FAILURE() << "no FileError";
  } catch (const FileError& error) {
    EXPECT_EQ(error.what(), (host.folder / "gone/$$TempFile1") +
                                " could not be opened. No such file or directory.");
  }
}

}  // namespace
}  // namespace cantorix
