// scope_frame.h - the scope window: what comes in at the sound input, as long as it is open.
#pragma once

#include <QElapsedTimer>
#include <QMdiSubWindow>
#include <QTimer>

#include "desktop/sound/scope_view.h"

namespace cantorix {

class CScopeChildFrame : public QMdiSubWindow {
 public:
  // Hears what the desk hears until it is closed. The desk outlives it.
  explicit CScopeChildFrame(SoundDesk& desk);
  ~CScopeChildFrame() override;

  CScopeView& view() { return *view_; }

 private:
  void Advance();

  SoundDesk& desk_;
  CScopeView* view_;
  QElapsedTimer clock_;
  QTimer pictures_;
  int picturesToText_ = 0;  // until the level is shown again
};

}  // namespace cantorix
