// picture_keys.cpp - one long table: a row for each key.
#include "mainview/picture_keys.h"

#include <array>

#include "mainview/cursor_moves.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_typing.h"

namespace cantorix {
namespace {

constexpr int kLeft = -1;
constexpr int kRight = 1;

template <CursorStep kStep, int kDirection>
void Step(CSonadexView& view) {
  StepMarker(view, kStep, kDirection);
}

template <CursorStep kStep, int kDirection>
void Extend(CSonadexView& view) {
  StepSelection(view, kStep, kDirection);
}

template <CursorGoal kGoal>
void MoveTo(CSonadexView& view) {
  MoveMarkerTo(view, kGoal);
}

template <CursorGoal kGoal>
void ExtendTo(CSonadexView& view) {
  ExtendSelectionTo(view, kGoal);
}

void TypeInEntryMode(CSonadexView& view) {
  if (view.labelEntry.enabled) TypeOverLabel(view);
}

// clang-format off
constexpr std::array kRows{
    PictureKey{"Ctrl+Left", "Cursor one pixel to the left", Step<CursorStep::kPixel, kLeft>},
    PictureKey{"Ctrl+Right", "Cursor one pixel to the right", Step<CursorStep::kPixel, kRight>},
    PictureKey{"Alt+Left", "Cursor to the sample before", Step<CursorStep::kSample, kLeft>},
    PictureKey{"Alt+Right", "Cursor to the next sample", Step<CursorStep::kSample, kRight>},
    PictureKey{"Shift+Left", "Extend the selection by ten pixels to the left",
               Extend<CursorStep::kTenPixels, kLeft>},
    PictureKey{"Shift+Right", "Extend the selection by ten pixels to the right",
               Extend<CursorStep::kTenPixels, kRight>},
    PictureKey{"Ctrl+Shift+Left", "Extend the selection by one pixel to the left",
               Extend<CursorStep::kPixel, kLeft>},
    PictureKey{"Ctrl+Shift+Right", "Extend the selection by one pixel to the right",
               Extend<CursorStep::kPixel, kRight>},
    PictureKey{"Alt+Shift+Left", "Extend the selection by one sample to the left",
               Extend<CursorStep::kSample, kLeft>},
    PictureKey{"Alt+Shift+Right", "Extend the selection by one sample to the right",
               Extend<CursorStep::kSample, kRight>},
    PictureKey{"Home", "Cursor to the start of the visible stretch",
               MoveTo<CursorGoal::kStretchStart>},
    PictureKey{"End", "Cursor to the end of the visible stretch", MoveTo<CursorGoal::kStretchEnd>},
    PictureKey{"Ctrl+Home", "Cursor to the start of the recording", MoveTo<CursorGoal::kStart>},
    PictureKey{"Ctrl+End", "Cursor to the end of the recording", MoveTo<CursorGoal::kEnd>},
    PictureKey{"Shift+Home", "Extend the selection to the start of the visible stretch",
               ExtendTo<CursorGoal::kStretchStart>},
    PictureKey{"Shift+End", "Extend the selection to the end of the visible stretch",
               ExtendTo<CursorGoal::kStretchEnd>},
    PictureKey{"Ctrl+Shift+Home", "Extend the selection to the start of the recording",
               ExtendTo<CursorGoal::kStart>},
    PictureKey{"Ctrl+Shift+End", "Extend the selection to the end of the recording",
               ExtendTo<CursorGoal::kEnd>},
    PictureKey{"Return", "In label entry mode: type over the label at the cursor", TypeInEntryMode},
    PictureKey{"Esc", "Give up a drag, end what sounds, leave label entry mode, drop the selection: "
                      "the first that applies", StepBack},
};
// clang-format on

}  // namespace

std::span<const PictureKey> PictureKeys() { return kRows; }

}  // namespace cantorix
