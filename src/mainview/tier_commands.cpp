// tier_commands.cpp - the "Tiers Option" dialog and labels from a text file.
#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "document/label.h"
#include "mainview/dialog_answers.h"
#include "mainview/label_commands.h"
#include "mainview/label_import.h"
#include "mainview/option_commands.h"
#include "mainview/view_edit.h"
#include "platform/bytes.h"
#include "platform/file.h"
#include "platform/file_error.h"
#include "platform/prompts.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

TierSetups SetupsOf(const Tiers& tiers) {
  TierSetups setups;
  for (std::size_t i = 0; i < tiers.size(); ++i) {
    setups[i] = {tiers[i].name, tiers[i].tierWord, tiers[i].inUse};
  }
  return setups;
}

void TakeSetups(CSonadexDoc& document, const TierSetups& setups) {
  for (std::size_t i = 0; i < setups.size(); ++i) {
    Tier& tier = document.channel().tiers[i];
    tier.name = CutText(setups[i].name, kMaxTierNameBytes);
    tier.tierWord = std::max(setups[i].height, 1);
    tier.inUse = setups[i].inUse;
    document.settings.tierNames[i] = CutText(setups[i].name, kFieldTextBytes - 1);
  }
}

// False when the user cancels.
bool AskForTiers(CSonadexView& view) {
  CSonadexDoc& document = view.document();
  const TierSetups before = SetupsOf(document.channel().tiers);
  const auto entered = view.services().dialogs.AskTiers(before);
  if (!entered) return false;
  ViewEdit edit(view, Playback::kGoesOn);
  TakeSetups(document, *entered);
  // Tiers are saved with the recording, so closing it has to ask.
  if (SetupsOf(document.channel().tiers) != before) edit.MarkModified();
  KeepOptions(view, SettingsDialog::kTiers);
  view.Changed(DocumentChange::kLabels);
  return true;
}

std::vector<std::string> NamesInUse(const Tiers& tiers) {
  std::vector<std::string> names;
  for (const Tier& tier : tiers) {
    if (tier.inUse) names.push_back(tier.name);
  }
  return names;
}

// The tier in use with this name, the last one of several; -1 without any.
int TierNamed(const Tiers& tiers, const std::string& name) {
  int found = -1;
  for (int i = 0; i < kTierCount; ++i) {
    const Tier& tier = tiers[static_cast<std::size_t>(i)];
    if (tier.inUse && tier.name == name) found = i;
  }
  return found;
}

std::optional<std::string> ChooseLabelFile(CSonadexView& view) {
  FileRequest request;
  request.title = "Open Label file to import into a tier";
  request.proposedName = "LabelFile";
  request.filter = "Label files (*.TXT)|*.TXT||";
  request.fileMustExist = true;
  const auto choice = view.prompts().ChooseFileToOpen(request);
  return choice ? std::optional(choice->path) : std::nullopt;
}

// Kept: a file that cannot be read adds nothing, as an empty one does, and nothing is said.
std::string BytesOrNothing(const std::string& path) {
  try {
    return ReadWholeFile(path);
  } catch (const FileError&) {
    return {};
  }
}

}  // namespace

void SetTiers(CSonadexView& view) { AskForTiers(view); }

void ImportLabels(CSonadexView& view) {
  CSonadexDoc& document = view.document();
  const Tiers& tiers = document.channel().tiers;
  if (NamesInUse(tiers).empty() && !AskForTiers(view)) return;
  const std::vector<std::string> names = NamesInUse(tiers);
  if (names.empty()) return;

  const auto answer = view.services().dialogs.AskLabelImport(names, document.labelImport);
  if (!answer) return;
  document.labelImport = answer->options;
  const int tier = TierNamed(tiers, answer->tierName);
  if (tier < 0) return;

  const auto path = ChooseLabelFile(view);
  if (path) ImportLabelLines(view, tier, BytesOrNothing(*path), answer->options);
}

void ImportLabelLines(CSonadexView& view, int tier, std::string_view bytes,
                      const LabelImportOptions& options) {
  std::vector<Label> labels = ReadLabelLines(bytes, options);
  if (FindTier(view, tier) == nullptr || labels.empty()) return;
  // Kept: an import does not mark the document modified.
  const ViewEdit edit(view, UndoScope::kFields);
  for (Label& label : labels) view.channel().AddLabel(tier, std::move(label));
  view.Changed(DocumentChange::kLabels);
}

}  // namespace cantorix
