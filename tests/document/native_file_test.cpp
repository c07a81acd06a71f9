// native_file_test.cpp - what the native file keeps, byte for byte.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "document/document_io.h"
#include "document/label.h"
#include "platform/bytes.h"
#include "support/expected_text.h"
#include "support/joined.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

constexpr const char* kDropped =
    "message: Some labels contained uncompatible information which made them undisplayable.\n"
    "These labels were eliminated from the file.";

TEST(NativeFile, IsReadFieldByField) {
  TestHost host;
  const auto document = Read(host, fixture::SmallFile());
  ASSERT_TRUE(document);
  const CChannel& channel = document->channel();
  EXPECT_EQ(Joined(channel.totalDurationMs, channel.sampleRateHz, channel.totalLength,
                   channel.referenceLevel, channel.displayLow, channel.displayHigh,
                   channel.channelName, channel.channelComment, channel.visibleEnd.samples,
                   channel.visibleLength.ms, channel.previousEnd),
            "0.625 8000.25 5 -3.5 -7 4000 left \xC3\xA9 \xE9 Pa 5 0.625 5");
  EXPECT_EQ(Joined(channel.channelTag, channel.channelWord1, channel.channelWord2,
                   channel.channelWord3, channel.channelWord4, channel.channelWord5,
                   channel.channelWord6, channel.channelWord7, channel.channelWord8),
            "3735928559 1 2 3 4 5 6 7 4294967295");
  EXPECT_THAT(channel.channelValues, ElementsAre(0.1, 0.2, 0.3, 0.4));
  EXPECT_THAT(SamplesOf(*document), ElementsAre(0, 1, -2, 32767, -32768));

  const Tier& tier = channel.tiers[0];
  EXPECT_EQ(tier.tierWord, 33);
  ASSERT_EQ(tier.labelCount(), 2);
  Label label = LabelAt(0.5, "H*");
  label.verticalPosition = 0.25;
  label.alignment = kAlignRight;
  label.flag = 1;
  label.labelBox = {11, -12, 13, -14};
  label.colour = 0xFFC901;
  ByteBuilder font;
  font.I32({30, 12, 1, 2, 700}).U8({1, 0, 1, 161, 3, 2, 1, 49}).Text("Doulos", 32);
  std::copy(font.bytes.begin(), font.bytes.end(), label.font.bytes.begin());
  EXPECT_EQ(tier.labels[0], label);
  EXPECT_EQ(tier.labels[1].text, "L\xFF%");
  EXPECT_EQ(Joined(channel.tiers[1].name, channel.tiers[1].inUse, channel.tiers[2].name,
                   channel.tiers[2].inUse),
            "empty 1 breaks 0");
}

TEST(NativeFile, IsWrittenAsItWasRead) {
  TestHost host;
  ByteBuilder bare = fixture::Header(123.456, 1000.5, 0);  // a length with a fraction
  for (std::int64_t i = 0; i < 1000; ++i) bare.I16({i * 7});
  for (const Bytes& bytes : {fixture::SmallFile(), bare.bytes}) {
    const auto document = Read(host, bytes);
    ASSERT_TRUE(document);
    EXPECT_EQ(Written(*document), bytes);
  }
}

TEST(NativeFile, HoldsTheTiersInUseOneAfterTheOther) {
  TestHost host;
  const auto document = Read(host, fixture::Header(5.0, 5.0, 0).I16({0, 1, 2, 3, 4}).bytes);
  ASSERT_TRUE(document);
  CChannel& channel = document->channel();
  channel.bitsPerSample = 8;
  channel.displayLow = -7.9;  // loses its fraction
  channel.displayHigh = 4000.9;
  channel.tiers[0].inUse = channel.tiers[3].inUse = true;
  channel.tiers[3].name = std::string(300, 'm');
  channel.AddLabel(1, LabelAt(1.0, "in a tier that is not in use"));
  channel.AddLabel(3, LabelAt(77.0, "past the end"));
  channel.tiers[3].labels[0].reservedWord = 9;

  ByteBuilder expected = fixture::Header(5.0, 5.0, 2);
  fixture::AddTier(expected, "tones", 0, 20);
  fixture::AddTier(expected, std::string(255, 'm'), 1, 20);
  expected.F64({77.0, 0.7}).I32({0, 0, 0, 0, 0, 0, 0, 0, 0});
  expected.I32({14, 0, 0, 0, 400}).Zeros(8).Text("Arial", 32).Text("past the end", 256);
  expected.I16({0, 1, 2, 3, 4});
  EXPECT_EQ(Written(*document), expected.bytes);

  Bytes endless = Written(*document);
  for (const auto& [at, width] : {std::pair{628, 64}, {692, 68}, {1024, 256}}) {
    std::fill_n(endless.begin() + at, width, std::byte{'x'});
  }
  const auto cut = Read(host, endless);
  host.prompts.TakeTranscript();
  EXPECT_EQ(Joined(cut->channel().channelName.size(), cut->channel().channelComment.size(),
                   cut->channel().tiers[1].name.size()),
            "63 67 255")
      << "texts without a NUL are as long as those that can be written";

  channel.tiers[3].labels[0].timeMs = 5.0;
  const auto again = Read(host, Written(*document));
  ASSERT_TRUE(again);
  const Tiers& tiers = again->channel().tiers;
  EXPECT_EQ(tiers[1].name, std::string(255, 'm'));
  EXPECT_EQ(Joined(tiers[1].labelCount(), tiers[3].name, tiers[0].inUse, tiers[1].inUse,
                   tiers[2].inUse, tiers[3].inUse),
            "1 misc 1 1 0 0");
  for (Tier& tier : channel.tiers) tier.inUse = true;
  EXPECT_TRUE(Read(host, Written(*document))) << "of ten tiers";
}

