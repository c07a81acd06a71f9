// view_layout_test.cpp - strips of the main view for different display settings and sizes, and the
// boxes of labels in a tier; text is 7 pixels a byte wide and 14 high.
#include "mainview/view_layout.h"

#include <gtest/gtest.h>

#include "document/label.h"
#include "mainview/label_layout.h"
#include "mainview/time_axis.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

std::int32_t HeightOf(const PixelRect& rect) { return rect.bottom - rect.top; }

std::string TextOf(const PixelRect& rect) {
  return Joined(rect.left, rect.top, rect.right, rect.bottom);
}

class ViewLayoutTest : public ViewTest {
 protected:
  ViewLayoutTest() {
    document.channel().tiers[1].inUse = true;
    document.channel().tiers[4].inUse = true;
    document.channel().tiers[4].tierWord = 35;
  }
  CSonadexDoc document{world.test.host};
  DisplaySettings& display = document.settings.display;
};

TEST_F(ViewLayoutTest, StacksTiersAndPanesBetweenTheMargins) {
  const ViewLayout layout = LayOutView(document, {800, 600}, -10);
  EXPECT_EQ(TextOf(layout.tiers[1]), "40 -10 795 10");
  EXPECT_EQ(TextOf(layout.tiers[4]), "40 10 795 45");
  EXPECT_EQ(HeightOf(layout.tiers[0]), 0);  // not in use
  EXPECT_EQ(layout.audio.top, 45);
  EXPECT_EQ(layout.pitch.top, layout.audio.bottom);
  EXPECT_LT(layout.laidOutHeight, 600);      // no vertical scrolling
  EXPECT_GE(layout.laidOutHeight, 600 - 3);  // the panes fill what is left
  EXPECT_EQ(layout.axisWidth(), 755);
  const std::int32_t axis = 600 - kReadoutStripHeight;
  EXPECT_EQ(TextOf(layout.timeAxis), Joined(40, axis - kTimeAxisHeight, 795, axis));
  EXPECT_EQ(TextOf(layout.readouts), Joined(0, axis, 800, 600));
}

// The heights of the panes of audio, intensity and pitch for each choice of what is drawn (audio,
// intensity, in a pane of its own, pitch) and of their percents.
TEST_F(ViewLayoutTest, PanesShareByTheirPercentsAsApproved) {
  std::string text;
  for (int drawn = 0; drawn < 16; ++drawn) {
    display.drawAudio = drawn >> 3 & 1;
    display.drawIntensity = drawn >> 2 & 1;
    display.intensityInOwnPane = drawn >> 1 & 1;
    display.drawPitch = drawn & 1;
    text += Joined(display.drawAudio, display.drawIntensity, display.intensityInOwnPane,
                   display.drawPitch) +
            ':';
    for (const auto& [audio, pitch] :
         {std::pair{50, 50}, {10, 30}, {20, 50}, {60, 40}, {60, 70}, {100, 100}}) {
      display.audioPanePercent = audio;
      display.pitchPanePercent = pitch;
      const ViewLayout layout = LayOutView(document, {800, 1000}, 0);
      EXPECT_EQ(layout.axisWidth(), 755) << "as wide without a waveform";
      text +=
          Joined("", HeightOf(layout.audio), HeightOf(layout.intensity), HeightOf(layout.pitch)) +
          ',';
    }
    text += '\n';
  }
  ExpectText("mainview/expected/Panes.txt", text);
}

TEST_F(ViewLayoutTest, SmallWindowsAndDamagedSettingsKeepTheirSense) {
  const ViewLayout none = LayOutView(document, {0, 0}, 0);
  EXPECT_EQ(none.axisWidth(), 0);
  EXPECT_GE(HeightOf(none.audio), kLeastPaneHeight);

  for (Tier& tier : document.channel().tiers) {
    tier.inUse = true;
    tier.tierWord = INT32_MAX;
  }
  document.channel().tiers[3].tierWord = INT32_MIN;
  display.audioPanePercent = INT32_MAX;
  display.pitchPanePercent = INT32_MIN;
  const ViewLayout layout = LayOutView(document, {32'000, 32'000}, -32'000);
  EXPECT_EQ(HeightOf(layout.tiers[3]), 1);
  EXPECT_GT(layout.laidOutHeight, 32'000);
  display.drawTiers = 0;
  EXPECT_EQ(HeightOf(LayOutView(document, {800, 600}, 0).tiers[1]), 0);
}

// A tier 40 pixels high at the top of the view.
class LabelLayoutTest : public WideViewTest {
 protected:
  LabelLayoutTest() { UseTier(40); }
  void UseTier(std::int32_t height) {
    channel.tiers[0].inUse = true;
    channel.tiers[0].tierWord = height;
    view.LayOut(kWideClient);
  }
  std::string BoxOf(double ms, std::int32_t alignment, double vertical, std::string text) {
    Label label = LabelOf(ms, std::move(text));
    label.alignment = alignment;
    label.verticalPosition = vertical;
    return TextOf(LabelRectangle(view, 0, label));
  }
};

// In the middle of the tier, at its edges, wider than it and far away.
TEST_F(LabelLayoutTest, PlacesTheTextByTimeJustificationAndVerticalPositionAsApproved) {
  std::string boxes;
  for (const double ms : {5000.0, 0.0, 10'000.0, 20'000.0, -1e300}) {
    for (const std::string& text : {std::string("abcd"), std::string(), std::string(200, 'x')}) {
      boxes += Joined(ms, text.size(), "letters:");
      for (const std::int32_t alignment : {kAlignLeft, kAlignCentre, kAlignRight}) {
        boxes += ' ' + BoxOf(ms, alignment, 0.5, text) + ',';
      }
      boxes += '\n';
    }
  }
  for (const double vertical : {0.0, 1.0, 7.0}) {
    boxes += BoxOf(5000.0, kAlignLeft, vertical, "abcd") + '\n';
  }
  channel.tiers[1].inUse = true;
  UseTier(40);
  boxes += "below: " + TextOf(LabelRectangle(view, 1, LabelOf(5000.0, "a"))) + '\n';
  SelectSpan(view, 4000.0, 6000.0);
  ZoomView(view, Zoom::kSelection);
  UseTier(10);
  boxes += "in a low tier, zoomed: " + BoxOf(5000.0, kAlignLeft, 0.7, "a") + '\n';
  ExpectText("mainview/expected/LabelBoxes.txt", boxes);
}

TEST_F(LabelLayoutTest, VerticalPositionIsTheFractionOfTheHeight) {
  for (const auto& [y, position] : {std::pair{10, 0.25}, {-5, 0.0}, {90, 1.0}}) {
    EXPECT_EQ(VerticalPositionAt(view.layout.tier(0), y), position);
  }
  EXPECT_EQ(VerticalPositionAt({}, 3), 0.0);
}

}  // namespace
}  // namespace cantorix
