// channel_test.cpp - a fresh channel, its labels and what an assignment copies.
#include "document/channel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/document_io.h"
#include "platform/abandon.h"
#include "support/fake_services.h"
#include "support/joined.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

TEST(Channel, BeginsWithItsDefaults) {
  const CChannel c;
  EXPECT_EQ(Joined(c.totalDurationMs, c.sampleRateHz, c.totalLength, c.displayLow, c.displayHigh,
                   c.referenceLevel, c.displayBound1, c.displayBound2, c.visibleEnd.samples,
                   c.selectionEnd.ms, c.previousEnd, c.cursorValue),
            "0 11025 0 8 5500 0 2500 32768 0 0 0 0");
  EXPECT_EQ(Joined(c.channelTag, c.channelWord1, c.channelWord2, c.channelWord3, c.channelWord4,
                   c.channelWord5, c.channelWord6, c.channelWord7, c.channelWord8, c.channelFlag,
                   c.bitsPerSample, c.channelName, c.channelComment),
            "0 0 100 0 1 0 0 0 0 1 16  mv");
  EXPECT_THAT(c.channelValues, ElementsAre(0.0, 0.0, 1.0, 0.0));
  EXPECT_THAT(c.trailingState, ElementsAre(0, 0, 0, 0, 0, 0, 1, 0, 0));
  EXPECT_EQ(JoinedEach(c.tiers, [](const Tier& tier) { return Joined(tier.name, tier.inUse); }),
            "tones 0 words 0 breaks 0 misc 0  0  0  0  0  0  0");
  const Label label;
  EXPECT_EQ(Joined(c.tiers[9].tierWord, label.font.faceName(), label.font.height(),
                   label.font.weight(), label.verticalPosition, +label.flag),
            "20 Arial 14 400 0.7 0");
}

TEST(Channel, ShowsItsWholeAndPutsTimesIntoIt) {
  CChannel c;
  EXPECT_EQ(Joined(c.PointAtTime(3.0).samples, c.msPerSample()), "0 0") << "without a recording";
  c.totalLength = 8.0;
  c.totalDurationMs = 0.5;
  c.visibleStart = c.cursor = c.dragPoint = c.selectionStart = {3.0, 3.0};
  c.selectionEnd = c.selectionLength = {3.0, 3.0};
  c.previousStart = c.cursorValue = c.dragX = c.dragY = 3;
  c.ShowWholeFile();
  const TimePoint points[] = {c.visibleStart, c.visibleEnd,     c.visibleLength, c.cursor,
                              c.dragPoint,    c.selectionStart, c.selectionEnd,  c.selectionLength};
  const auto text = [](const TimePoint& point) { return Joined(point.samples, point.ms); };
  EXPECT_EQ(JoinedEach(points, text), "0 0 8 0.5 8 0.5 0 0 0 0 0 0 0 0 0 0");
  EXPECT_EQ(Joined(c.previousStart, c.previousEnd, c.cursorValue, c.dragX, c.dragY), "0 8 0 0 0");
  const TimePoint inside[] = {c.PointAtTime(-1.0), c.PointAtTime(0.25), c.PointAtTime(9.0)};
  EXPECT_EQ(JoinedEach(inside, text), "0 0 4 0.25 8 0.5");
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
