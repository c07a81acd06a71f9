// log_commands.h - measurements of a view as rows of the log.
#pragma once

#include "mainview/log_entry.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

enum class LogCommand {
  kDuration,
  kPitchAtMarker,
  kPitchSelection,
  kPitchAll,
  kLabelsSelection,
  kLabelsAll,
};

// Hands the rows of a command to `sink`, one by one, until it wants no more. Times are in the time
// base of the display, all numbers have one decimal; a track that is absent reads 0.
void EnterIntoLog(const CSonadexView& view, LogCommand command, LogSink& sink);

// The same into the log that is open, if any. Commands of many rows show their progress, and the
// user may stop them, which keeps the rows entered so far.
void EnterIntoOpenLog(CSonadexView& view, LogCommand command);

}  // namespace cantorix
