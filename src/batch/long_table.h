// long_table.h - tables of many rows of numbers: printed by several threads, written in order.
#pragma once

#include <cstdint>
#include <functional>

#include "batch/session.h"
#include "batch/table.h"

namespace cantorix::batch {

// Writes one row, with its end; called from several threads at a time.
using RowWriter = std::function<void(std::int64_t row, TableRows& rows)>;

// Writes the rows 0 ... count - 1, of about `cells` cells each, in the session's style. Throws
// Abandoned after an interrupt, FileError when the sink cannot take them.
void WriteRows(Session& session, bool namesFile, TextSink& sink, std::int64_t count, int cells,
               const RowWriter& writeRow);

}  // namespace cantorix::batch
