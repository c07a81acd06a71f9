// folder_sync_failure.h - for the length of a scope, no folder can be synced to disk; files can.
#pragma once

namespace cantorix {

class FolderSyncFailure {
 public:
  FolderSyncFailure();
  ~FolderSyncFailure();
  FolderSyncFailure(const FolderSyncFailure&) = delete;
  FolderSyncFailure& operator=(const FolderSyncFailure&) = delete;
};

}  // namespace cantorix
