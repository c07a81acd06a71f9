// claimed_file.cpp
#include "platform/claimed_file.h"

#include <fcntl.h>

#include <filesystem>

#include "platform/descriptor.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr int kMaxTries = 10000;

}  // namespace

File ClaimFile(const std::function<std::string()>& nextPath) {
  for (int tries = 1;; ++tries) {
    const std::string path = nextPath();
    try {
      File file = File::Create(path);
      // The owner of an earlier file may have deleted it between our opening and our locking.
      if (HasItsName(file) || tries == kMaxTries) return file;
    } catch (const FileError& error) {
      std::error_code ignored;
      if (tries == kMaxTries || !std::filesystem::exists(path, ignored)) {
        throw FileError(CouldNotBeOpened(path, error.what()));
      }
    }
  }
}

bool HasItsName(const File& file) {
  return file.isOpen() && NamesFile(AT_FDCWD, file.path(), file.descriptor());
}

}  // namespace cantorix
