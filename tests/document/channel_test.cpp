// channel_test.cpp - a fresh channel, its labels and what an assignment copies.
#include "document/channel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/document_io.h"
#include "platform/abandon.h"
#include "support/fake_services.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

TEST(Channel, BeginsWithItsDefaults) {
  const CChannel channel;
  const std::pair<double, double> reals[] = {
      {channel.totalDurationMs, 0.0},    {channel.sampleRateHz, 11025.0},
      {channel.totalLength, 0.0},        {channel.displayLow, 8.0},
      {channel.displayHigh, 5500.0},     {channel.referenceLevel, 0.0},
      {channel.displayBound1, 2500.0},   {channel.displayBound2, 32768.0},
      {channel.visibleEnd.samples, 0.0}, {channel.selectionEnd.ms, 0.0},
      {channel.previousEnd, 0.0},        {channel.cursorValue, 0.0},
  };
  for (const auto& real : reals) EXPECT_EQ(real.first, real.second) << &real - reals;
  EXPECT_THAT(channel.channelValues, ElementsAre(0.0, 0.0, 1.0, 0.0));
  EXPECT_THAT((std::array{channel.channelTag, channel.channelWord1, channel.channelWord2,
                          channel.channelWord3, channel.channelWord4, channel.channelWord5,
                          channel.channelWord6, channel.channelWord7, channel.channelWord8,
                          channel.channelFlag}),
              ElementsAre(0U, 0U, 100U, 0U, 1U, 0U, 0U, 0U, 0U, 1U));
  EXPECT_EQ(channel.bitsPerSample, 16);
  EXPECT_EQ(channel.channelName, "");
  EXPECT_EQ(channel.channelComment, "mv");
  EXPECT_THAT(channel.trailingState, ElementsAre(0, 0, 0, 0, 0, 0, 1, 0, 0));
  std::vector<std::string> names;
  for (const Tier& tier : channel.tiers) {
    names.push_back(tier.name);
    EXPECT_FALSE(tier.inUse);
    EXPECT_EQ(tier.tierWord, 20);
  }
  EXPECT_THAT(names, ElementsAre("tones", "words", "breaks", "misc", "", "", "", "", "", ""));
  const Label label;
  EXPECT_EQ(label.font.faceName(), "Arial");
  EXPECT_EQ(label.font.height(), 14);
  EXPECT_EQ(label.font.weight(), 400);
  EXPECT_EQ(label.verticalPosition, 0.7);
  EXPECT_EQ(label.flag, 0);
}

TEST(Channel, TakesLabelsOnItsTenTiersOnly) {
  CChannel channel;
  for (const int tier : {-1, 0, 9, 10, 1000}) {
    channel.AddLabel(tier, LabelAt(tier, std::string(300, 'x')));
  }
  for (int i = 0; i < kTierCount; ++i) {
    const Tier& tier = channel.tiers[static_cast<std::size_t>(i)];
    ASSERT_EQ(tier.labelCount(), i == 0 || i == 9 ? 1 : 0) << i;
    if (tier.labelCount() == 1) {
      EXPECT_EQ(tier.labels[0].timeMs, i);
      EXPECT_EQ(tier.labels[0].text, std::string(255, 'x'));
    }
  }
}

TEST(Channel, AssignmentSharesNoMemoryAndLeavesTheLabels) {
  TestHost host;
  CSonadexDoc document(host.host);
  FillWithRamp(document, 5.0);
  CChannel& source = document.channel();
  source.channelName = "source";
  source.workBlock1 = {1, 2};
  source.AddLabel(0, LabelAt(1.0, "source"));
  CChannel target;
  target.AddLabel(3, LabelAt(2.0, "target"));
  target = source;
  EXPECT_EQ(target.channelName, "source");
  EXPECT_THAT(target.workBlock1, ElementsAre(1, 2));
  EXPECT_TRUE(target.tiers[0].labels.empty());
  EXPECT_EQ(target.tiers[3].labelCount(), 1);
  target.samples.samples()[2] = 77;
  EXPECT_THAT(source.samples.samples(), ElementsAre(0, 1, 2, 3, 4));
  target = *&target;
  EXPECT_THAT(target.samples.samples(), ElementsAre(0, 1, 77, 3, 4));

  CChannel refused;
  const FakeMemoryProbe little(9);
  EXPECT_THROW(AssignOrReport(refused, source, little, host.prompts), Abandoned);
  EXPECT_THAT(host.prompts.TakeTranscript(),
              ElementsAre("message: Error in '=' operator in CChannel class."));
  AssignOrReport(refused, source, FakeMemoryProbe(10), host.prompts);
  EXPECT_EQ(refused.samples.size(), 5);
  AssignOrReport(source, source, FakeMemoryProbe(0), host.prompts);
}

}  // namespace
}  // namespace cantorix
