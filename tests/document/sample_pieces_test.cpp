// sample_pieces_test.cpp - cuts of a recording in its file against the same cuts of a vector.
#include "document/sample_pieces.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>
#include <random>

#include "document/document_io.h"
#include "document/file_samples.h"
#include "document/sample_loader.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "support/samples.h"

namespace cantorix {
namespace {

constexpr int kCount = 1000;

// A file of the samples 0, 1, 2, ... behind one more byte.
std::unique_ptr<FileSamples> CountingFile(const std::string& path) {
  std::vector<std::byte> bytes(1 + 2 * kCount);
  for (std::size_t i = 0; i < kCount; ++i) {
    bytes[1 + 2 * i] = static_cast<std::byte>(i & 0xFFU);
    bytes[2 + 2 * i] = static_cast<std::byte>(i >> 8U);
  }
  File::Create(path).Write(0, bytes);
  const InterleavedPlace place{.frameBytes = 2, .dataOffset = 1};
  return std::make_unique<FileSamples>(File::OpenForReading(path), place, kCount);
}

Values Counted() {
  Values values(kCount);
  std::iota(values.begin(), values.end(), std::int16_t{0});
  return values;
}

TEST(SamplePieces, AreWhatCutsLeave) {
  const TemporaryFolder folder;
  std::mt19937 random(7);
  for (int trial = 0; trial < 20; ++trial) {
    SamplePieces pieces(CountingFile(folder / "samples"));
    Values left = Counted();
    while (left.size() > 1) {
      const auto first = static_cast<std::int64_t>(random() % left.size());
      const auto most = std::min<std::int64_t>(std::ssize(left) - first, 200);
      const auto count = static_cast<std::int64_t>(random() % static_cast<unsigned>(most + 1));
      pieces.Remove(first, first + count);
      left.erase(left.begin() + first, left.begin() + first + count);
      ASSERT_EQ(pieces.length(), std::ssize(left));
      std::vector<std::int16_t> scratch;
      const auto all = pieces.View(0, pieces.length(), scratch);
      ASSERT_TRUE(std::ranges::equal(all, left));
      const std::int64_t from = std::ssize(left) / 3;
      const auto part = pieces.View(from, std::ssize(left) / 2, scratch);
      ASSERT_TRUE(std::ranges::equal(
          part, std::span(left).subspan(static_cast<std::size_t>(from), part.size())));
    }
  }
}

TEST(SamplePieces, AreTakenOutOfTheFileWhereTheyFollowThere) {
  const TemporaryFolder folder;
  SamplePieces pieces(CountingFile(folder / "samples"));
  pieces.Remove(100, 300);
  const auto offset = [&pieces](std::int64_t start, std::int64_t count) {
    const auto stretch = pieces.InFile(start, count);
    return stretch ? stretch->offset : -1;
  };
  EXPECT_EQ(offset(0, 100), 1);
  EXPECT_EQ(offset(99, 1), 1 + 2 * 99);
  EXPECT_EQ(offset(99, 2), -1);
  EXPECT_EQ(offset(100, 700), 1 + 2 * 300);
  EXPECT_EQ(offset(100, 701), -1) << "the recording ends before";
  pieces.Remove(0, pieces.length());
  EXPECT_EQ(pieces.length(), 0);
  EXPECT_EQ(offset(0, 1), -1);
}

// A recording that belongs in memory waits in its file; a change brings it there.
TEST(SamplePieces, ComeIntoMemoryWhole) {
  TestHost host;
  CSonadexDoc document(host.host);
  document.HoldInPieces(CountingFile(host.folder / "samples"));
  EXPECT_FALSE(document.samplesOnDisk());
  document.RemoveSamples(10, 990);
  EXPECT_TRUE(document.channel().samples.empty());
  const Values expected{0,   1,   2,   3,   4,   5,   6,   7,   8,   9,
                        990, 991, 992, 993, 994, 995, 996, 997, 998, 999};
  EXPECT_EQ(SamplesOf(document), expected);
  TakeIntoMemory(document);
  EXPECT_EQ(document.channel().samples.size(), 20);
  std::filesystem::resize_file(host.folder / "samples", 0);
  EXPECT_EQ(SamplesOf(document), expected);
  document.RemoveSamples(1, 19);
  EXPECT_EQ(SamplesOf(document), (Values{0, 999}));

  document.HoldInPieces(CountingFile(host.folder / "samples"));
  std::filesystem::resize_file(host.folder / "samples", 500);
  EXPECT_THROW(TakeIntoMemory(document), FileError);
  EXPECT_EQ(document.Samples().length(), kCount) << "still in the file";
}

TEST(SamplePieces, WaitOnWhenTheUserGivesUp) {
  TestHost host;
  CSonadexDoc document(host.host);
  constexpr std::int64_t kMany = (std::int64_t{1} << 21U) + 1;  // more than is read at once
  const std::string path = host.folder / "samples";
  File::Create(path).Resize(kMany * 2);
  document.HoldInPieces(std::make_unique<FileSamples>(File::OpenForReading(path),
                                                      InterleavedPlace{.frameBytes = 2}, kMany));
  host.progress.CancelFromNow();
  EXPECT_THROW(TakeIntoMemory(document), Abandoned);
  EXPECT_TRUE(document.samplesInPieces());
  EXPECT_EQ(document.Samples().length(), kMany);
}

}  // namespace
}  // namespace cantorix
