// label_commands.h - labels added, edited, moved, deleted and imported. Every change but an import
// saves the undo file first, marks the document modified and refreshes the label list; an import
// saves the undo file and leaves the modified flag alone. Labels are named by tier and index.
// Functions that save the undo file throw Abandoned when that could not be begun.
#pragma once

#include <string>

#include "mainview/sonadex_view.h"

namespace cantorix {

// Turns label entry mode on or off.
void ToggleLabelEntry(CSonadexView& view);

// Notes the tier under a point and the first of its labels whose box holds the point, if any.
void HitTestLabels(CSonadexView& view, std::int32_t x, std::int32_t y);
// The pressed label's copy follows the pointer.
void DragLabel(CSonadexView& view, std::int32_t x, std::int32_t y);
// The end of a press in label entry mode, with no selection shown: a click on a label asks for its
// new content or to delete it, a dragged label stays where it was dropped, a click on empty tier
// space asks for a new label.
void FinishLabelPress(CSonadexView& view, std::int32_t x, std::int32_t y);

// The box that a label is drawn in, in client pixels.
PixelRect LabelRectangle(CSonadexView& view, const Tier& tier, const Label& label);

void AddLabelToTier(CSonadexView& view, int tier, Label label);
// The old label goes, the edited one comes to the end of its tier.
void EditLabel(CSonadexView& view, int tier, int index, Label edited);
void MoveLabel(CSonadexView& view, int tier, int index, double ms, double verticalPosition);
void DeleteLabel(CSonadexView& view, int tier, int index);
// The "Label entry" dialog for a label that exists: edits or deletes it.
void AskToEditLabel(CSonadexView& view, int tier, int index);

void SetTiers(CSonadexView& view);      // the "Tiers Option" dialog; Cancel changes nothing
void ImportLabels(CSonadexView& view);  // the dialogs, then the file
// Adds the labels of a text file's bytes at the end of a tier.
void ImportLabelLines(CSonadexView& view, int tier, std::string_view bytes,
                      const LabelImportOptions& options);

}  // namespace cantorix
