// wav_reader_test.cpp - which WAV files are read, sample by sample, and which are left alone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <numeric>

#include "document/document_io.h"
#include "document/sample_conversion.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "support/expected_text.h"
#include "support/joined.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

constexpr const char* kChannelOfTwo =
    "channel of 2: This file has multiple data channels.\n"
    "Only one channel can be read at a time.\n"
    "Please select which channel you wish to read.";

TEST(WavReader, ConvertsEveryCoding) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  struct Row {
    const char* name;
    Bytes file;
    Values expected;
  };
  const Row rows[] = {
      {"8 bit", Wav({.bits = 8}, Raw({0, 127, 128, 129, 255})), {-32768, -256, 0, 256, 32512}},
      {"12 of 16 bit", Wav({.bits = 12}, Samples16({-16, 16})), {-16, 16}},
      {"16 bit", Wav({}, Samples16({-32768, -1, 0, 1, 32767})), {-32768, -1, 0, 1, 32767}},
      // Shifts go towards minus infinity.
      {"24 bit",
       Wav({.bits = 24}, Raw({0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0x80, 0xFF, 0xFF, 0x7F})),
       {-1, 0, -32768, 32767}},
      {"32 bit",
       Wav({.bits = 32}, ByteBuilder().I32({-1, 65535, 65536, -65537, 0x7FFFFFFF}).bytes),
       {-1, 0, 1, -2, 32767}},
      {"float, halves away from zero",
       Wav({.tag = 3, .bits = 32},
           Floats({0.5F, 1.5F / 32768, -1.5F / 32768, 2.5F / 32768, 0.49F / 32768})),
       {16384, 2, -2, 3, 0}},
      {"float, clipped",
       Wav({.tag = 3, .bits = 32},
           Floats({1.0F, -1.0F, -1.1F, 3e38F, std::numeric_limits<float>::quiet_NaN()})),
       {32767, -32768, -32768, 32767, 0}},
      {"double",
       Wav({.tag = 3, .bits = 64}, Doubles({-0.25, kInfinity, -kInfinity, nan, -0.0})),
       {-8192, 32767, -32768, 0, 0}},
      {"A-law",
       Wav({.tag = 6, .bits = 8}, Raw({0xD5, 0x55, 0xAA, 0x2A, 0x80, 0x00})),
       {8, -8, 32256, -32256, 5504, -5504}},
      {"mu-law",
       Wav({.tag = 7, .bits = 8}, Raw({0xFF, 0x7F, 0xFE, 0x7E, 0x80, 0x00})),
       {0, 0, 8, -8, 32124, -32124}},
      {"extensible PCM",
       Riff({Chunk("fmt ", Extensible(24, 1)), Chunk("data", Raw({9, 5, 1}))}),
       {261}},
      {"extensible float",
       Riff({Chunk("fmt ", Extensible(32, 3)), Chunk("data", Floats({0.5F}))}),
       {16384}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestHost host;
    const auto document = ReadWav(host, row.file);
    ASSERT_TRUE(document);
    EXPECT_EQ(SamplesOf(*document), row.expected);
    EXPECT_EQ(document->channel().totalLength, static_cast<double>(row.expected.size()));
  }
}

// All 256 codes against the sums over another program's decoding of them.
TEST(WavReader, DecodesEveryCodeOfTheTelephoneCodings) {
  struct Row {
    SampleCoding coding;
    std::int64_t weightedSum;
    std::int64_t squareSum;
  };
  Bytes codes(256);
  for (std::size_t i = 0; i < codes.size(); ++i) codes[i] = std::byte(i);
  for (const Row& row : {Row{SampleCoding::kALaw, 100139008, 26719580160},
                         Row{SampleCoding::kMuLaw, 98107392, 26310951424}}) {
    Values values(codes.size());
    ConvertSamples(row.coding, codes, 1, values);
    std::int64_t weighted = 0;
    std::int64_t squares = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
      weighted += static_cast<std::int64_t>(i + 1) * values[i];
      squares += std::int64_t{values[i]} * values[i];
    }
    EXPECT_EQ(weighted, row.weightedSum);
    EXPECT_EQ(squares, row.squareSum);
  }
}

TEST(WavReader, SetsTheFieldsOfAForeignRecording) {
  TestHost host;
  const auto document = ReadWav(host, Wav({.rateHz = 16000}, Bytes(64)));
  ASSERT_TRUE(document);
  const CChannel& channel = document->channel();
  EXPECT_EQ(
      Joined(channel.sampleRateHz, channel.totalLength, channel.totalDurationMs,
             channel.channelComment, channel.channelName, channel.displayLow, channel.displayHigh,
             channel.visibleEnd.samples, channel.visibleLength.ms, channel.previousEnd),
      "16000 32 2 bits  1 8000 32 2 32");
  EXPECT_TRUE(document->foreignSource);
  EXPECT_FALSE(document->extractedChannel);
}

