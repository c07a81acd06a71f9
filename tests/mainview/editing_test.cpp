// editing_test.cpp - copy, cut and paste: what the random walk beside a model of the samples and
// labels does not look at.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "document/label.h"
#include "mainview/editing.h"
#include "mainview/mouse.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EditingTest : public ViewTest {
 protected:
  const CChannel& slot() const { return world.clipboard.slots[0]; }
  Samples Copied() const {
    const auto samples = slot().samples.samples();
    return {samples.begin(), samples.end()};
  }
};

// Length and duration, which are the same at a sample per ms.
std::string LengthOf(const CChannel& channel) {
  return Joined(channel.totalLength, channel.totalDurationMs);
}

TEST_F(EditingTest, CopyTakesSamplesFieldsAndLabelsOfTheSelection) {
  for (const Place place : {Place::kMemory, Place::kDisk}) {
    ViewedRecording talk(world, Ramp(2500), 1000.0, place);
    talk.channel().channelComment = "Pa";
    for (const double ms : {99.0, 100.0, 150.0, 200.0, 201.0}) AddLabel(talk.document, 0, ms, "a");
    AddLabel(talk.document, 3, 150.0, "hidden");
    talk.channel().tiers[3].inUse = false;
    talk.channel().tiers[3].tierWord = 44;
    SelectSamples(talk, 100.0, 200.0);
    CopySelection(talk.view);
    EXPECT_EQ(EditOf(talk.view), "no undo");
    EXPECT_TRUE(world.clipboard.clipboardFull);
    EXPECT_EQ(world.clipboard.channelCount, 1);
    EXPECT_EQ(Copied(), Ramp(100, 100));
    EXPECT_EQ(LengthOf(slot()), "100 100");
    EXPECT_EQ(Joined(slot().selectionStart.samples, slot().sampleRateHz, slot().channelComment),
              "100 1000 Pa");
    EXPECT_EQ(LabelsOf(slot(), 0), "a@0 a@50 a@100");
    EXPECT_EQ(LabelsOf(slot(), 3), "");
    EXPECT_EQ(Joined(slot().tiers[3].tierWord, slot().tiers[3].inUse), "44 0");
  }
  EXPECT_EQ(world.playback.stops, 2);
}

TEST_F(EditingTest, SelectionsAndCursorsBehindAShortenedRecordingCountAsItsEnd) {
  ViewedRecording talk(world, Ramp(10));
  AddLabel(talk.document, 0, 3.0, "a");
  AddLabel(talk.document, 0, 10.0, "b");
  PutCursor(talk, 12.0);
  SelectSamples(talk, 8.0, 12.0);
  CutSelection(talk.view);
  EXPECT_EQ(talk.samples(), Ramp(8));
  EXPECT_EQ(LengthOf(talk.channel()), "8 8");
  EXPECT_EQ(LabelsOf(talk.channel(), 0), "a@3");
  Paste(talk.view);
  EXPECT_EQ(talk.samples(), Ramp(10));
  EXPECT_EQ(LabelsOf(talk.channel(), 0), "a@3 b@10");
  EXPECT_EQ(MarksOf(talk.view), "12 of 0 0 = 0");
}

TEST_F(EditingTest, LabelsTakeTheirTierIntoUse) {
  CopyWholeOf(world, Ramp(4), 1000.0, 1.0);
  Tier& phones = world.clipboard.slots[0].tiers[6];
  phones.name = "phones";
  phones.labels = {LabelOf(2.0, "p")};
  phones.inUse = true;
  ViewedRecording talk(world, Ramp(10));
  talk.channel().tiers[6].labels = {LabelOf(5.0, "of before")};
  PutCursor(talk, 3.0);
  Paste(talk.view);
  EXPECT_EQ(LabelsOf(talk.channel(), 6), "of before@5 p@5");
  EXPECT_EQ(talk.channel().tiers[6].name, "phones");
  EXPECT_EQ(JoinedEach(talk.channel().tiers, [](const Tier& tier) { return tier.inUse; }),
            "1 0 0 0 0 0 1 0 0 0");
  EXPECT_EQ(talk.view.layout.tier(6).bottom, 40);  // shown below the tier at the top
}

std::vector<std::pair<double, std::string>> SortedLabels(const CChannel& channel) {
  std::vector<std::pair<double, std::string>> labels;
  for (const Label& label : channel.tiers[1].labels) labels.emplace_back(label.timeMs, label.text);
  std::sort(labels.begin(), labels.end());
  return labels;
}

