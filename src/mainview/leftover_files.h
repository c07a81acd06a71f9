// leftover_files.h - clears away at a start what killed programs left in the folders they used:
// disk stores, undo files and unfinished saves. What a living program holds stays, and so do
// recordings.
#pragma once

#include <string>

namespace cantorix {

// Stores and unfinished saves in the program directory, undo files in `temporaryDirectory`.
void ClearTemporaryFiles(const std::string& programDirectory,
                         const std::string& temporaryDirectory);

// The hidden files of saves that were never finished, beside the files in `folder`.
void ClearUnfinishedSaves(const std::string& folder);

}  // namespace cantorix
