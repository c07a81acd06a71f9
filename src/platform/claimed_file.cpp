// claimed_file.cpp - the search for a free name.
#include "platform/claimed_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <optional>

#include "platform/descriptor.h"
#include "platform/file_error.h"
#include "platform/leftovers.h"

namespace cantorix {
namespace {

constexpr int kMaxTries = 10000;

// Nothing when somebody else has the name.
std::optional<File> TryClaim(const std::string& path) {
  try {
    File file = File::CreateTemporary(path);
    // Before it was locked, a program that clears leftovers away may have taken it for one.
    if (HasItsName(file)) return file;
  } catch (const FileError& error) {
    if (::faccessat(AT_FDCWD, path.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) != 0) {
      throw FileError(CouldNotBeOpened(path, error.what()));
    }
  }
  return std::nullopt;
}

}  // namespace

File ClaimFile(const std::function<std::string()>& nextPath, Leftover leftover) {
  std::string path;
  for (int tries = 0; tries < kMaxTries; ++tries) {
    path = nextPath();
    std::optional<File> file = TryClaim(path);
    if (!file && leftover == Leftover::kReplaced && RemoveLeftover(AT_FDCWD, path)) {
      file = TryClaim(path);
    }
    if (file) return std::move(*file);
  }
  throw FileError(CouldNotBeOpened(path, "Too many files of this kind are in use."));
}

bool HasItsName(const File& file) {
  return file.isOpen() && NamesFile(AT_FDCWD, file.path(), file.descriptor());
}

void DeleteClaimed(const File& file) noexcept {
  if (HasItsName(file)) ::unlink(file.path().c_str());
}

}  // namespace cantorix
