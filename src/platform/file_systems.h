// file_systems.h - which file systems are reached through a network, or through another program.
#pragma once

#include <iosfwd>

namespace cantorix {

// Whether the file system of an open file is such a one: each call on it may take for ever.
bool MayKeepWaiting(int descriptor);

// Whether the machine has such a file system anywhere; asks none of them. `mounts` is the kernel's
// table of what is mounted, as in /proc/self/mounts.
bool HasRemoteFileSystem(std::istream& mounts);

}  // namespace cantorix
