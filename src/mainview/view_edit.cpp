// view_edit.cpp - what a scope begins with and tells when it ends.
#include "mainview/view_edit.h"

#include "mainview/editing.h"

namespace cantorix {

ViewEdit::ViewEdit(CSonadexView& view, Playback playback) : view_(view) {
  if (playback == Playback::kStops) view_.StopPlayback();
  ++view_.openEdits_;
}

ViewEdit::ViewEdit(CSonadexView& view, UndoScope scope) : view_(view) {
  view_.StopPlayback();
  SaveUndoFile(view_, scope);
  ++view_.openEdits_;
}

ViewEdit::~ViewEdit() {
  if (--view_.openEdits_ == 0) view_.Tell();
}

}  // namespace cantorix
