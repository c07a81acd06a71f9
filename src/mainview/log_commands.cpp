// log_commands.cpp - each kind of row from cursor, selection, tracks and labels.
#include "mainview/log_commands.h"

#include <string>
#include <utility>
#include <vector>

#include "document/label.h"
#include "mainview/time_axis.h"
#include "mainview/track_lookup.h"
#include "platform/bytes.h"
#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr std::size_t kMaxTextBytes = 255;

struct MsRange {
  double startMs = 0.0;
  double endMs = 0.0;  // included
};

MsRange SelectionOf(const CChannel& channel) {
  return {InsideRecordingMs(channel, channel.selectionStart.ms),
          InsideRecordingMs(channel, channel.selectionEnd.ms)};
}

// Builds the rows of one command and hands them on. Each Enter returns whether no more are wanted.
class Rows {
 public:
  Rows(const CSonadexView& view, LogSink& sink, std::string heading)
      : view_(view),
        sink_(sink),
        source_(CutText(view.document().title(), kMaxTextBytes)),
        heading_(std::move(heading)) {}

  bool EnterDuration(const MsRange& range) {
    return Enter(
        {TimeCell(range.startMs), TimeCell(range.endMs), TimeCell(range.endMs - range.startMs)});
  }
  bool EnterTracksAt(double ms) { return Enter({TimeCell(ms), PitchCell(ms), IntensityCell(ms)}); }
  bool EnterLabel(const Tier& tier, const Label& label) {
    const double ms = label.timeMs;
    return Enter({std::string(CutText(tier.name, kMaxTextBytes)), label.text, TimeCell(ms),
                  PitchCell(ms), IntensityCell(ms)});
  }

 private:
  bool Enter(std::vector<std::string> cells) {
    return sink_.Append({source_, heading_, std::move(cells)});
  }
  std::string TimeCell(double ms) const {
    return TimeText(ms, view_.document().settings.display.timeBase);
  }
  std::string PitchCell(double ms) const {
    return FormatOneDecimal(PitchAt(view_.pitch, view_.channel(), ms));
  }
  std::string IntensityCell(double ms) const {
    return FormatOneDecimal(IntensityAt(view_.channel().intensity, view_.channel(), ms));
  }

  const CSonadexView& view_;
  LogSink& sink_;
  std::string source_;
  std::string heading_;
};

// The frames of the pitch track, or those inside `range`.
void EnterPitch(const CSonadexView& view, const MsRange* range, Rows rows) {
  const double msPerSample = view.channel().msPerSample();
  for (std::int64_t i = 0; i < view.pitch.count(); ++i) {
    const double ms = view.pitch.TimeMs(i, msPerSample);
    if (range != nullptr && (ms < range->startMs || ms > range->endMs)) continue;
    // Kept: the value is looked up at the frame's time, which may give the frame before it.
    if (rows.EnterTracksAt(ms)) return;
  }
}

// The labels of the tiers in use, or those inside `range`.
void EnterLabels(const CSonadexView& view, const MsRange* range, Rows rows) {
  for (const Tier& tier : view.channel().tiers) {
    if (!tier.inUse) continue;
    for (const Label& label : tier.labels) {
      if (range != nullptr && !LabelInRange(label, range->startMs, range->endMs)) continue;
      if (rows.EnterLabel(tier, label)) return;
    }
  }
}

// Passes rows on until the log or the user wants no more.
class WatchedSink : public LogSink {
 public:
  WatchedSink(LogSink& log, ProgressScope& progress) : log_(log), progress_(progress) {}
  bool Append(const LogEntry& entry) override {
    const bool enough = log_.Append(entry);
    count_ += 1.0;
    return progress_.Cancelled(count_) || enough;
  }

 private:
  LogSink& log_;
  ProgressScope& progress_;
  double count_ = 0.0;
};

double LabelCount(const CChannel& channel) {
  double count = 0.0;
  for (const Tier& tier : channel.tiers) count += tier.inUse ? tier.labelCount() : 0;
  return count;
}

}  // namespace

void EnterIntoLog(const CSonadexView& view, LogCommand command, LogSink& sink) {
  const CChannel& channel = view.channel();
  const MsRange selection = SelectionOf(channel);
  const auto rows = [&](const char* heading) { return Rows(view, sink, heading); };
  switch (command) {
    case LogCommand::kDuration:
      rows("Duration Entry: start, end, duration").EnterDuration(selection);
      return;
    case LogCommand::kPitchAtMarker:
      rows("Pitch Marker Entry: time, pitch, intensity")
          .EnterTracksAt(InsideRecordingMs(channel, channel.cursor.ms));
      return;
    case LogCommand::kPitchSelection:
      return EnterPitch(view, &selection, rows("Pitch Selection Entry: time, pitch, intensity"));
    case LogCommand::kPitchAll:
      return EnterPitch(view, nullptr, rows("Pitch All Entry: time, pitch, intensity"));
    case LogCommand::kLabelsSelection:
      return EnterLabels(
          view, &selection,
          rows("Labels Selection Entry: Tier, Label's Text, Time, pitch, Intensity"));
    case LogCommand::kLabelsAll:
      return EnterLabels(view, nullptr,
                         rows("Labels All Entry: Tier, Label's Text, Time, pitch, Intensity"));
  }
}

void EnterIntoOpenLog(CSonadexView& view, LogCommand command) {
  const auto& openLog = view.services().openLog;
  LogSink* const log = openLog ? openLog() : nullptr;
  if (log == nullptr) return;
  if (command == LogCommand::kDuration || command == LogCommand::kPitchAtMarker) {
    return EnterIntoLog(view, command, *log);
  }
  const bool labels = command == LogCommand::kLabelsSelection || command == LogCommand::kLabelsAll;
  const double most = labels ? LabelCount(view.channel()) : static_cast<double>(view.pitch.count());
  ProgressScope progress(view.progress(), kEnteringText, most);
  WatchedSink sink(*log, progress);
  EnterIntoLog(view, command, sink);
}

}  // namespace cantorix
