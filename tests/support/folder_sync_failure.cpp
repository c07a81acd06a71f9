// folder_sync_failure.cpp - stands in for the C library's call in the programs that use the scope.
#include "support/folder_sync_failure.h"

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace {

bool foldersFail = false;

}  // namespace

extern "C" int fsync(int descriptor) {
  struct stat status {};
  if (foldersFail && ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode)) {
    errno = EIO;
    return -1;
  }
  return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

namespace cantorix {

FolderSyncFailure::FolderSyncFailure() { foldersFail = true; }
FolderSyncFailure::~FolderSyncFailure() { foldersFail = false; }

}  // namespace cantorix
