// label_commands.h - labels added, edited, moved, deleted and imported. Every change but an import
// saves the undo file first, marks the document modified and refreshes the label list.
#pragma once

#include <string>

#include "mainview/sonadex_view.h"

namespace cantorix {

// Turns label entry mode on or off.
void ToggleLabelEntry(CSonadexView& view);

// The label under a point, as the drawing shows it: notes the tier and the label of the press.
void HitTestLabels(CSonadexView& view, std::int32_t x, std::int32_t y);
// The end of a press in label entry mode, with no selection shown: adds, edits or moves.
void FinishLabelPress(CSonadexView& view, std::int32_t x, std::int32_t y, bool dragged);
// The box that a label is drawn in, in client pixels.
PixelRect LabelRectangle(CSonadexView& view, const Tier& tier, const Label& label);

void AddLabelToTier(CSonadexView& view, int tier, Label label);
void EditLabel(CSonadexView& view, int tier, int index, Label edited);
void MoveLabel(CSonadexView& view, int tier, int index, double ms, double verticalPosition);
void DeleteLabel(CSonadexView& view, int tier, int index);

void SetTiers(CSonadexView& view);      // the "Tiers Option" dialog
void ImportLabels(CSonadexView& view);  // both dialogs, then the file

}  // namespace cantorix
