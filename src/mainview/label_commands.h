// label_commands.h - labels added, edited, moved, deleted and imported. Every change but an import
// saves the undo file first, marks the document modified and refreshes the label list; an import
// saves the undo file and leaves the modified flag alone. Labels are named by tier and index; one
// that does not exist is ignored. Functions that save the undo file throw Abandoned, with nothing
// changed, when that could not be begun.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "mainview/sonadex_view.h"

namespace cantorix {

// Turns label entry mode on or off.
void ToggleLabelEntry(CSonadexView& view);

// Notes the tier under a point and the first of its labels whose box holds the point, if any.
void HitTestLabels(CSonadexView& view, std::int32_t x, std::int32_t y);
// The pressed label's copy follows the pointer.
void DragLabel(CSonadexView& view, std::int32_t x, std::int32_t y);
// The end of a press in label entry mode. A dragged label stays where it was dropped; its index, -1
// when there was none.
int DropDraggedLabel(CSonadexView& view);
// A click on a label asks for its new content or to delete it, one on empty tier space for a new
// label.
void FinishLabelClick(CSonadexView& view, std::int32_t x, std::int32_t y);

void AddLabelToTier(CSonadexView& view, int tier, Label label);
// Several in one edit. The tier comes into use, one without a name as "words".
inline constexpr const char* kFirstTierName = "words";
void AddLabelsToTier(CSonadexView& view, int tier, std::vector<Label> labels);
// The old label goes, the edited one comes to the end of its tier.
void EditLabel(CSonadexView& view, int tier, int index, Label edited);
// The label keeps its place among those of its tier.
void MoveLabel(CSonadexView& view, int tier, int index, double ms, double verticalPosition);
void DeleteLabel(CSonadexView& view, int tier, int index);
// Many in one edit, each named once. Labels keep their places.
struct LabelText {
  int tier = 0;
  int index = 0;
  std::string text;
};
void SetLabelTexts(CSonadexView& view, const std::vector<LabelText>& texts);
void DeleteLabels(CSonadexView& view, const std::vector<LabelText>& labels);
// The "Label entry" dialog for a label that exists: edits or deletes it. For one that would have no
// text the user is asked whether to delete it; a new one without text is not added.
void AskToEditLabel(CSonadexView& view, int tier, int index);
// Whether a text shows nothing.
bool IsBlank(const std::string& text);

// The "Tiers Option" dialog. OK sets names, heights and use of the tiers, stores the names for new
// documents and lays the view out; a document whose tiers changed is modified. Cancel changes
// nothing.
void SetTiers(CSonadexView& view);
// The dialogs, then the file; a file that cannot be read is skipped without a message.
void ImportLabels(CSonadexView& view);
// Adds the labels of a text file's bytes at the end of a tier. Without any the undo file stays as
// it is.
void ImportLabelLines(CSonadexView& view, int tier, std::string_view bytes,
                      const LabelImportOptions& options);

// "Import Label File": options, file, a question when not all of it can be kept, then one edit that
// adds the labels to the tiers of their names. What cannot be read is shown.
void ImportLabelFile(CSonadexView& view);
// "Export Labels": options, the same question, then a file with the labels of the tiers in use.
void ExportLabels(CSonadexView& view);

// The tier or the label at a place; null where there is none.
Tier* FindTier(CSonadexView& view, int tier);
Label* FindLabel(CSonadexView& view, int tier, int index);

}  // namespace cantorix
