// native_refusal_test.cpp - native files that cannot be true, and saves that end early.
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

TEST(SaveNative, CancelledKeepsTheOldFileAndANewOneAsFarAsItGot) {
  TestHost host;
  host.memory.limitBytes = 0;
  ByteBuilder file = fixture::Header(1000.0, 16000.0, 0);
  for (int i = 0; i < 16000; ++i) file.I16({i});
  const auto document = Read(host, file.bytes);
  ASSERT_TRUE(document);
  SaveNative(*document, host.folder / "old", std::nullopt);
  EXPECT_EQ(ReadBytes(host.folder / "old"), file.bytes);

  WriteBytes(host.folder / "old", Bytes(7, std::byte{1}));
  for (const char* name : {"old", "new"}) {
    host.progress = CancellingProgress(2);
    EXPECT_THROW(SaveNative(*document, host.folder / name, std::nullopt), Abandoned) << name;
    EXPECT_EQ(host.progress.endCount, 1) << name;
  }
  EXPECT_EQ(ReadBytes(host.folder / "old"), Bytes(7, std::byte{1}));
  const std::ptrdiff_t oneSecond = 512 + 248 + 16000;
  EXPECT_EQ(ReadBytes(host.folder / "new"),
            Bytes(file.bytes.begin(), file.bytes.begin() + oneSecond));
}

TEST(SaveNative, RefusesWhatCouldNotBeReadBack) {
  const double nan = std::nan("");
  struct Row {
    const char* reason;
    std::optional<NativeRange> range;
    double CChannel::*field = nullptr;
    double value = 0.0;
  };
  const char* const kEmpty = "There is no sample to write.";
  const Row rows[] = {
      {kEmpty, RangeOf(4.0, 4.0)},
      {kEmpty, RangeOf(4.0, 4.9)},
      {kEmpty, RangeOf(6.0, 4.0)},
      {kEmpty, RangeOf(11.0, 12.0)},
      {kEmpty, RangeOf(nan, nan)},
      {"The sample rate is not possible.", std::nullopt, &CChannel::sampleRateHz, 0.0},
      {"The length is not possible.", std::nullopt, &CChannel::totalLength, nan},
      {"The duration is not possible.", std::nullopt, &CChannel::totalDurationMs, -1.0},
  };
  for (const Row& row : rows) {
    TestHost host;
    CSonadexDoc document(host.host);
    FillWithRamp(document, 10.0);
    if (row.field != nullptr) document.channel().*row.field = row.value;
    try {
      SaveNative(document, host.folder / "new", row.range);
      ADD_FAILURE() << "not refused: " << row.reason;
    } catch (const SaveRefused& refusal) {
      EXPECT_STREQ(refusal.what(), row.reason);
    }
    EXPECT_THAT(host.folder.Names(), IsEmpty());
  }
}

TEST(SaveNative, FailsWithTheReasonAndLeavesTheOldFile) {
  TestHost host;
  CSonadexDoc document(host.host);
  FillWithRamp(document, 10.0);
  WriteBytes(host.folder / "old", Bytes(7, std::byte{1}));
  const File reader = File::OpenForReading(host.folder / "old");
  EXPECT_THROW(SaveNative(document, host.folder / "old", std::nullopt), FileError);
  EXPECT_EQ(ReadBytes(host.folder / "old"), Bytes(7, std::byte{1}));
}

}  // namespace
}  // namespace cantorix
