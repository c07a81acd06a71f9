// label_moves.h - the current tier and the selected label of a view, and the way from one to the
// next by keys. Both live in LabelEntryState; a tier that is not in use is never current, and a
// label stays selected until labels change or another one is pressed.
#pragma once

#include "mainview/sonadex_view.h"

namespace cantorix {

// The tier chosen last, else the first one in use; -1 while none is.
int CurrentTier(const CSonadexView& view);
// Among the labels of the current tier; -1: none.
int SelectedLabel(const CSonadexView& view);
// Marks a label of a tier as the selected one, and its tier as the current one.
void SelectLabel(CSonadexView& view, int tier, int index);

// The current tier becomes the next one in use, downward with 1 and upward with -1. At the last one
// nothing changes. What is current then is said.
void StepTier(CSonadexView& view, int direction);
// The next label of the current tier in the order of time is selected, in sight, with the marker at
// its time, and said; of labels at one time, the one stored first comes first. Behind the last one
// that is said, and false given.
bool StepLabel(CSonadexView& view, int direction);

// What can be done with the selected label; nothing without one.
void PlaySelectedLabel(CSonadexView& view);
void EditSelectedLabel(CSonadexView& view);  // by the "Label entry" dialog
void DeleteSelectedLabel(CSonadexView& view);

// "words: front at 1234.5 ms", in the time base of the settings.
std::string TextOfLabel(const CSonadexView& view, int tier, const Label& label);

}  // namespace cantorix
