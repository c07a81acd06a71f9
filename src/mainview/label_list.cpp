// label_list.cpp - rows tier by tier; one that no longer fits its label does nothing.
#include "mainview/label_list.h"

#include "document/label.h"
#include "mainview/label_commands.h"
#include "mainview/view_commands.h"

namespace cantorix {

bool IsUpToDate(CSonadexView& view, const LabelListRow& row) {
  const Label* const label = FindLabel(view, row.tier, row.index);
  return label != nullptr && label->text == row.text && label->timeMs == row.timeMs;
}

std::vector<LabelListRow> LabelListRows(const CSonadexDoc& document) {
  std::vector<LabelListRow> rows;
  for (int tier = 0; tier < kTierCount; ++tier) {
    const Tier& slot = document.channel().tiers[static_cast<std::size_t>(tier)];
    if (!slot.inUse) continue;
    for (int index = 0; index < slot.labelCount(); ++index) {
      const Label& label = slot.labels[static_cast<std::size_t>(index)];
      rows.push_back({tier, index, slot.name, label.text, label.timeMs});
    }
  }
  return rows;
}

void ZoomToLabel(CSonadexView& view, const LabelListRow& row) { ZoomViewToTime(view, row.timeMs); }

void EditListedLabel(CSonadexView& view, const LabelListRow& row) {
  if (IsUpToDate(view, row)) AskToEditLabel(view, row.tier, row.index);
}

void DeleteListedLabel(CSonadexView& view, const LabelListRow& row) {
  if (IsUpToDate(view, row)) DeleteLabel(view, row.tier, row.index);
}

}  // namespace cantorix
