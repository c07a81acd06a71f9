// view_layout_test.cpp - strips of the main view for different display settings and sizes, and the
// boxes of labels in a tier; text is 7 pixels a byte wide and 14 high.
#include "mainview/view_layout.h"

#include <gtest/gtest.h>

#include "document/label.h"
#include "mainview/label_layout.h"
#include "mainview/time_axis.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"

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

TEST_F(ViewLayoutTest, PanesShareByTheirPercents) {
  const struct {
    const char* name;
    std::int32_t audio, intensity, ownPane, pitch;  // drawn or not
    std::int32_t audioPercent, pitchPercent;
    double audioShare, intensityShare, pitchShare;  // of the height that the panes have
  } cases[] = {
      {"halves", 1, 1, 0, 1, 50, 50, 0.5, 0.0, 0.5},
      {"scaled up to fill", 1, 0, 0, 1, 10, 30, 0.25, 0.0, 0.75},
      {"audio alone", 1, 1, 0, 0, 20, 50, 1.0, 0.0, 0.0},
      {"intensity of its own", 1, 1, 1, 1, 60, 40, 0.4, 0.2, 0.4},
      {"intensity without audio", 0, 1, 1, 1, 60, 70, 0.0, 0.3, 0.7},
      {"nothing", 0, 0, 1, 0, 50, 50, 0.0, 0.0, 0.0},
      {"more than all", 1, 0, 0, 1, 100, 100, 1.0, 0.0, 1.0},
  };
  const std::int32_t panes = 1000 - kTimeAxisHeight - kReadoutStripHeight - 55 - 1;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    display.drawAudio = c.audio;
    display.drawIntensity = c.intensity;
    display.intensityInOwnPane = c.ownPane;
    display.drawPitch = c.pitch;
    display.audioPanePercent = c.audioPercent;
    display.pitchPanePercent = c.pitchPercent;
    const ViewLayout layout = LayOutView(document, {800, 1000}, 0);
    EXPECT_NEAR(HeightOf(layout.audio), c.audioShare * panes, 1.0);
    EXPECT_NEAR(HeightOf(layout.intensity), c.intensityShare * panes, 1.0);
    EXPECT_NEAR(HeightOf(layout.pitch), c.pitchShare * panes, 1.0);
    EXPECT_EQ(layout.axisWidth(), 755) << "as wide without a waveform";
  }
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

TEST_F(LabelLayoutTest, PlacesTheTextByTimeJustificationAndVerticalPosition) {
  const struct {
    const char* name;
    double ms;
    std::int32_t alignment;
    double vertical;
    std::string text;
    const char* box;
  } cases[] = {
      {"left", 5000.0, kAlignLeft, 0.5, "abcd", "540 13 568 27"},
      {"centre", 5000.0, kAlignCentre, 0.5, "abcd", "526 13 554 27"},
      {"right", 5000.0, kAlignRight, 0.5, "abcd", "512 13 540 27"},
      {"top", 5000.0, kAlignLeft, 0.0, "abcd", "540 0 568 14"},
      {"bottom", 5000.0, kAlignLeft, 1.0, "abcd", "540 26 568 40"},
      {"below the bottom", 5000.0, kAlignLeft, 7.0, "abcd", "540 26 568 40"},
      {"at the left edge", 0.0, kAlignRight, 0.5, "abcd", "40 13 68 27"},
      {"at the right edge", 10'000.0, kAlignLeft, 0.5, "abcd", "1012 13 1040 27"},
      {"wider than the tier", 0.0, kAlignCentre, 0.5, std::string(200, 'x'), "40 13 1440 27"},
      {"without text", 5000.0, kAlignLeft, 0.5, "", "540 13 548 27"},
      {"not visible", 20'000.0, kAlignRight, 0.5, "abcd", "2012 13 2040 27"},
      {"far away", -1e300, kAlignLeft, 0.5, "a", "-99999960 13 -99999952 27"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(BoxOf(c.ms, c.alignment, c.vertical, c.text), c.box) << c.name;
  }
  SelectSpan(view, 4000.0, 6000.0);
  ZoomView(view, Zoom::kSelection);
  UseTier(10);
  EXPECT_EQ(BoxOf(5000.0, kAlignLeft, 0.7, "a"), "540 0 548 10") << "in a low tier, zoomed";
}

TEST_F(LabelLayoutTest, VerticalPositionIsTheFractionOfTheHeight) {
  for (const auto& [y, position] : {std::pair{10, 0.25}, {-5, 0.0}, {90, 1.0}}) {
    EXPECT_EQ(VerticalPositionAt(view.layout.tier(0), y), position);
  }
  EXPECT_EQ(VerticalPositionAt({}, 3), 0.0);
}

}  // namespace
}  // namespace cantorix
