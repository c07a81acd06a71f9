// leftover_files.cpp - which names are cleared in which folder.
#include "mainview/leftover_files.h"

#include "document/sample_store.h"
#include "mainview/undo_file.h"
#include "platform/leftovers.h"
#include "platform/save_place.h"

namespace cantorix {

void ClearTemporaryFiles(const std::string& programDirectory,
                         const std::string& temporaryDirectory) {
  RemoveLeftovers(programDirectory, SampleStore::IsStoreName);
  ClearUnfinishedSaves(programDirectory);
  RemoveLeftovers(temporaryDirectory, UndoFile::IsUndoName);
}

void ClearUnfinishedSaves(const std::string& folder) { RemoveLeftovers(folder, IsSiblingName); }

}  // namespace cantorix
