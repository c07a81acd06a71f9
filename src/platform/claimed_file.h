// claimed_file.h - temporary files of which every owner needs one of its own: the first of a row of
// names that nobody else holds. The lock lasts as long as the file is open.
#pragma once

#include <functional>
#include <string>

#include "platform/file.h"

namespace cantorix {

// Asks `nextPath` for names until one of them can be created, or emptied, and locked; a name that
// somebody else holds is passed over. Throws FileError when a file that is not there cannot be made
// and after 10000 names.
File ClaimFile(const std::function<std::string()>& nextPath);

// Whether the name that the file was opened by is still its own: nobody has deleted or replaced it.
bool HasItsName(const File& file);

}  // namespace cantorix
