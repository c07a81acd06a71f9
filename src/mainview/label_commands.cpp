// label_commands.cpp - one change of one label: undo file first, change, mark modified, refresh.
#include "mainview/label_commands.h"

#include <utility>

#include "mainview/editing.h"

namespace cantorix {
namespace {

void BeginLabelEdit(CSonadexView& view) {
  view.StopPlayback();
  SaveUndoFile(view, UndoScope::kFields);
}

void FinishLabelEdit(CSonadexView& view) {
  view.document().SetModified(true);
  view.Changed(DocumentChange::kLabels);
}

void Remove(Tier& tier, int index) { tier.labels.erase(tier.labels.begin() + index); }

}  // namespace

Tier* FindTier(CSonadexView& view, int tier) {
  if (tier < 0 || tier >= kTierCount) return nullptr;
  return &view.channel().tiers[static_cast<std::size_t>(tier)];
}

Label* FindLabel(CSonadexView& view, int tier, int index) {
  Tier* const found = FindTier(view, tier);
  if (found == nullptr || index < 0 || index >= found->labelCount()) return nullptr;
  return &found->labels[static_cast<std::size_t>(index)];
}

void AddLabelToTier(CSonadexView& view, int tier, Label label) {
  if (FindTier(view, tier) == nullptr) return;
  BeginLabelEdit(view);
  view.channel().AddLabel(tier, std::move(label));
  FinishLabelEdit(view);
}

void EditLabel(CSonadexView& view, int tier, int index, Label edited) {
  if (FindLabel(view, tier, index) == nullptr) return;
  BeginLabelEdit(view);
  view.channel().AddLabel(tier, std::move(edited));
  Remove(*FindTier(view, tier), index);
  FinishLabelEdit(view);
}

void MoveLabel(CSonadexView& view, int tier, int index, double ms, double verticalPosition) {
  Label* const label = FindLabel(view, tier, index);
  if (label == nullptr) return;
  BeginLabelEdit(view);
  label->timeMs = ms;
  label->verticalPosition = verticalPosition;
  FinishLabelEdit(view);
}

void DeleteLabel(CSonadexView& view, int tier, int index) {
  if (FindLabel(view, tier, index) == nullptr) return;
  BeginLabelEdit(view);
  Remove(*FindTier(view, tier), index);
  FinishLabelEdit(view);
}

void AskToEditLabel(CSonadexView& view, int tier, int index) {
  const Label* const label = FindLabel(view, tier, index);
  if (label == nullptr) return;
  auto answer = view.services().dialogs.AskLabel(*label, true);
  if (!answer) return;
  if (answer->remove) return DeleteLabel(view, tier, index);
  EditLabel(view, tier, index, std::move(answer->label));
}

}  // namespace cantorix
