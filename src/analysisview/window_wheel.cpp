// window_wheel.cpp - whose stretch it is, and where it goes.
#include "analysisview/window_wheel.h"

#include <algorithm>
#include <cstdlib>

#include "mainview/view_commands.h"
#include "mainview/wheel_zoom.h"

namespace cantorix {
namespace {

constexpr double kLine = 0.1;  // of a stretch

bool Turns(const AnalysisWindow& window) {
  return window.computed() && !window.samplesChanged() && window.ShownSamples().length() > 0.0;
}

}  // namespace

void ScrollByWheel(AnalysisWindow& window, int steps) {
  if (!Turns(window)) return;
  if (window.FollowsView()) {
    const ScrollRequest line = steps > 0 ? ScrollRequest::kLineBack : ScrollRequest::kLineForward;
    for (int i = 0; i < std::abs(steps); ++i) ScrollView(*window.mainView(), line);
    return;
  }
  const SampleRange shown = window.ShownSamples();
  const double room = std::max(window.channel().totalLength - shown.length(), 0.0);
  const double start = std::clamp(shown.start - steps * shown.length() * kLine, 0.0, room);
  window.ShowStretch({start, start + shown.length()});
}

void ZoomByWheel(AnalysisWindow& window, double place, int steps) {
  if (!Turns(window) || steps == 0) return;
  const SampleRange shown = window.ShownSamples();
  const double pointer = shown.start + place * shown.length();
  if (window.FollowsView()) return ZoomViewAroundSample(*window.mainView(), pointer, steps);
  const auto [start, length] = ZoomedAround(shown, window.channel().totalLength, pointer, steps);
  window.ShowStretch({start, start + length});
}

}  // namespace cantorix
