// measures.h - which function works on the files of a verb, and how its tables are headed.
#pragma once

#include "batch/file_queue.h"
#include "batch/request.h"

namespace cantorix::batch {

// Of a verb that works on recordings.
Measure MeasureFor(const Request& request);

// Whether the verb writes a recording instead of a table.
bool WritesRecording(Verb verb);
// Whether the verb needs no recording.
bool IsListing(Verb verb);

}  // namespace cantorix::batch