// To the last bit, wherever the mouse was pressed and released.
TEST_F(EditingTest, CutAndPasteAtTheSamePlaceGiveBackWhatWasThere) {
  std::mt19937 random(23);
  const auto pixel = [&random] { return static_cast<std::int32_t>(40 + random() % 600); };
  for (const double rateHz : {1000.0, 11025.0, 44100.0}) {
    ViewedRecording talk(world, Ramp(997), rateHz);
    CChannel& channel = talk.channel();
    for (int i = 0; i < 40; ++i) {
      const double samples = i % 2 == 0 ? i * 25.4 : 997.0 / 600.0 * (pixel() - 40);
      AddLabel(talk.document, 1, samples * channel.msPerSample(), std::to_string(i));
    }
    const auto labels = SortedLabels(channel);
    const double ms = channel.totalDurationMs;
    for (int round = 0; round < 300; ++round) {
      const std::int32_t press = pixel();
      const std::int32_t release = press + static_cast<std::int32_t>(random() % 500);
      ZoomView(talk.view, Zoom::kHome);
      if (round % 3 == 0) ZoomView(talk.view, Zoom::kIn);
      PressMouse(talk.view, press, 400);
      if (round % 7 == 0) MoveMouse(talk.view, press + 9, 400);  // and back: an empty selection
      ReleaseMouse(talk.view, round % 7 == 0 ? press : release, 400);
      if (!talk.view.selectionShown() || channel.selectionLength.samples > 996.0) continue;
      SCOPED_TRACE(MarksOf(talk.view));
      CutSelection(talk.view);
      Paste(talk.view);  // the cursor is where the press was
      ASSERT_EQ(talk.samples(), Ramp(997));
      ASSERT_EQ(channel.totalLength, 997.0);
      ASSERT_EQ(channel.totalDurationMs, ms);
      ASSERT_EQ(SortedLabels(channel), labels);
    }
  }
}

TEST_F(EditingTest, PasteIntoAnEmptyDocumentMakesARecording) {
  CopyWholeOf(world, Ramp(40), 8000.0, 2.5);
  world.clipboard.slots[0].displayHigh = 1234.5;
  ViewedRecording empty(world);
  Paste(empty.view);
  EXPECT_TRUE(empty.document.loaded);
  EXPECT_EQ(EditOf(empty.view), "no undo modified");
  EXPECT_EQ(empty.samples(), Ramp(40));
  const CChannel& channel = empty.channel();
  EXPECT_EQ(Joined(channel.sampleRateHz, empty.document.settings.referenceRateHz,
                   channel.displayHigh, channel.visibleEnd.samples, channel.previousEnd),
            "8000 8000 1234.5 40 40");
  EXPECT_EQ(MarksOf(empty.view), "0 of 0 0 = 0");
  EXPECT_EQ(LabelsOf(channel, 0), "pasted@2.5");
  EXPECT_THAT(world.temporary.Names(), IsEmpty());
  // The clipboard keeps samples of its own.
  empty.channel().samples.samples()[0] = 77;
  EXPECT_EQ(Copied(), Ramp(40));
}

TEST_F(EditingTest, TwoChannelsAreCopiedCutAndPastedTogether) {
  ViewedRecording talk(world, Ramp(10));
  talk.document.channelCount = 2;
  CChannel& second = talk.document.channels[1];
  AssignOrReport(second, talk.channel(), world.test.memory, world.test.prompts);
  for (auto& sample : second.samples.samples()) sample = static_cast<std::int16_t>(-sample);
  SelectSamples(talk, 2.0, 5.0);
  second.selectionStart = talk.channel().selectionStart;
  second.selectionEnd = talk.channel().selectionEnd;
  CutSelection(talk.view);
  EXPECT_THAT(second.samples.samples(), ElementsAre(0, -1, -5, -6, -7, -8, -9));
  EXPECT_EQ(second.totalLength, 7.0);
  EXPECT_THAT(world.clipboard.slots[1].samples.samples(), ElementsAre(-2, -3, -4));

  ViewedRecording empty(world);
  Paste(empty.view);
  EXPECT_EQ(empty.document.channelCount, 2);
  Paste(empty.view);
  EXPECT_THAT(empty.document.channels[1].samples.samples(), ElementsAre(-2, -3, -4, -2, -3, -4));
}

TEST_F(EditingTest, PitchIsComputedAgainWhenItIsAutomaticAndElseDropped) {
  for (const int automatic : {0, 1}) {
    ViewedRecording talk(world, Ramp(4000), 8000.0);
    talk.document.settings.display.automaticAnalysis = automatic;
    talk.view.pitch.PitchValid = talk.channel().intensity.IntensityValid = true;
    SelectSamples(talk, 100.0, 2100.0);
    CutSelection(talk.view);
    EXPECT_EQ(talk.view.pitch.PitchValid, automatic == 1);
    EXPECT_EQ(talk.channel().intensity.IntensityValid, automatic == 1);
    EXPECT_EQ(talk.view.pitch.range.end, automatic * 2000.0);
    Undo(talk.view);
    EXPECT_EQ(talk.view.pitch.range.end, automatic * 4000.0);
  }
}

}  // namespace
}  // namespace cantorix
