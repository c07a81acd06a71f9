// qt_progress.h - progress of a long operation on the interface thread, with a mouse press or Esc
// as the user's way out. While one runs, windows are painted, the menus can be read with the keys,
// and nothing else that the user does counts.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <memory>
#include <vector>

#include "desktop/status_window.h"
#include "platform/progress.h"

namespace cantorix {

class QtProgress : public Progress {
 public:
  QtProgress();
  ~QtProgress() override;
  QtProgress(const QtProgress&) = delete;
  QtProgress& operator=(const QtProgress&) = delete;

  // The window that the status window stands over; null before there is one, and at its end.
  void SetOwner(QWidget* owner);

  void Begin(std::string_view text, double totalUnits) override;
  bool Step(double doneUnits) override;
  void End() override;
  // The wait cursor.
  void BeginWait() override;
  void EndWait() override;

  // An operation is running, so none may begin from an event.
  bool running() const { return !operations_.empty(); }
  // The status window; null until an operation showed it.
  const CStatusWindow* window() const { return window_.get(); }
  // "Close Status Window": it stays away until the next operation, which goes on meanwhile.
  void CloseWindow();

 private:
  class InputFilter;
  struct Operation {
    QString text;
    double totalUnits = 0.0;
  };

  void Look(double doneUnits);

  std::vector<Operation> operations_;  // the innermost last
  std::unique_ptr<CStatusWindow> window_;
  std::unique_ptr<InputFilter> filter_;
  QWidget* owner_ = nullptr;
  QElapsedTimer sinceLook_;
  bool cancelled_ = false;
  bool windowClosed_ = false;  // by the user, for the operations that run
};

}  // namespace cantorix
