// command_conditions.cpp - the facts that enable commands.
#include <array>

#include "mainview/clipboard.h"
#include "mainview/commands.h"
#include "mainview/label_moves.h"

namespace cantorix {
namespace {

// A fact in words, and what to do where it does not hold. An empty name: not worth telling.
struct FactName {
  Facts fact;
  std::string_view name;
  std::string_view remedy;
};

constexpr std::string_view kOpenFirst = "open a recording first";
constexpr std::string_view kRecordingRuns = "a recording runs";

constexpr std::array kFactNames{
    FactName{fact::kDocument, "", kOpenFirst},
    FactName{fact::kIdle, "", kRecordingRuns},
    FactName{fact::kLoaded, "loaded", kOpenFirst},
    FactName{fact::kZoomed, "zoomed", "the whole recording is in sight"},
    FactName{fact::kMarker, "marker", "click to set the cursor first"},
    FactName{fact::kSelection, "selection", "select a stretch first"},
    FactName{fact::kDocumentSelection, "selection to save", "select a stretch first"},
    FactName{fact::kModified, "modified", "nothing has changed"},
    FactName{fact::kUndo, "undo", "there is no edit to take back"},
    FactName{fact::kClipboard, "clipboard", "cut or copy a stretch first"},
    FactName{fact::kLogOpen, "log open", "open a log first"},
    FactName{fact::kRecordAllowed, "no recording runs", kRecordingRuns},
    FactName{fact::kLabel, "label", "click a label first"},
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
    if ((facts & entry.fact) == 0U || entry.name.empty()) continue;
    if (!names.empty()) names += ", ";
    names += entry.name;
  }
  return names;
}

std::string StatusText(const CommandRow& row, Facts facts) {
  std::string text(row.status);
  for (const FactName& entry : kFactNames) {
    if ((row.needs & ~facts & entry.fact) == 0U) continue;
    return text + " (" + std::string(entry.remedy) + ')';
  }
  return text;
}

}  // namespace cantorix