TEST(NativeFile, OfASelectionCountsFromItsStart) {
  TestHost host;
  CSonadexDoc document(host.host);
  FillWithRamp(document, 2000.0);
  document.channel().tiers[0].inUse = true;
  for (const double ms : {900.0, 999.999, 1000.0, 1200.0, 1500.0, 1500.001}) {
    document.channel().AddLabel(0, LabelAt(ms, "x"));
  }
  const auto selection = Read(host, Written(document, RangeOf(1000.0, 1500.0)));
  ASSERT_TRUE(selection);
  std::vector<double> times;
  for (const Label& label : selection->channel().tiers[0].labels) times.push_back(label.timeMs);
  EXPECT_THAT(times, ElementsAre(0.0, 200.0, 500.0));
  struct Row {
    double start, end, length;
    std::int16_t first;
    std::size_t count;
  };
  for (const Row& row :
       {Row{1000.0, 1500.0, 500.0, 1000, 500}, Row{2.75, 5.5, 2.75, 2, 2},
        Row{1998.0, 2002.0, 2.0, 1998, 2}, Row{-1.0, 1.0, 1.0, 0, 1},
        Row{2001.0, 2002.0, 0.0, 0, 0}, Row{6.0, 4.0, 0.0, 0, 0}, Row{10.0, 10.0, 0.0, 0, 0}}) {
    const auto part = Read(host, Written(document, RangeOf(row.start, row.end)));
    ASSERT_TRUE(part) << row.start;
    EXPECT_EQ(part->channel().totalLength, row.length) << row.start;
    EXPECT_EQ(part->channel().totalDurationMs, row.length) << row.start;
    Values expected(row.count);
    std::iota(expected.begin(), expected.end(), row.first);
    EXPECT_EQ(SamplesOf(*part), expected) << row.start;
    host.prompts.TakeTranscript();
  }
}

// The labels that are left of two where one has that time, height, alignment, flag or font size at
// its place in the record.
TEST(NativeFile, DropsLabelsThatCannotBeShownAndSaysSo) {
  std::string text;
  const auto note = [&text](std::size_t at, auto value) {
    TestHost host;
    const auto document = Read(host, With(fixture::SmallFile(), fixture::kFirstLabel + at, value));
    ASSERT_TRUE(document) << at;
    const std::vector<Label>& labels = document->channel().tiers[0].labels;
    EXPECT_EQ(labels.back().text, "L\xFF%");
    const auto said = host.prompts.TakeTranscript();
    EXPECT_EQ(said, std::vector<std::string>(2 - labels.size(), kDropped));
    text += Joined(at, value, "leaves", labels.size()) + '\n';
  };
  for (const double ms : {-1e-9, 0.0, 0.625, 0.626, std::nan("")}) note(0, ms);
  for (const double height : {-1e-7, 0.0, 1.0, 1.0000001, std::nan("")}) note(8, height);
  for (const std::int32_t alignment : {-1, 0, 1, 2, 3}) note(16, alignment);
  for (const std::int32_t flag : {-1, 0, 1, 2, 256}) note(20, flag);
  for (const std::int32_t size : {-40, 100, 101, 3000, 3001}) {
    note(52, size);
    note(56, size);
  }
  ExpectText("document/expected/LabelsThatAreLeft.txt", text);
}

TEST(NativeFile, SaysOncePerTierThatLabelsWereDropped) {
  TestHost host;
  ByteBuilder file = fixture::Header(1.0, 1.0, 3);
  for (const double timeMs : {9.0, 0.5, 9.0}) {
    fixture::AddTier(file, "t", 2, 20);
    fixture::AddLabel(file, timeMs, "a");
    fixture::AddLabel(file, timeMs, std::string(timeMs > 1.0 ? 256 : 255, 'x'));
  }
  file.I16({5});
  const auto document = Read(host, file.bytes);
  ASSERT_TRUE(document);
  EXPECT_EQ(document->channel().tiers[0].labelCount(), 0);
  EXPECT_EQ(document->channel().tiers[1].labelCount(), 2);
  EXPECT_THAT(host.prompts.TakeTranscript(), ElementsAre(kDropped, kDropped));
}

TEST(NativeFile, KeepsOnlySmallFontsIsKept) {
  struct Row {
    std::int32_t height, width;
    bool own;
  };
  for (const Row& row : {Row{99, 99, true}, Row{100, 0, false}, Row{0, 100, false},
                         Row{100, 3000, false}, Row{-200, -5, true}}) {
    TestHost host;
    const std::size_t at = fixture::kFirstLabel + 52;
    const auto document =
        Read(host, With(With(fixture::SmallFile(), at, row.height), at + 4, row.width));
    ASSERT_TRUE(document);
    const Label& label = document->channel().tiers[0].labels.at(0);
    EXPECT_EQ(label.text, "H*");
    EXPECT_EQ(label.font == DefaultFont(), !row.own) << row.height << " x " << row.width;
    EXPECT_EQ(label.font.height(), row.own ? row.height : 14);
  }
}

TEST(NativeFile, DeclinesOtherFormatsSilently) {
  Bytes small = fixture::SmallFile();
  const std::pair<const char*, Bytes> rows[] = {
      {"empty", {}},
      {"as long as the file header", Bytes(small.begin(), small.begin() + 512)},
      {"two channels", With(small, 8, 2)},
      {"no channel", With(small, 8, 0)},
      {"longer magic", With(small, 6, 'x')},
      {"another magic", With(small, 0, 'q')},
      {"a sister's magic", With(With(small, 4, 'M'), 5, 'a')},
  };
  for (const auto& [what, bytes] : rows) {
    TestHost host;
    EXPECT_FALSE(Read(host, bytes)) << what;
  }
}

}  // namespace
}  // namespace cantorix
