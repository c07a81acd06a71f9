// labels.h - labels of files and of callers into the tiers of a recording that nobody looks at, and
// out of them. Nothing can be undone.
#pragma once

#include <string>
#include <vector>

#include "document/document.h"
#include "mainview/label_transfer.h"

namespace cantorix {

// The tier for labels named `name`: the last one in use, else the first of that name, which comes
// into use, else the first that is not in use, which gets the name, too. -1 when all are in use.
int TierFor(Tiers& tiers, const std::string& name);

// The labels of a file, in the format with the key `format` or, when that is empty, in the one that
// the file shows. Returns a sentence for each thing that did not come in. Throws FileError for a
// file that cannot be read or holds no labels.
std::vector<std::string> AddLabelsOf(const std::string& path, const std::string& format,
                                     const LabelChoice& choice, CSonadexDoc& document);

}  // namespace cantorix
