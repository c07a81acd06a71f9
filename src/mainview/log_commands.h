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

// Hands the rows of a command to `sink`, one by one, until it wants no more.
void EnterIntoLog(const CSonadexView& view, LogCommand command, LogSink& sink);

}  // namespace cantorix
