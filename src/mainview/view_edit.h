// view_edit.h - one thing that is done to a view, as a scope. It begins with the end of a playback
// and, for an edit, with the undo file; inside it everything that changes is noted with the view;
// on leaving, the document is marked modified and the window and the other views are told once.
// Scopes may stand inside one another: the outermost one tells. One that is left by an exception
// tells what has changed until then.
#pragma once

#include "mainview/sonadex_view.h"

namespace cantorix {

enum class Playback { kStops, kGoesOn };

class ViewEdit {
 public:
  ViewEdit(CSonadexView& view, Playback playback);
  // An edit: stops playback and saves the undo file for it. Throws Abandoned, with nothing changed,
  // when that file cannot be created or the user cancels.
  ViewEdit(CSonadexView& view, UndoScope scope);
  ~ViewEdit();
  ViewEdit(const ViewEdit&) = delete;
  ViewEdit& operator=(const ViewEdit&) = delete;

  // The document differs from its file.
  void MarkModified() { view_.untold_.modified = true; }
  // The user's own pointer did it.
  void ByPointer(const PointerEvent& event) { view_.untold_.notice.pointer = event; }
  // Tells what was noted so far: something long begins, during which the window is drawn.
  void TellNow() { view_.Tell(); }

 private:
  CSonadexView& view_;
};

}  // namespace cantorix
