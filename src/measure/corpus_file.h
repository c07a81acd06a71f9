// corpus_file.h - one recording of a corpus from its file to its rows. A fault of the file is a
// result, not an exception: the others go on.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "measure/corpus_list.h"
#include "measure/corpus_tables.h"
#include "platform/generic_parameters.h"
#include "settings/settings.h"

namespace cantorix {

class Workers;

// What all recordings of a corpus are opened with.
struct CorpusOpening {
  Settings settings;
  std::string programDirectory;  // for the disk stores
  std::optional<int> channel;    // counted from 1
  std::optional<GenericParameters> generic;
  Workers* workers = nullptr;  // of all recordings; null: the caller's thread alone
};

struct CorpusResult {
  std::vector<std::string> rows;  // of each table; none after a failure
  std::string failure;            // one printable line; empty: there is none
};

// Throws Abandoned when `progress` is cancelled, and std::bad_alloc.
CorpusResult MeasureCorpusFile(const CorpusEntry& entry, const CorpusWork& work,
                               const CorpusOpening& opening, Progress& progress);

}  // namespace cantorix
