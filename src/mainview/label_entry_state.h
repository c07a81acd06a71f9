// label_entry_state.h - label entry by the mouse, between the press and the release of a button.
#pragma once

#include "document/label.h"

namespace cantorix {

struct LabelEntryState {
  bool enabled = false;
  int currentTier = -1;   // the tier under the last press; -1: none
  int pressedLabel = -1;  // its label under the press; -1: none
  Label label;            // a copy of that label, moved along while it is dragged
};

}  // namespace cantorix
