// claimed_file.h - temporary files of which every owner needs one of its own: the first of a row of
// names that nobody else has. Such a file is new, for this user alone, and locked as long as it is
// open; no link or file that stood there before is ever opened for writing.
#pragma once

#include <functional>
#include <string>

#include "platform/file.h"

namespace cantorix {

// What becomes of a file that a killed program left under one of the names.
enum class Leftover {
  kReplaced,
  kKept,  // it may hold what somebody wants back: its name is passed over
};

// Asks `nextPath` for names until one of them can be created and locked; a name that somebody else
// has is passed over. Throws FileError when a file that is not there cannot be made and after 10000
// names.
File ClaimFile(const std::function<std::string()>& nextPath, Leftover leftover);

// Whether the name that the file was opened by is still its own: nobody has deleted or replaced it.
bool HasItsName(const File& file);

// Deletes a claimed file at the end of its life, unless its name has become another's.
void DeleteClaimed(const File& file) noexcept;

}  // namespace cantorix
