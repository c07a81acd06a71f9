// unsaved_recordings.h - recordings that a program which was killed had not saved, at the next
// start.
#pragma once

#include <memory>
#include <vector>

#include "app/application.h"
#include "audio/recording_file.h"

namespace cantorix {

// Asks of each, the oldest first: those that the user wants back are given, those refused deleted;
// the others are left for the next time. What another program records is not among them.
std::vector<std::unique_ptr<RecordingFile>> OfferUnsavedRecordings(Application& application);

}  // namespace cantorix
