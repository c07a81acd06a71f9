// command_conditions.cpp - the facts that enable commands.
#include <array>

#include "mainview/clipboard.h"
#include "mainview/commands.h"
#include "mainview/label_moves.h"

namespace cantorix {
namespace {

struct FactName {
  Facts fact;
  std::string_view name;
};

constexpr std::array kFactNames{
    FactName{fact::kLoaded, "loaded"},
    FactName{fact::kZoomed, "zoomed"},
    FactName{fact::kMarker, "marker"},
    FactName{fact::kSelection, "selection"},
    FactName{fact::kDocumentSelection, "selection to save"},
    FactName{fact::kModified, "modified"},
    FactName{fact::kUndo, "undo"},
    FactName{fact::kClipboard, "clipboard"},
    FactName{fact::kLogOpen, "log open"},
    FactName{fact::kRecordAllowed, "no recording runs"},
    FactName{fact::kLabel, "label"},
};

Facts When(bool holds, Facts fact) { return holds ? fact : 0U; }

}  // namespace

Facts FactsOf(const CSonadexView* view) {
  if (view == nullptr) return 0U;
  const CSonadexDoc& document = view->document();
  const ViewServices& services = view->services();
  const SoundState sound = services.sound.Sound();
  return fact::kDocument | When(!sound.recordingHere, fact::kIdle) |
         When(document.loaded, fact::kLoaded) | When(view->zoomed(), fact::kZoomed) |
         When(view->markerSet(), fact::kMarker) | When(view->selectionShown(), fact::kSelection) |
         When(document.hasSelection, fact::kDocumentSelection) |
         When(document.isModified(), fact::kModified) | When(view->undoAvailable, fact::kUndo) |
         When(services.clipboard.clipboardFull, fact::kClipboard) |
         When(services.openLog && services.openLog() != nullptr, fact::kLogOpen) |
         When(!sound.recording, fact::kRecordAllowed) |
         When(SelectedLabel(*view) >= 0, fact::kLabel);
}

bool IsEnabled(const CommandRow& row, Facts facts) { return (row.needs & ~facts) == 0U; }

std::string FactNames(Facts facts) {
  std::string names;
  for (const FactName& entry : kFactNames) {
    if ((facts & entry.fact) == 0U) continue;
    if (!names.empty()) names += ", ";
    names += entry.name;
  }
  return names;
}

}  // namespace cantorix
