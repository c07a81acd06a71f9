// view_layout_test.cpp - strips of the main view for different display settings and sizes.
#include "mainview/view_layout.h"

#include <gtest/gtest.h>

#include "mainview/time_axis.h"
#include "settings/settings.h"
#include "support/test_host.h"

namespace cantorix {
namespace {

std::int32_t HeightOf(const PixelRect& rect) { return rect.bottom - rect.top; }

class ViewLayoutTest : public testing::Test {
 protected:
  ViewLayoutTest() {
    document.channel().tiers[1].inUse = true;
    document.channel().tiers[4].inUse = true;
    document.channel().tiers[4].tierWord = 35;
  }
  TestHost world;
  CSonadexDoc document{world.host};
};

TEST_F(ViewLayoutTest, StacksTiersAndPanesBetweenTheMargins) {
  const ViewLayout layout = LayOutView(document, {800, 600}, -10);
  EXPECT_EQ(layout.tiers[1].top, -10);
  EXPECT_EQ(layout.tiers[4].top, 10);
  EXPECT_EQ(layout.tiers[4].bottom, 45);
  EXPECT_EQ(HeightOf(layout.tiers[0]), 0);  // not in use
  EXPECT_EQ(layout.audio.top, 45);
  EXPECT_EQ(layout.pitch.top, layout.audio.bottom);
  EXPECT_LT(layout.laidOutHeight, 600);      // no vertical scrolling
  EXPECT_GE(layout.laidOutHeight, 600 - 3);  // the panes fill what is left
  EXPECT_EQ(layout.audio.left, kLeftMargin);
  EXPECT_EQ(layout.audio.right, 800 - kRightMargin);
  EXPECT_EQ(layout.axisWidth(), 755);
  EXPECT_EQ(layout.readouts.bottom, 600);
  EXPECT_EQ(layout.timeAxis.bottom, layout.readouts.top);
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
      {"nothing", 0, 0, 0, 0, 50, 50, 0.0, 0.0, 0.0},
      {"more than all", 1, 0, 0, 1, 100, 100, 1.0, 0.0, 1.0},
  };
  const std::int32_t panes = 1000 - kTimeAxisHeight - kReadoutStripHeight - 55 - 1;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    DisplaySettings& display = document.settings.display;
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
    // The time axis is as wide without a waveform.
    EXPECT_EQ(layout.axisWidth(), 755);
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
  document.settings.display.audioPanePercent = INT32_MAX;
  document.settings.display.pitchPanePercent = INT32_MIN;
  const ViewLayout layout = LayOutView(document, {32'000, 32'000}, -32'000);
  EXPECT_EQ(HeightOf(layout.tiers[3]), 1);
  EXPECT_GT(layout.laidOutHeight, 32'000);

  document.settings.display.drawTiers = 0;
  EXPECT_EQ(HeightOf(LayOutView(document, {800, 600}, 0).tiers[1]), 0);
}

}  // namespace
}  // namespace cantorix
