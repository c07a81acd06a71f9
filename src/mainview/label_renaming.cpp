// label_renaming.cpp - the question, the new texts, one edit.
#include "mainview/label_renaming.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "document/label.h"
#include "mainview/dialog_answers.h"
#include "mainview/label_commands.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

std::vector<LabelListRow> UpToDate(CSonadexView& view, const std::vector<LabelListRow>& rows) {
  std::vector<LabelListRow> there;
  std::copy_if(rows.begin(), rows.end(), std::back_inserter(there),
               [&view](const LabelListRow& row) { return IsUpToDate(view, row); });
  return there;
}

std::string Replaced(const std::string& text, const std::string& what, const std::string& with) {
  if (what.empty()) return with;
  std::string replaced;
  std::size_t from = 0;
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, from)) {
    replaced.append(text, from, at - from).append(with);
    from = at + what.size();
  }
  return replaced.append(text, from);
}

// The labels whose text changes; nothing, with a message, when one of the texts is none.
std::optional<std::vector<LabelText>> Changes(CSonadexView& view,
                                              const std::vector<LabelListRow>& rows,
                                              const std::vector<std::string>& typed) {
  std::vector<LabelText> changes;
  for (const LabelListRow& row : rows) {
    std::string text = Replaced(row.text, typed[0], typed[1]);
    if (text == row.text) continue;
    if (IsBlank(text)) {
      view.prompts().Message("The label '" + row.text + "' would be without text.");
      return std::nullopt;
    }
    if (text.size() > kMaxLabelBytes) {
      view.prompts().Message("The label '" + row.text + "' would have more than 255 bytes.");
      return std::nullopt;
    }
    changes.push_back({row.tier, row.index, std::move(text)});
  }
  return changes;
}

}  // namespace

void RenameListedLabels(CSonadexView& view, const std::vector<LabelListRow>& rows) {
  const std::vector<LabelListRow> there = UpToDate(view, rows);
  if (there.empty()) return;
  const std::string count = std::to_string(there.size());
  TextsQuestion question{"Rename",
                         {{"Replace (nothing: the whole text):", {}}, {"With:", there[0].text}},
                         "In " + count + (there.size() == 1 ? " label" : " labels")};
  for (;;) {
    const auto typed = view.services().dialogs.AskTexts(question);
    if (!typed) return;
    const auto changes = Changes(view, there, *typed);
    for (std::size_t i = 0; i < typed->size(); ++i) question.fields[i].preset = (*typed)[i];
    if (!changes) continue;
    SetLabelTexts(view, *changes);
    return view.Say(std::to_string(changes->size()) + " of " + count + " labels renamed.");
  }
}

void DeleteListedLabels(CSonadexView& view, const std::vector<LabelListRow>& rows) {
  std::vector<LabelText> places;
  for (const LabelListRow& row : UpToDate(view, rows)) places.push_back({row.tier, row.index, {}});
  DeleteLabels(view, places);
}

}  // namespace cantorix
