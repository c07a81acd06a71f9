// native_refusal_test.cpp - native files that cannot be true, or are held in the store.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <variant>

#include "document/document_io.h"
#include "platform/file_error.h"

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

TEST(NativeFile, RefusesNumbersThatCannotBeTrue) {
  const double nan = std::nan("");
  const double infinity = std::numeric_limits<double>::infinity();
  using Number = std::variant<double, std::int32_t>;
  struct Row {
    std::size_t at;
    std::vector<Number> values;
    std::string reason;
  };
  const std::int32_t most = std::numeric_limits<std::int32_t>::max();
  const std::int32_t least = std::numeric_limits<std::int32_t>::min();
  const Row rows[] = {
      {fixture::kDuration,
       {nan, -0.1, infinity, 1e12},
       "The duration at byte 512 is not possible."},
      {fixture::kRate,
       {nan, 0.0, -8000.0, infinity, 1e10},
       "The sample rate at byte 520 is not possible."},
      {fixture::kLength, {nan, -1.0, infinity, 1e300}, "The length at byte 528 is not possible."},
      {fixture::kLength,
       {500.0, 4294967296.0, 9e15},
       "The file ends at byte 2034, inside the samples."},
      {fixture::kTierCount, {-1, 11, most, least}, "The tier count at byte 604 is not possible."},
      {fixture::kTierCount, {3}, "The file ends at byte 2034, inside a tier header."},
      {fixture::kFirstTier + 256, {-1, least}, "The label count at byte 1016 is not possible."},
      {fixture::kFirstTier + 256,
       {most, 4},
       "The file ends at byte 2034, inside the label records."},
  };
  for (const Row& row : rows) {
    for (const Number& value : row.values) {
      TestHost host;
      host.memory.limitBytes = std::uint64_t{1} << 26U;
      std::string reason;
      try {
        Read(host,
             std::visit([&](auto v) { return With(fixture::SmallFile(), row.at, v); }, value));
      } catch (const FileError& error) {
        reason = error.what();
      }
      EXPECT_EQ(reason, row.reason) << "value " << value.index() << " at " << row.at;
      host.prompts.TakeTranscript();
    }
  }
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
