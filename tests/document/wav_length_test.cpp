// wav_length_test.cpp - how long a WAV file is: as its header says, as another chunk says, or as
// far as the file goes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/document_io.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

std::string Incomplete(std::int64_t promised, std::int64_t held) {
  return "message: The file is incomplete: its header promises " + std::to_string(promised) +
         " samples, " + std::to_string(held) + " are there. Missing samples read as 0.";
}

TEST(WavLength, TakesSamplesThatAreNotThereForZeroAndSaysSoOnceIsKept) {
  struct Row {
    const char* name;
    fixture::WavFormat format;
    Bytes data;
    std::int64_t claimed;
    Values first;           // what is there
    double totalLength;     // of it and the zeros
    std::int64_t promised;  // in the message; 0: there is none
  };
  // Each header has 44 bytes; the length is capped at the whole file's, not at what is left of it.
  const Row rows[] = {
      {"16 bit", {}, Raw({1, 0, 2, 0, 3}), 12, {1, 2}, 6.0, 6},
      {"8 bit", {.bits = 8}, Raw({129}), 3, {256}, 3.0, 3},
      {"24 bit", {.bits = 24}, Raw({0, 1, 0, 0, 2}), 9, {1}, 3.0, 3},
      {"float", {.tag = 3, .bits = 32}, Floats({0.5F}), 8, {16384}, 2.0, 2},
      {"mu-law", {.tag = 7, .bits = 8}, Raw({0x80}), 2, {32124}, 2.0, 2},
      {"more than the file", {}, Raw({1, 0}), 0xFFFFFFFE, {1}, 23.0, 0x7FFFFFFF},
      {"half a sample more", {}, Raw({1, 0}), 3, {1}, 1.5, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestHost host;
    const auto document = ReadWav(
        host, Riff({Chunk("fmt ", FormatBytes(row.format)), Chunk("data", row.data, row.claimed)}));
    ASSERT_TRUE(document);
    EXPECT_EQ(document->channel().totalLength, row.totalLength);
    Values expected = row.first;
    expected.resize(static_cast<std::size_t>(row.totalLength));
    EXPECT_EQ(SamplesOf(*document), expected);
    std::vector<std::string> said;
    if (row.promised != 0) said.push_back(Incomplete(row.promised, std::ssize(row.first)));
    EXPECT_EQ(host.prompts.TakeTranscript(), said);
  }
}

// A chunk "ds64" that gives the samples `dataBytes`.
Bytes LongSizes(std::int64_t dataBytes, std::size_t size = 28) {
  ByteBuilder body;
  body.I32({1000, 0, dataBytes, dataBytes >> 32, 0, 0, 0});
  body.bytes.resize(size);
  return Chunk("ds64", body.bytes);
}

TEST(WavLength, TakesALengthFromWhereTheFileKeepsIt) {
  constexpr std::int64_t kOpen = 0xFFFFFFFF;
  const Bytes format = Chunk("fmt ", FormatBytes({}));
  const Bytes list = Chunk("LIST", Samples16({5}));
  const auto data = [](std::int64_t claimed) { return Chunk("data", Samples16({7, 8}), claimed); };
  const Values both{7, 8};
  const Values withList{7, 8, 0x494C, 0x5453, 2, 0, 5};
  struct Row {
    const char* name;
    Bytes file;
    Values expected;  // none: another format
  };
  const Row rows[] = {
      {"0, as a recorder that died leaves it", Riff({format, data(0)}), both},
      {"0 and a chunk: it is empty", Riff({format, Chunk("data", {}), list}), {}},
      {"0 and nothing behind", Riff({format, Chunk("data", {})}), {}},
      {"open, as a stream leaves it", Riff({format, data(kOpen)}), both},
      {"open, and everything belongs to it", Riff({format, data(kOpen), list}), withList},
      {"open and nothing behind", Riff({format, Chunk("data", {}, kOpen)}), {}},
      {"RF64", Riff({LongSizes(4), format, data(kOpen), list}, "RF64"), both},
      {"BW64", Riff({LongSizes(4), format, data(kOpen), list}, "BW64"), both},
      {"RF64 with a size of its own", Riff({LongSizes(2), format, data(4), list}, "RF64"), both},
      {"RF64 without sizes", Riff({format, data(kOpen)}, "RF64"), both},
      {"RF64 with sizes cut short", Riff({LongSizes(4, 24), format, data(kOpen)}, "RF64"), both},
      {"RF64, open too", Riff({LongSizes(-1), format, data(kOpen)}, "RF64"), both},
      {"RF64, 0", Riff({LongSizes(0), format, data(kOpen)}, "RF64"), both},
      {"RIFF has no such sizes", Riff({LongSizes(2), format, data(kOpen)}), both},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestHost host;
    const auto document = ReadWav(host, row.file);
    ASSERT_EQ(document != nullptr, !row.expected.empty());
    if (document != nullptr) {
      EXPECT_EQ(SamplesOf(*document), row.expected);
    }
  }
  // More than 4 GiB, of which little is there.
  TestHost host;
  const auto cut = ReadWav(host, Riff({LongSizes(10'000'000'000), format, data(kOpen)}, "RF64"));
  ASSERT_TRUE(cut);
  EXPECT_EQ(cut->channel().totalLength, 42.0);  // of the whole file's 84 bytes
  EXPECT_THAT(host.prompts.TakeTranscript(), ElementsAre(Incomplete(5'000'000'000, 2)));
}

TEST(WavLength, SurvivesACutAtEveryByte) {
  const Bytes whole = Riff({Chunk("fmt ", Extensible(16, 1)), Chunk("LIST", Bytes(6)),
                            Chunk("data", Samples16({1, 2, 3}))});
  const std::size_t header = whole.size() - 6;
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    SCOPED_TRACE(size);
    TestHost host;
    const auto document = ReadWav(host, Bytes(whole.begin(), whole.begin() + std::ptrdiff_t(size)));
    // One byte of a little-endian size is enough when the others are zero.
    ASSERT_EQ(document != nullptr, size > header - 4);
    if (document == nullptr) continue;
    Values expected{1, 2, 3};
    std::int64_t held = 3;
    for (std::size_t i = 0; i < 3; ++i) {
      if (header + 2 * i + 2 > size) {
        expected[i] = 0;
        --held;
      }
    }
    EXPECT_EQ(SamplesOf(*document), expected);
    const auto said = held == 3 ? std::vector<std::string>{} : std::vector{Incomplete(3, held)};
    EXPECT_EQ(host.prompts.TakeTranscript(), said);
  }
}

}  // namespace
}  // namespace cantorix
