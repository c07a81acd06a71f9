// save_place.h - where a save goes: the folder, the file in it, and the sibling written first.
// Everything is done relative to the opened folder, so a change of the current directory or a
// renamed folder cannot lead a save astray, and a long path leaves room for the sibling's name.
// safe_file.cpp puts these pieces into their order.
#pragma once

#include <string>
#include <string_view>

#include "platform/descriptor.h"

namespace cantorix {

struct SavePlace {
  Descriptor folder;
  std::string name;  // of the target in the folder; never a symbolic link when it was looked at
};

// Follows the symbolic links of `path` to the file that will be replaced, which need not exist.
// Throws FileError when its folder cannot be reached or it is there and not a regular file.
SavePlace FindSavePlace(const std::string& path);

// Opens the target for writing, unchanged, and locks it; not open when there is none. Throws
// FileError when it cannot be written or another program holds it.
Descriptor LockTarget(const SavePlace& place);

// The hidden name under which the target's next content is written. It depends on the target's
// name alone: there is one sibling per target, and one that a killed program left behind is
// cleared away by the next save of the same file.
std::string SiblingName(const std::string& targetName);
bool IsSiblingName(std::string_view name);

// Creates the sibling, empty, readable and writable here, and locks it. `mode` goes through the
// umask. Not open, with errno set, when the folder does not allow a new file. Throws FileError when
// another program is writing the same target.
Descriptor CreateSibling(const SavePlace& place, const std::string& siblingName, unsigned mode);

// Gives `to` the owner, group, access list and mode of `from`, as far as this user may. Rights of a
// group that cannot be kept are cut down to those of everybody.
void CopyOwnershipAndMode(int from, int to);

}  // namespace cantorix
