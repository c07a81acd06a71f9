// native_refusal_test.cpp - native files that cannot be true, or are held in the store.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "document/document_io.h"
#include "platform/file_error.h"
#include "support/expected_text.h"
#include "support/joined.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(NativeFile, RefusesACutFileAtEveryByte) {
  TestHost host;
  const Bytes whole = fixture::SmallFile();
  for (std::size_t size = 513; size < whole.size(); ++size) {
    try {
      Read(host, Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
      ADD_FAILURE() << "accepted at " << size;
    } catch (const FileError& error) {
      EXPECT_THAT(error.what(), ::testing::StartsWith("The file ends at byte " +
                                                      std::to_string(size) + ", inside "))
          << size;
    }
  }
  Bytes longer = whole;
  longer.resize(longer.size() + 1000, std::byte{0xEE});
  const auto document = Read(host, longer);
  ASSERT_TRUE(document);
  EXPECT_EQ(Written(*document), whole) << "bytes after the samples do not count";
}

// What is said of hostile numbers at their places; "read" where they could be true.
TEST(NativeFile, RefusesNumbersThatCannotBeTrue) {
  const double infinity = std::numeric_limits<double>::infinity();
  std::string text;
  const auto note = [&text](std::size_t at, auto value) {
    TestHost host;
    host.memory.limitBytes = std::uint64_t{1} << 26U;
    std::string reason = "read";
    try {
      Read(host, With(fixture::SmallFile(), at, value));
    } catch (const FileError& error) {
      reason = error.what();
    }
    text += Joined(at, value, reason) + '\n';
    host.prompts.TakeTranscript();
  };
  for (const std::size_t at : {fixture::kDuration, fixture::kRate, fixture::kLength}) {
    for (const double value : {std::nan(""), -8000.0, -0.1, 0.0, 0.625, 500.0, 4294967296.0, 1e10,
                               1e12, 9e15, 1e300, infinity}) {
      note(at, value);
    }
  }
  for (const std::size_t at : {fixture::kTierCount, fixture::kFirstTier + 256}) {
    for (const std::int32_t value : {INT32_MIN, -1, 3, 4, 11, INT32_MAX}) note(at, value);
  }
  ExpectText("document/expected/HostileNumbers.txt", text);
}

TEST(NativeFile, IsTheSameFromMemoryAndFromTheStore) {
  TestHost host;
  CSonadexDoc inMemory(host.host);
  FillWithRamp(inMemory, 3500.0);
  const Bytes whole = Written(inMemory);
  EXPECT_THAT(host.progress.done, IsEmpty());

  host.memory.limitBytes = 0;
  const auto onDisk = Read(host, whole);
  ASSERT_TRUE(onDisk);
  ASSERT_TRUE(onDisk->samplesOnDisk());
  host.progress.done.clear();
  EXPECT_EQ(Written(*onDisk), whole);
  EXPECT_THAT(host.progress.done, ElementsAre(0.0, 1000.0, 2000.0, 3000.0));
  EXPECT_EQ(host.progress.texts.back(), " Reading File...(Press mouse to cancel)");
  EXPECT_EQ(Written(*onDisk, RangeOf(500.5, 2600.75)), Written(inMemory, RangeOf(500.5, 2600.75)));
}

}  // namespace
}  // namespace cantorix
