// desk_window.h - a window in the area of the documents. It tells the places that the program gives
// it from those that its user chooses; only these are kept between runs.
#pragma once

#include <QMdiSubWindow>
#include <functional>
#include <optional>

#include "settings/application_settings.h"

namespace cantorix {

// The entry "Close" of its menu takes Ctrl+F4; no entry takes another key, such as the Ctrl+W of
// the zoom commands.
void CloseByItsOwnKey(QMdiSubWindow& window);

class DeskWindow : public QMdiSubWindow {
 public:
  // Moves the window without making it the user's choice. It gets no smaller than it can be.
  void Give(const QRect& place);
  // Leaves that many pixels free on the right of what the window shows.
  virtual void KeepFree(int /*pixels*/) {}
  // Whether it lies in one place with the other window over time, to which it then leads.
  virtual void SharePlace(bool /*shares*/) {}
  // No place is the user's choice any more: the next window takes its usual one.
  void ForgetChosenPlace() { placement_ = {}; }
  // Whether it still lies where it was given last.
  bool LiesAsGiven() const { return given_ && geometry() == *given_; }

  // The user has moved or sized the window.
  std::function<void()> chosen;

 protected:
  // `placement` is kept up to date with the user's choices and outlives the window.
  explicit DeskWindow(WindowPlacement& placement);

  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Follow();

  WindowPlacement& placement_;
  std::optional<QRect> given_;
  bool isGiving_ = false;
};

}  // namespace cantorix
