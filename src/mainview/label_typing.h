// label_typing.h - labels typed in the view: a label begins with a letter at the cursor, or over
// the selection, in the current tier; it is kept as one edit or dropped without a trace. While no
// tier is in use, the first letter shows "words", which comes into use with the label that is kept.
// The text stands in LabelEntryState::typing; a window draws a field for it and passes keys on.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "mainview/sonadex_view.h"

namespace cantorix {

// Begins a label with that text: at the start of the selection when one is shown, else at the
// cursor, whose marker is shown. Font, colour and justification are those of the tier's last label.
// What is being typed already is kept first.
void BeginTyping(CSonadexView& view, std::string_view text);
// The same without text; for a command.
void BeginNewLabel(CSonadexView& view);
// The selected label, or one at the cursor, is typed over, beginning with its own text. Says so
// when there is none.
void TypeOverLabel(CSonadexView& view);

// The field's text is now this one. False when a label cannot hold it: then the text stays as it
// was, and nothing is kept before it changes.
bool TypeText(CSonadexView& view, std::string_view text);

// What ends the typing. An unchanged or blank text adds nothing. False when the text was refused,
// and the typing goes on. Throws Abandoned, with the typing as it was, when the undo file could not
// be begun.
bool KeepTyping(CSonadexView& view);
// The same; over a selection a label without text, with a line, is set at its end, too.
bool KeepTypingWithEnd(CSonadexView& view);
void DropTyping(CSonadexView& view);
// Labels have changed in another way: nothing is typed or selected any more. Tells nobody.
void ForgetTyping(CSonadexView& view);
// Keeps it, then types over the next label of the tier, if there is one.
void KeepTypingAndStep(CSonadexView& view, int direction);

// The field in client pixels: in the tier, from the label's time on, at least 60 pixels wide and
// inside the time axis, `textWidth` for the text; over a selection as wide as that. Nothing while
// nothing is typed.
std::optional<PixelRect> TypingPlace(CSonadexView& view, std::int32_t textWidth);

// "Type a label for 'words' at 1234.5 ms", or that no tier is in use; empty outside of label entry
// mode.
std::string TypingHint(const CSonadexView& view);

}  // namespace cantorix
