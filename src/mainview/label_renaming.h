// label_renaming.h - many labels of the list changed in one edit.
#pragma once

#include <vector>

#include "mainview/label_list.h"

namespace cantorix {

// Asks what to replace with what in the texts of the rows, an empty "what" for the whole text, and
// says how many labels have changed. A text that a label cannot hold, or that shows nothing, is
// answered with a message, and the question stays. Rows whose label is no longer where it was are
// passed over. Throw Abandoned when the undo file could not be begun.
void RenameListedLabels(CSonadexView& view, const std::vector<LabelListRow>& rows);
void DeleteListedLabels(CSonadexView& view, const std::vector<LabelListRow>& rows);

}  // namespace cantorix
