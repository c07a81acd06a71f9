// unsaved_recordings.h - recordings that a program which was killed had not saved, at the next
// start.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/application.h"
#include "audio/recording_file.h"

namespace cantorix {

// Asks of each, the oldest first: those that the user wants back are given, those refused deleted;
// the others are left for the next time. What another program records is not among them.
// Nor are those of the paths `passedOver`.
std::vector<std::unique_ptr<RecordingFile>> OfferUnsavedRecordings(
    Application& application, const std::vector<std::string>& passedOver = {});

// A stamp "20261121-143005" as "2026-11-21 14:30:05"; as it is when it is no date.
std::string DateOf(const std::string& stamp);

}  // namespace cantorix
