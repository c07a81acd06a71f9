// scroll_bar.cpp - bars are computed in 64 bits: a page may be as long as an int can say.
#include "mainview/scroll_bar.h"

#include <algorithm>

#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr double kSamplesPerUnit = 3.3333333333333335e-5;  // of the recording's length: 1 / 30000
constexpr std::int32_t kHiddenRows = 50;  // pixels of the client area that no page covers

// A bar of the same page and range at `position`, as far as it goes.
ScrollBar At(ScrollBar bar, std::int64_t position) {
  const std::int64_t last = std::int64_t{bar.range} - bar.page + 1;
  bar.position = static_cast<std::int32_t>(
      std::clamp<std::int64_t>(position, 0, std::max<std::int64_t>(last, 0)));
  return bar;
}

// How far a request moves, forward being positive; 0 for those that name no step.
std::int64_t StepOf(ScrollRequest request, std::int64_t lineStep, std::int64_t pageStep) {
  switch (request) {
    case ScrollRequest::kLineBack:
      return -lineStep;
    case ScrollRequest::kLineForward:
      return lineStep;
    case ScrollRequest::kPageBack:
      return -pageStep;
    case ScrollRequest::kPageForward:
      return pageStep;
    default:
      return 0;
  }
}

// Kept: page down counts as long as the bar's range reaches, line down only up to the last page.
bool MovesOffset(const ScrollBar& bar, ScrollRequest request, std::int64_t newPosition) {
  switch (request) {
    case ScrollRequest::kLineBack:
    case ScrollRequest::kPageBack:
      return newPosition >= 0;
    case ScrollRequest::kLineForward:
      return newPosition < std::int64_t{bar.range} - bar.page;
    case ScrollRequest::kPageForward:
      return newPosition < bar.range;
    default:
      return false;
  }
}

bool ReachesAnEnd(const ScrollBar& bar) {
  return bar.position == 0 || std::int64_t{bar.position} + bar.page >= bar.range;
}

}  // namespace

ScrollBar HorizontalBarOf(const CChannel& channel) {
  const double start = channel.visibleStart.samples;
  const double end = channel.visibleEnd.samples;
  const double total = channel.totalLength;
  if (!(total > 0.0) || (start <= 0.0 && end >= total)) return {};
  ScrollBar bar;
  bar.page = std::max(TruncateToInt32(kScrollRange / total * (end - start)), 0);
  // The quotient above is a hair under or over 30000 for a stretch as long as the recording.
  if (bar.page == kScrollRange || end - start >= total)
    bar.page = std::max(bar.page, kUnzoomedPage);
  return At(bar, Truncate(kScrollRange / total * start));
}

ScrollBar ScrolledHorizontally(const ScrollBar& bar, ScrollRequest request,
                               std::int32_t trackPosition) {
  if (request == ScrollRequest::kTrack) return At(bar, trackPosition);
  // A stretch too short for a page would never move: it goes by single positions.
  const std::int64_t lineStep = bar.page == 0 ? 1 : bar.page / 10;
  const std::int64_t pageStep = bar.page == 0 ? 1 : bar.page;
  return At(bar, bar.position + StepOf(request, lineStep, pageStep));
}

void ShowScrolled(CChannel& channel, const ScrollBar& bar) {
  const double unit = channel.totalLength * kSamplesPerUnit;
  const double start = bar.position * unit;
  // Kept: the page of a whole recording is one position longer than the range, so that stretch ends
  // just beyond the recording.
  const double end =
      bar.page == 0 ? start + channel.visibleLength.samples : bar.page * unit + start;
  channel.visibleStart.samples = start;
  channel.visibleEnd.samples = end;
  if (bar.page != 0) channel.visibleLength.samples = end - start;
  channel.UpdateVisibleMs();
}

VerticalScroll ScrolledVertically(const VerticalScroll& scroll, ScrollRequest request,
                                  std::int32_t trackPosition) {
  if (request == ScrollRequest::kTrack) {
    const ScrollBar bar = At(scroll.bar, trackPosition);
    return {bar, -bar.position};
  }
  const bool toEnd = request == ScrollRequest::kEnd && ReachesAnEnd(scroll.bar);
  if (toEnd || request == ScrollRequest::kThumbReleased) return {scroll.bar, -scroll.bar.position};
  const std::int64_t step = StepOf(request, scroll.bar.page / 10, scroll.bar.page);
  const std::int64_t position = scroll.bar.position + step;
  const bool moves = MovesOffset(scroll.bar, request, position);
  const std::int64_t offset = scroll.offset - (moves ? step : 0);
  return {At(scroll.bar, position), static_cast<std::int32_t>(offset)};
}

VerticalScroll FittedVertically(const VerticalScroll& scroll, std::int32_t laidOutHeight,
                                std::int32_t clientHeight) {
  const bool fits = laidOutHeight < clientHeight;
  ScrollBar bar;
  bar.range = fits ? clientHeight : laidOutHeight;
  bar.page = fits ? clientHeight + 1 : std::max(clientHeight - kHiddenRows, 0);
  bar = At(bar, scroll.bar.position);
  // A lower layout must not leave the view below its end.
  const std::int32_t last = std::max(bar.range - bar.page, 0) + 1;
  return {bar, fits ? 0 : std::max(scroll.offset, -last)};
}

}  // namespace cantorix
