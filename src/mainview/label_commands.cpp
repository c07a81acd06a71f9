// label_commands.cpp - one change of one label.
#include "mainview/label_commands.h"

#include <algorithm>
#include <utility>

#include "document/label.h"
#include "mainview/dialog_answers.h"
#include "mainview/tiers_rollback.h"
#include "mainview/view_edit.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr const char* kDeleteBlank = "A label without text cannot be seen.\nDelete it ?";

// An edit of labels: all of it, or nothing.
class LabelEdit : public ViewEdit {
 public:
  explicit LabelEdit(CSonadexView& view)
      : ViewEdit(view, UndoScope::kFields), view_(view), rollback_(view.channel()) {}
  ~LabelEdit() {
    if (rollback_.isLeftByException()) return;
    MarkModified();
    view_.Changed(DocumentChange::kLabels);
  }
  LabelEdit(const LabelEdit&) = delete;
  LabelEdit& operator=(const LabelEdit&) = delete;

 private:
  CSonadexView& view_;
  const TiersRollback rollback_;
};

void Remove(Tier& tier, int index) { tier.labels.erase(tier.labels.begin() + index); }

void RemoveAll(Tier& tier, std::vector<int> indices) {
  std::sort(indices.begin(), indices.end());
  auto next = indices.begin();
  int index = 0;
  std::erase_if(tier.labels, [&](const Label&) {
    const bool goes = next != indices.end() && *next == index;
    if (goes) ++next;
    ++index;
    return goes;
  });
}

}  // namespace

bool IsBlank(const std::string& text) { return text.find_first_not_of(" \t") == std::string::npos; }

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
  const LabelEdit edit(view);
  view.channel().AddLabel(tier, std::move(label));
}

void AddLabelsToTier(CSonadexView& view, int tier, std::vector<Label> labels) {
  Tier* const target = FindTier(view, tier);
  if (target == nullptr) return;
  const LabelEdit edit(view);
  target->inUse = true;
  if (target->name.empty()) target->name = kFirstTierName;
  for (Label& label : labels) view.channel().AddLabel(tier, std::move(label));
}

void EditLabel(CSonadexView& view, int tier, int index, Label edited) {
  if (FindLabel(view, tier, index) == nullptr) return;
  const LabelEdit edit(view);
  view.channel().AddLabel(tier, std::move(edited));
  Remove(*FindTier(view, tier), index);
}

void MoveLabel(CSonadexView& view, int tier, int index, double ms, double verticalPosition) {
  Label* const label = FindLabel(view, tier, index);
  if (label == nullptr) return;
  const LabelEdit edit(view);
  label->timeMs = ms;
  label->verticalPosition = verticalPosition;
}

void DeleteLabel(CSonadexView& view, int tier, int index) {
  if (FindLabel(view, tier, index) == nullptr) return;
  const LabelEdit edit(view);
  Remove(*FindTier(view, tier), index);
}

void SetLabelTexts(CSonadexView& view, const std::vector<LabelText>& texts) {
  if (texts.empty()) return;
  const LabelEdit edit(view);
  for (const LabelText& text : texts) {
    Label* const label = FindLabel(view, text.tier, text.index);
    if (label != nullptr) label->text = text.text;
  }
}

void DeleteLabels(CSonadexView& view, const std::vector<LabelText>& labels) {
  if (labels.empty()) return;
  const LabelEdit edit(view);
  for (int tier = 0; tier < kTierCount; ++tier) {
    std::vector<int> gone;
    for (const LabelText& label : labels) {
      if (label.tier == tier) gone.push_back(label.index);
    }
    RemoveAll(*FindTier(view, tier), std::move(gone));
  }
}

void AskToEditLabel(CSonadexView& view, int tier, int index) {
  const Label* const label = FindLabel(view, tier, index);
  if (label == nullptr) return;
  auto answer = view.services().dialogs.AskLabel(*label, true);
  if (!answer) return;
  const bool blank = IsBlank(answer->label.text);
  if (!answer->remove && blank &&
      view.prompts().Ask(kDeleteBlank, Buttons::kOkCancel) != Answer::kOk) {
    return;
  }
  if (answer->remove || blank) return DeleteLabel(view, tier, index);
  EditLabel(view, tier, index, std::move(answer->label));
}

}  // namespace cantorix
