// label_entry_state.h - what a view knows of labels beside those of the recording: by the mouse,
// between the press and the release of a button, by keys, and while one is typed.
#pragma once

#include <optional>
#include <string>

#include "document/label.h"

namespace cantorix {

// A label between its first letter and its end.
struct LabelTyping {
  int tier = 0;
  int index = -1;               // of the label that is typed over; -1: a new one
  Label label;                  // as it will be kept
  std::string before;           // its text, of one that is typed over
  std::optional<double> endMs;  // of the selection that it is typed over
  bool takesTier = false;       // the tier comes into use with it
  bool namesTier = false;       // and gets its name
  std::string refusal;          // why the text last typed is no text of a label
};

struct LabelEntryState {
  bool enabled = false;
  int currentTier = -1;    // the tier under the last press; -1: none
  int pressedLabel = -1;   // its label under the press; -1: none
  Label label;             // a copy of that label, moved along while it is dragged
  int chosenTier = -1;     // the tier that labels are typed into and stepped through
  int selectedLabel = -1;  // of the chosen tier; -1: none
  std::optional<LabelTyping> typing;
  std::optional<double> snapMs;  // what a dragged label has snapped to
};

}  // namespace cantorix
