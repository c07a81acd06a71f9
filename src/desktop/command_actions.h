// command_actions.h - the table of commands as actions: the menu bar, the tool bar, and what of
// them is shown, enabled and said for the view in front. Nothing else enables a command.
#pragma once

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "mainview/commands.h"

class QMainWindow;

namespace cantorix {

class CommandActions {
 public:
  struct Callbacks {
    std::function<void(Command)> perform;
    std::function<void(const std::string&)> openRecent;
  };

  // Fills the menu bar of `window` and gives it a tool bar.
  CommandActions(QMainWindow& window, Callbacks callbacks);

  // Brings everything in step with the view in front; null while no document is open.
  void Refresh(const CSonadexView* view);
  void ShowRecentFiles(const std::vector<std::string>& paths);

  QAction& ActionOf(Command command) { return *actions_.at(command); }
  QMenu& MenuOf(Menu menu) { return *menus_.at(menu); }
  QToolBar& toolBar() { return *toolBar_; }
  // Those shown under File; an entry's text begins with its number.
  const std::vector<QAction*>& recentActions() const { return recent_; }

 private:
  void AddRow(const CommandRow& row);
  void FillToolBar();

  QMainWindow& window_;
  Callbacks callbacks_;
  std::map<Menu, QMenu*> menus_;
  std::map<Command, QAction*> actions_;
  std::vector<QAction*> recent_;
  QToolBar* toolBar_;
};

}  // namespace cantorix
