// go_to_commands.cpp - questions until the answer fits, and the search for a crossing.
#include "mainview/go_to_commands.h"

#include <cmath>
#include <optional>
#include <string>

#include "mainview/cursor_moves.h"
#include "mainview/dialog_answers.h"
#include "mainview/typed_times.h"
#include "mainview/zero_crossing.h"
#include "platform/numbers.h"
#include "platform/progress.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr const char* kNote = "Milliseconds, or seconds with the unit s: 1234.5 or 1.2345 s";

std::string InMs(double ms) { return FormatOneDecimal(ms) + " ms"; }

// Nothing when the times are good for the recording.
std::string RefusalOf(const TypedTimes& times, int wanted, const CChannel& channel) {
  if (times.count != wanted) {
    return wanted == 1 ? "Enter one time, for example 1234.5 or 1.2345 s."
                       : "Enter two times, or a time and a length, for example 500 800 or 0.5 s + "
                         "300.";
  }
  const auto isOutside = [&](double ms) { return ms < 0.0 || ms > channel.totalDurationMs; };
  if (isOutside(times.firstMs) || (wanted == 2 && isOutside(times.secondMs))) {
    return "The recording goes from 0 to " + InMs(channel.totalDurationMs) + ".";
  }
  return {};
}

std::optional<TypedTimes> Ask(CSonadexView& view, TextsQuestion question, int wanted) {
  for (;;) {
    const auto typed = view.services().dialogs.AskTexts(question);
    if (!typed) return std::nullopt;
    const TypedTimes times = ReadTypedTimes(typed->front());
    const std::string refusal = RefusalOf(times, wanted, view.channel());
    if (refusal.empty()) return times;
    view.prompts().Message(refusal);
    question.fields.front().preset = typed->front();
  }
}

class CrossingSearch {
 public:
  explicit CrossingSearch(CSonadexView& view)
      : view_(view),
        progress_(view.progress(), "Searching a zero crossing...", view.channel().totalLength) {}

  std::optional<double> Near(double samples) {
    const auto found =
        NearestZeroCrossing(view_.document().Samples(), samples, view_.channel().referenceLevel,
                            [this](double done) { progress_.StepOrAbandon(done); });
    return found ? std::optional(static_cast<double>(*found)) : std::nullopt;
  }

 private:
  CSonadexView& view_;
  ProgressScope progress_;
};

std::string Moved(const std::string& what, double fromMs, double toMs) {
  const double by = toMs - fromMs;
  if (by == 0.0) return what + " stands at a zero crossing already.";
  return what + " moved by " + (by > 0.0 ? "+" : "") + FormatDecimals(by, 2) +
         " ms to the zero crossing at " + InMs(toMs) + ".";
}

constexpr const char* kNone = "The recording never crosses zero.";

void MoveMarkerToCrossing(CSonadexView& view) {
  const TimePoint from = view.channel().cursor;
  const auto found = CrossingSearch(view).Near(from.samples);
  if (!found) return view.Say(kNone);
  const TimePoint to{*found, *found * view.channel().msPerSample()};
  PlaceMarkerInSight(view, to);
  view.Say(Moved("The cursor", from.ms, to.ms));
}

void MoveEdgesToCrossings(CSonadexView& view) {
  const CChannel& channel = view.channel();
  const double fromStart = channel.selectionStart.ms;
  const double fromEnd = channel.selectionEnd.ms;
  CrossingSearch search(view);
  const auto start = search.Near(channel.selectionStart.samples);
  const auto end = search.Near(channel.selectionEnd.samples);
  if (!start || !end) return view.Say(kNone);
  if (*start == *end) return view.Say("Both edges have the same nearest zero crossing.");
  SelectInSight(view, *start * channel.msPerSample(), *end * channel.msPerSample());
  view.Say(Moved("The start", fromStart, channel.selectionStart.ms) + ' ' +
           Moved("The end", fromEnd, channel.selectionEnd.ms));
}

}  // namespace

void GoToTypedTime(CSonadexView& view) {
  const auto times =
      Ask(view, {"Go to", {{"Time:", FormatOneDecimal(view.channel().cursor.ms)}}, kNote}, 1);
  if (times) PlaceMarkerInSight(view, view.channel().PointAtTime(times->firstMs));
}

void SelectTypedTimes(CSonadexView& view) {
  const CChannel& channel = view.channel();
  std::string preset = FormatOneDecimal(channel.selectionStart.ms);
  if (view.selectionShown()) preset += ' ' + FormatOneDecimal(channel.selectionEnd.ms);
  const auto times =
      Ask(view, {"Select", {{"Two times, or time + length:", std::move(preset)}}, kNote}, 2);
  if (times) SelectInSight(view, times->firstMs, times->secondMs);
}

void MoveToZeroCrossing(CSonadexView& view) {
  if (view.selectionShown()) return MoveEdgesToCrossings(view);
  MoveMarkerToCrossing(view);
}

}  // namespace cantorix
