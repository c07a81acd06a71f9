// window_actions.h - the commands of an analysis window as actions: its tool strip, its context
// menu, and what of them is enabled and checked for the window's state.
#pragma once

#include <QAction>
#include <QToolBar>
#include <QWidget>
#include <functional>
#include <vector>

#include "analysisview/window_commands.h"

namespace cantorix {

class WindowActions {
 public:
  // The actions belong to `owner`, whose context menu and accelerators they become.
  WindowActions(QWidget& owner, AnalysisWindow& model,
                const std::function<void(WindowCommand)>& perform);

  // Adds buttons with drawings, grouped by kind of command, the last with a menu for the output.
  void Fill(QToolBar& strip) const;
  // Brings everything in step with the model.
  void Refresh();

  // Null when the window has no such command.
  QAction* ActionOf(WindowCommand command) const;

 private:
  struct Entry {
    const WindowCommandRow* row;
    QAction* action;
  };
  AnalysisWindow& model_;
  std::vector<Entry> entries_;
};

}  // namespace cantorix
