// label_snap.cpp - the nearest of many times.
#include "mainview/label_snap.h"

#include <cmath>

#include "document/label.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

class Nearest {
 public:
  Nearest(double ms, double reachMs) : ms_(ms), reachMs_(reachMs) {}

  void Offer(double ms) {
    const double distance = std::abs(ms - ms_);
    if (distance > reachMs_) return;
    reachMs_ = distance;
    found_ = ms;
  }
  std::optional<double> found() const { return found_; }

 private:
  double ms_;
  double reachMs_;
  std::optional<double> found_;
};

}  // namespace

std::optional<double> SnapTime(CSonadexView& view, int tier, double ms) {
  CChannel& channel = view.channel();
  const AxisScale time = TimeAxisOf(channel, view.layout.axisWidth());
  if (time.width <= 0.0) return std::nullopt;
  Nearest nearest(ms, kSnapPixels * (time.high - time.low) / time.width);
  const Marks& before = view.press.before;
  if (before.markerSet) nearest.Offer(before.cursor.ms);
  if (before.selectionShown) {
    nearest.Offer(before.selectionStart.ms);
    nearest.Offer(before.selectionEnd.ms);
  }
  for (int i = 0; i < kTierCount; ++i) {
    const Tier& other = channel.tiers[static_cast<std::size_t>(i)];
    if (i == tier || !other.inUse) continue;
    for (const Label& label : other.labels) nearest.Offer(label.timeMs);
  }
  return nearest.found();
}

}  // namespace cantorix
