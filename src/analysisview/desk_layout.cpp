// desk_layout.cpp - the width of the spectrum first, then the height of the main view, then shares.
#include "analysisview/desk_layout.h"

#include <algorithm>
#include <cmath>

#include "mainview/view_layout.h"

namespace cantorix {
namespace {

// Pixels.
constexpr std::int32_t kWideArea = 1600;
constexpr std::int32_t kSpectrumWidth = 440;
constexpr std::int32_t kSpectrumWidthInWide = 560;
constexpr std::int32_t kMainFurniture = 92;  // title, time axis, readouts and scroll bar
constexpr std::int32_t kGoodPane = 100;
constexpr std::int32_t kLeastAnalysis = 210;  // height of one window below
constexpr std::int32_t kRoomForBoth = 400;    // of two, one below the other
constexpr std::int32_t kGoodRoomForBoth = 460;

constexpr double kMainShare = 0.42;  // of the area's height
constexpr double kLowMainShare = 0.38;
constexpr double kSpectrogramShare = 0.58;  // of the room below the main view
constexpr double kLowSpectrogramShare = 0.55;

std::int32_t Share(std::int32_t whole, double share) {
  return static_cast<std::int32_t>(std::lround(whole * share));
}

std::int32_t HeightOfMain(std::int32_t height, const DeskContents& contents) {
  const std::int32_t fixed = kMainFurniture + contents.tiersHeight;
  const std::int32_t least = fixed + contents.panes * kLeastPaneHeight;
  std::int32_t main = std::max(least, Share(height, kMainShare));
  if (contents.spectrogram && contents.pitch) {
    if (height - main < kGoodRoomForBoth) {
      main = std::max(least, Share(height, kLowMainShare));
    } else {
      const std::int32_t good = fixed + contents.panes * kGoodPane;
      main = std::max(main, std::min(good, height - kGoodRoomForBoth));
    }
  }
  return std::max(std::min(main, height - kLeastAnalysis), 0);
}

}  // namespace

DeskLayout LayOutDesk(PixelSize area, const DeskContents& contents) {
  const std::int32_t side = !contents.spectrum        ? 0
                            : area.width >= kWideArea ? kSpectrumWidthInWide
                                                      : kSpectrumWidth;
  const std::int32_t width = std::max(area.width - side, 0);
  DeskLayout layout;
  if (contents.spectrum) {
    layout.spectrum = {width, 0, area.width, area.height};
  }
  const bool hasBelow = contents.spectrogram || contents.pitch;
  const std::int32_t main = hasBelow ? HeightOfMain(area.height, contents) : area.height;
  layout.main = {0, 0, width, main};
  const std::int32_t room = area.height - main;
  layout.isPlaceShared = contents.spectrogram && contents.pitch && room < kRoomForBoth;
  std::int32_t border = main;  // between spectrogram and pitch track
  if (contents.spectrogram && contents.pitch && !layout.isPlaceShared) {
    border += Share(room, room >= kGoodRoomForBoth ? kSpectrogramShare : kLowSpectrogramShare);
  } else if (contents.spectrogram) {
    border = area.height;
  }
  if (contents.spectrogram) layout.spectrogram = {0, main, width, border};
  if (contents.pitch) {
    layout.pitch = {0, layout.isPlaceShared ? main : border, width, area.height};
  }
  return layout;
}

}  // namespace cantorix
