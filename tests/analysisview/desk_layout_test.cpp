// desk_layout_test.cpp - a recording's windows in areas of two screens and at the layout's borders.
#include "analysisview/desk_layout.h"

#include <gtest/gtest.h>

#include "support/expected_text.h"
#include "support/joined.h"

namespace cantorix {
namespace {

std::string TextOf(const PixelRect& rect) {
  return ", " + Joined(rect.left, rect.top, rect.right, rect.bottom);
}

TEST(DeskLayout, SharesTheAreaByWhatThereIsToShow) {
  constexpr PixelSize kLarge{1920, 982};
  constexpr PixelSize kSmall{1280, 702};
  const std::pair<PixelSize, DeskContents> rows[] = {
      {kLarge, {true, true, false, 0, 2}},     {kLarge, {true, true, false, 200, 2}},
      {kLarge, {true, true, true, 0, 2}},      {kSmall, {true, true, false, 0, 2}},
      {kSmall, {true, true, false, 60, 3}},    {kSmall, {true, true, false, 200, 2}},
      {kSmall, {true, false, true, 0, 2}},     {kSmall, {false, true, false, 300, 3}},
      {kSmall, {false, false, true, 0, 2}},    {{1599, 150}, {true, false, true, 0, 1}},
      {{1600, 460}, {true, true, true, 0, 0}}, {{300, 100}, {true, true, true, 0, 2}}};
  std::string text = "area: main view, spectrogram, pitch track, spectrum\n";
  for (const auto& [area, contents] : rows) {
    const DeskLayout layout = LayOutDesk(area, contents);
    text += Joined(area.width, area.height) + TextOf(layout.main) + TextOf(layout.spectrogram) +
            TextOf(layout.pitch) + TextOf(layout.spectrum) +
            (layout.isPlaceShared ? " shared\n" : "\n");
  }
  ExpectText("analysisview/expected/Desk.txt", text);
}

}  // namespace
}  // namespace cantorix
