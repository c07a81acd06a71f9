// command_run.cpp - where what the user does to a view begins and its failures end.
#include <algorithm>
#include <new>
#include <stdexcept>

#include "mainview/commands.h"
#include "mainview/label_entry_state.h"
#include "platform/abandon.h"
#include "platform/prompts.h"

namespace cantorix {

const CommandRow& RowOf(Command command) {
  const auto table = CommandTable();
  const auto row = std::find_if(table.begin(), table.end(),
                                [command](const CommandRow& other) { return other.id == command; });
  if (row == table.end()) throw std::logic_error("a command without a row");
  return *row;
}

std::string_view MenuText(const CommandRow& row, const CSonadexView* view) {
  const bool leaves =
      row.id == Command::kLabelEntryMode && view != nullptr && view->labelEntry.enabled;
  return leaves ? "Disable Label Entry Mode" : row.text;
}

bool LeavesTypingOpen(const CommandRow& row) {
  switch (row.menu) {
    case Menu::kView:
    case Menu::kZoom:
    case Menu::kHelp:
      return true;
    case Menu::kRecordPlay:
      return row.id != Command::kRecord;
    default:
      return row.id == Command::kNewLabel || row.id == Command::kPhoneticChart;
  }
}

bool RunCommand(CSonadexView& view, Command command) {
  const CommandRow& row = RowOf(command);
  if (row.carrier.IsFor<FrameActions>() || !IsEnabled(row, FactsOf(&view))) return false;
  return Guarded(view, [&] { row.carrier.RunOn(view) || row.carrier.RunOn(view.document()); });
}

namespace {

constexpr const char* kNoMemory = "There is not enough memory.";

// The user is told even when no memory is left for the words.
void Say(Prompts& prompts, const char* text) noexcept {
  try {
    prompts.Message(text);
  } catch (const std::bad_alloc&) {
    prompts.Beep();
  }
}

}  // namespace

void SayOutOfMemory(Prompts& prompts) noexcept { Say(prompts, kNoMemory); }

bool Guarded(CSonadexView& view, const std::function<void()>& action) {
  try {
    action();
    return true;
  } catch (const Abandoned& abandoned) {
    // Else cancelled, or shown where it happened.
    if (abandoned.reason() == AbandonReason::kOutOfMemory) Say(view.prompts(), kNoMemory);
  } catch (const std::bad_alloc&) {
    Say(view.prompts(), kNoMemory);
  } catch (const std::exception& error) {
    // A file that cannot be read, or a fault of ours: either way the documents stay alive.
    Say(view.prompts(), error.what());
  }
  view.Redraw();  // what was given up may have dropped a track
  return false;
}

}  // namespace cantorix