TEST(WavReader, WalksTheChunksLeniently) {
  const Bytes format = Chunk("fmt ", FormatBytes({}));
  const Bytes data = Chunk("data", Samples16({7, 8}));
  ByteBuilder longFormat;
  longFormat.bytes = FormatBytes({});
  longFormat.Text("data", 4).I32({2}).Zeros(16);  // must not be taken for a chunk
  struct Row {
    const char* name;
    Bytes file;
    bool isRead;
  };
  const Row rows[] = {
      {"plain", Riff({format, data}), true},
      {"wrong identifier", Riff({format, data}, "XXXX"), true},
      {"wrong form", Riff({format, data}, "RIFF", "AVI "), true},
      {"both wrong", Riff({format, data}, "RIFX", "AVI "), false},
      {"other chunks", Riff({Chunk("LIST", Bytes(10)), format, Chunk("fact", Bytes(4)), data}),
       true},
      {"odd chunk without pad", Riff({Chunk("odd ", Bytes(3)), format, data}), true},
      {"odd chunk with pad", Riff({Chunk("odd ", Bytes(4), 3), format, data}), true},
      {"format of 40 bytes", Riff({Chunk("fmt ", longFormat.bytes), data}), true},
      {"two formats, the last counts",
       Riff({Chunk("fmt ", FormatBytes({.tag = 99})), format, data}), true},
      {"bytes after the samples", Riff({format, data, Chunk("LIST", Bytes(7))}), true},
      {"no format", Riff({data}), false},
      {"format after the samples", Riff({data, format}), false},
      {"no samples", Riff({format, Chunk("junk", Bytes(20))}), false},
      {"chunk longer than the file", Riff({format, Chunk("junk", Bytes(4), 0xFFFFFFFF), data}),
       false},
      {"empty", Riff({}), false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestHost host;
    const auto document = ReadWav(host, row.file);
    ASSERT_EQ(document != nullptr, row.isRead);
    if (row.isRead) {
      EXPECT_THAT(SamplesOf(*document), ElementsAre(7, 8));
    }
  }
}

TEST(WavReader, LeavesFormatsAloneThatItCannotReadExactly) {
  // How many samples are read of 200 bytes, for each coding and size.
  std::string text;
  for (const int tag : {1, 3, 6, 7, 0xFFFE}) {
    text += std::to_string(tag) + ':';
    for (const int bits : {0, 1, 8, 12, 16, 24, 32, 33, 64}) {
      TestHost host;
      const auto document = ReadWav(host, Wav({.tag = tag, .bits = bits}, Bytes(200)));
      text += document ? ' ' + std::to_string(SamplesOf(*document).size()) : " -";
    }
    text += '\n';
  }
  ExpectText("document/expected/WavFormats.txt", text);
  for (const fixture::WavFormat& format : {fixture::WavFormat{.channels = 0, .frameBytes = 2},
                                           {.rateHz = 0},
                                           {.frameBytes = 0},
                                           {.channels = 2, .frameBytes = 2},
                                           {.frameBytes = 4},
                                           {.frameBytes = 65535},
                                           {.channels = 65535, .frameBytes = 65535},
                                           {.bits = 0, .frameBytes = 2}}) {
    TestHost host;
    EXPECT_EQ(ReadWav(host, Wav(format, Bytes(200))), nullptr) << format.frameBytes;
  }
  TestHost host;
  EXPECT_EQ(ReadWav(host, Wav({}, {})), nullptr);
  EXPECT_EQ(ReadWav(host, Wav({}, Bytes(1))), nullptr) << "not one whole sample";
}

TEST(WavReader, TakesOneChannelOutOfSeveral) {
  const Bytes file = Wav({.channels = 2}, Samples16({1, -1, 2, -2, 3}));
  TestHost host;
  host.prompts.WillChooseChannel(1);
  const auto second = ReadWav(host, file);
  ASSERT_TRUE(second);
  // The frame that the file ends in is not whole, so it is not counted.
  EXPECT_EQ(second->channel().totalLength, 2.5);
  EXPECT_THAT(SamplesOf(*second), ElementsAre(-1, -2));
  EXPECT_EQ(second->channelSuffixedName, "in.wav::Channel2");
  EXPECT_TRUE(second->extractedChannel);

  host.prompts.WillCancel();
  EXPECT_THROW(ReadWav(host, file), Abandoned);
  host.prompts.WillChooseChannel(2);
  EXPECT_THROW(ReadWav(host, file), FileError);
  EXPECT_THAT(host.prompts.TakeTranscript(),
              ElementsAre(kChannelOfTwo, kChannelOfTwo, kChannelOfTwo));
}

TEST(WavReader, OffersAsManyChannelsAsTheProgramLists) {
  Bytes data(std::size_t{3} * 12);
  data[9] = data[11] = data[23] = std::byte{130};
  struct Row {
    int listed;  // 0: as many as it is without a word
    int chosen;
    const char* question;
    Values expected;
  };
  for (const Row& row : {Row{0, 9, "channel of 10: ", {512, -32768, -32768}},
                         Row{1000, 11, "channel of 12: ", {512, 512, -32768}}}) {
    TestHost host;
    if (row.listed > 0) host.host.channelEntries = row.listed;
    host.prompts.WillChooseChannel(row.chosen);
    const auto document = ReadWav(host, Wav({.channels = 12, .bits = 8}, data));
    ASSERT_TRUE(document);
    EXPECT_EQ(SamplesOf(*document), row.expected);
    EXPECT_EQ(document->channelSuffixedName, "in.wav::Channel" + std::to_string(row.chosen + 1));
    EXPECT_THAT(host.prompts.TakeTranscript(), ElementsAre(::testing::StartsWith(row.question)));
  }
}

TEST(WavReader, DeinterleavesAcrossItsBlocks) {
  // Enough frames for several blocks of the reader, in a frame size that does not divide them.
  constexpr std::size_t kFrames = 200000;
  ByteBuilder data;
  for (std::size_t i = 0; i < kFrames; ++i) data.I16({-7, static_cast<std::int16_t>(i), 7});
  TestHost host;
  host.prompts.WillChooseChannel(1);
  const auto document = ReadWav(host, Wav({.channels = 3}, data.bytes));
  ASSERT_TRUE(document);
  Values expected(kFrames);
  for (std::size_t i = 0; i < kFrames; ++i) expected[i] = static_cast<std::int16_t>(i);
  EXPECT_EQ(SamplesOf(*document), expected);
  host.prompts.TakeTranscript();
}

}  // namespace
}  // namespace cantorix
