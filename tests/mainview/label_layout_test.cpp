// label_layout_test.cpp - where labels stand in a tier 40 pixels high at the top of the view, with
// text that is 7 pixels a byte wide and 14 high.
#include "mainview/label_layout.h"

#include <gtest/gtest.h>

#include "document/label.h"
#include "mainview/view_commands.h"
#include "wide_view.h"

namespace cantorix {
namespace {

class LabelLayoutTest : public WideViewTest {
 protected:
  LabelLayoutTest() {
    tier.inUse = true;
    tier.tierWord = 40;
    view.LayOut(kWideClient);
  }
  Tier& tier = channel.tiers[0];
  PixelRect BoxOf(double ms, std::int32_t alignment, double vertical, std::string text) {
    Label label;
    label.timeMs = ms;
    label.alignment = alignment;
    label.verticalPosition = vertical;
    label.text = std::move(text);
    return LabelRectangle(view, 0, label);
  }
};

TEST_F(LabelLayoutTest, PlacesTheTextByTimeJustificationAndVerticalPosition) {
  const struct {
    const char* name;
    double ms;
    std::int32_t alignment;
    double vertical;
    std::string text;
    std::int32_t left, top, width, height;
  } cases[] = {
      {"left", 5000.0, kAlignLeft, 0.5, "abcd", 540, 13, 28, 14},
      {"centre", 5000.0, kAlignCentre, 0.5, "abcd", 526, 13, 28, 14},
      {"right", 5000.0, kAlignRight, 0.5, "abcd", 512, 13, 28, 14},
      {"top", 5000.0, kAlignLeft, 0.0, "abcd", 540, 0, 28, 14},
      {"bottom", 5000.0, kAlignLeft, 1.0, "abcd", 540, 26, 28, 14},
      {"below the bottom", 5000.0, kAlignLeft, 7.0, "abcd", 540, 26, 28, 14},
      {"at the left edge", 0.0, kAlignRight, 0.5, "abcd", 40, 13, 28, 14},
      {"at the right edge", 10'000.0, kAlignLeft, 0.5, "abcd", 1040 - 28, 13, 28, 14},
      {"wider than the tier", 0.0, kAlignCentre, 0.5, std::string(200, 'x'), 40, 13, 1400, 14},
      {"without text", 5000.0, kAlignLeft, 0.5, "", 540, 13, 8, 14},
      {"not visible", 20'000.0, kAlignRight, 0.5, "abcd", 2012, 13, 28, 14},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const PixelRect box = BoxOf(c.ms, c.alignment, c.vertical, c.text);
    EXPECT_EQ(box.left, c.left);
    EXPECT_EQ(box.top, c.top);
    EXPECT_EQ(box.right - box.left, c.width);
    EXPECT_EQ(box.bottom - box.top, c.height);
  }
}

TEST_F(LabelLayoutTest, FollowsTheStretchAndFitsALowTier) {
  SelectSpan(view, 4000.0, 6000.0);
  ZoomView(view, Zoom::kSelection);
  tier.tierWord = 10;
  view.LayOut(kWideClient);
  const PixelRect box = BoxOf(5000.0, kAlignLeft, 0.7, "a");
  EXPECT_EQ(box.left, 540);
  EXPECT_EQ(box.top, 0);
  EXPECT_EQ(box.bottom, 10);
  EXPECT_LT(BoxOf(-1e300, kAlignLeft, 0.7, "a").right, 0);
}

TEST_F(LabelLayoutTest, VerticalPositionIsTheFractionOfTheHeight) {
  EXPECT_EQ(VerticalPositionAt(view.layout.tier(0), 10), 0.25);
  EXPECT_EQ(VerticalPositionAt(view.layout.tier(0), -5), 0.0);
  EXPECT_EQ(VerticalPositionAt(view.layout.tier(0), 90), 1.0);
  EXPECT_EQ(VerticalPositionAt({}, 3), 0.0);
}

}  // namespace
}  // namespace cantorix
