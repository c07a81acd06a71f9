// view_layout.cpp - strips from the top down, the fixed ones from the bottom up.
#include "mainview/view_layout.h"

#include <algorithm>
#include <array>

#include "mainview/time_axis.h"
#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr std::int32_t kGreatestTierHeight = 10'000;  // pixels
constexpr std::int32_t kGreatestPercent = 1000;

double ShareOf(std::int32_t percent) { return std::clamp(percent, 1, kGreatestPercent) * 0.01; }

// The panes' parts of the height that is left for them, 0 for one that is not drawn.
struct PaneShares {
  double audio = 0.0;
  double intensity = 0.0;
  double pitch = 0.0;
  double Sum() const { return audio + intensity + pitch; }
};

PaneShares SharesOf(const DisplaySettings& display) {
  PaneShares shares;
  if (display.drawAudio != 0) shares.audio = ShareOf(display.audioPanePercent);
  if (display.drawPitch != 0) shares.pitch = ShareOf(display.pitchPanePercent);
  if (display.drawIntensity != 0 && display.intensityInOwnPane != 0) {
    // Intensity has no percent of its own: it takes a third of the audio pane's part.
    shares.intensity = shares.audio > 0.0 ? shares.audio / 3.0 : 0.3;
    shares.audio -= shares.audio / 3.0;
  }
  const double sum = shares.Sum();
  if (sum > 0.0 && sum < 1.0) {
    shares = {shares.audio / sum, shares.intensity / sum, shares.pitch / sum};
  }
  return shares;
}

std::int32_t PaneHeight(double share, std::int32_t available) {
  if (share <= 0.0) return 0;
  return std::max(TruncateToInt32(share * available), kLeastPaneHeight);
}

std::int32_t TiersHeight(const CChannel& channel, const DisplaySettings& display) {
  if (display.drawTiers == 0) return 0;
  std::int32_t height = 0;
  for (const Tier& tier : channel.tiers) height += tier.inUse ? TierHeight(tier) : 0;
  return height;
}

// Takes strips of one width from the top downwards.
class Strips {
 public:
  Strips(std::int32_t left, std::int32_t right, std::int32_t top)
      : left_(left), right_(right), top_(top) {}
  PixelRect Next(std::int32_t height) {
    const PixelRect strip{left_, top_, right_, top_ + height};
    top_ += height;
    return strip;
  }

 private:
  std::int32_t left_, right_, top_;
};

std::array<PixelRect, kTierCount> TierStrips(const Tiers& tiers, bool drawn, Strips& strips) {
  std::array<PixelRect, kTierCount> places;
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (drawn && tiers[i].inUse) places[i] = strips.Next(TierHeight(tiers[i]));
  }
  return places;
}

}  // namespace

std::int32_t TierHeight(const Tier& tier) {
  return std::clamp(tier.tierWord, 1, kGreatestTierHeight);
}

ViewLayout LayOutView(const CSonadexDoc& document, PixelSize client, std::int32_t verticalOffset) {
  const CChannel& channel = document.channel();
  const DisplaySettings& display = document.settings.display;
  const std::int32_t left = kLeftMargin;
  const std::int32_t right = std::max(client.width - kRightMargin, left);
  const std::int32_t bottom = kTimeAxisHeight + kReadoutStripHeight;
  const std::int32_t tiers = TiersHeight(channel, display);
  // One pixel stays free: a layout as high as the client area would count as too high for it.
  const std::int32_t available = std::max(client.height - bottom - tiers - 1, 0);
  const PaneShares shares = SharesOf(display);

  ViewLayout layout;
  layout.client = client;
  Strips strips(left, right, verticalOffset);
  layout.tiers = TierStrips(channel.tiers, display.drawTiers != 0, strips);
  layout.audio = strips.Next(PaneHeight(shares.audio, available));
  layout.intensity = strips.Next(PaneHeight(shares.intensity, available));
  layout.pitch = strips.Next(PaneHeight(shares.pitch, available));
  layout.laidOutHeight = layout.pitch.bottom - verticalOffset + bottom;
  layout.timeAxis = {left, client.height - bottom, right, client.height - kReadoutStripHeight};
  layout.readouts = {0, client.height - kReadoutStripHeight, client.width, client.height};
  return layout;
}

}  // namespace cantorix
