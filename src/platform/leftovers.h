// leftovers.h - what killed programs left behind: temporary files and folders that nobody holds a
// lock on. A temporary file is locked as long as its owner lives, so one that can be locked has no
// owner any more. Where the file system has no locks, nothing counts as left behind.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/descriptor.h"

namespace cantorix {

// Deletes the regular file `name` of this user in the open `folder` (or AT_FDCWD) when nobody holds
// it; a symbolic link is never followed. False when it stays.
bool RemoveLeftover(int folder, const std::string& name);

// The names in a folder, "." and ".." among them; none when it cannot be listed.
std::vector<std::string> NamesInFolder(const std::string& folder);

// Removes so every file in `folder` whose name `isTemporary` takes for one of the program's own. A
// folder that cannot be listed is left as it is.
void RemoveLeftovers(const std::string& folder, bool (*isTemporary)(std::string_view name));

// A folder of this program alone in the host's place for temporary files, locked while it lives
// and deleted with all it holds.
class PrivateFolder {
 public:
  // Makes `<prefix>XXXXXX` with a part of its own, and deletes those that killed programs left
  // under the same prefix. Throws FileError.
  explicit PrivateFolder(const std::string& prefix);
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
  Descriptor lock_;
};

// Whether `text` is `prefix`, then any number of decimal digits.
bool IsNumberedName(std::string_view text, std::string_view prefix);

}  // namespace cantorix
