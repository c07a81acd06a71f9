// label_list.h - the label list window without its window: its rows, and what it does with the
// selected one. The window asks for new rows whenever labels have changed.
#pragma once

#include <string>
#include <vector>

#include "mainview/sonadex_view.h"

namespace cantorix {

struct LabelListRow {
  int tier = 0;   // slot of the label's tier
  int index = 0;  // among the labels of the tier
  std::string tierName;
  std::string text;
  double timeMs = 0.0;
};

// Changes that the list shows; times follow the time base of the settings.
inline constexpr DocumentChanges kLabelListChanges =
    DocumentChange::kLabels | DocumentChange::kSamples | DocumentChange::kSettings;

// One row per label of the tiers in use, from the top tier down, within a tier in stored order.
std::vector<LabelListRow> LabelListRows(const CSonadexDoc& document);

// Whether the row's label is still where it was.
bool IsUpToDate(CSonadexView& view, const LabelListRow& row);

// Shows the stretch of the zoom option around the row's label.
void ZoomToLabel(CSonadexView& view, const LabelListRow& row);
// The "Label entry" dialog for the row's label, and its deletion. A row whose label is no longer
// where it was is ignored. Throw Abandoned when the undo file could not be begun.
void EditListedLabel(CSonadexView& view, const LabelListRow& row);
void DeleteListedLabel(CSonadexView& view, const LabelListRow& row);

}  // namespace cantorix
