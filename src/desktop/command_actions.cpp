// command_actions.cpp - rows of the table as actions in menus and tool bar.
#include "desktop/command_actions.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QStatusTipEvent>
#include <filesystem>
#include <utility>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "desktop/tool_bar_names.h"
#include "desktop/tool_icon.h"

namespace cantorix {
namespace {

constexpr int kToolGroups = 7;

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QList<QKeySequence> KeysOf(const CommandRow& row) {
  QList<QKeySequence> keys;
  if (!row.accelerator.empty()) keys << QKeySequence(Text(row.accelerator));
  for (const QString& other : Text(row.otherKeys).split(' ', Qt::SkipEmptyParts)) {
    keys << QKeySequence(other);
  }
  return keys;
}

// Menus tell the status of what can be chosen; this tells that of greyed entries, too.
class GreyedStatus : public QObject {
 public:
  explicit GreyedStatus(QMainWindow& window) : QObject(&window), window_(window) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const menu = qobject_cast<QMenu*>(watched);
    if (menu != nullptr && event->type() == QEvent::Hide) Tell({});
    if (menu == nullptr || event->type() != QEvent::MouseMove) return false;
    const QAction* const action = menu->actionAt(static_cast<QMouseEvent*>(event)->pos());
    if (action != nullptr && !action->isEnabled()) Tell(action->statusTip());
    return false;
  }

 private:
  void Tell(const QString& text) {
    QStatusTipEvent tip(text);
    QCoreApplication::sendEvent(&window_, &tip);
  }

  QMainWindow& window_;
};

// Without a document a menu shows what needs none.
bool IsShown(const CommandRow& row, const CSonadexView* view) {
  return view != nullptr || row.needs == 0U;
}

// A line stands only between buttons that are shown, as the first and the last always are; a menu
// sees to that by itself.
void ShowLinesBetweenButtons(const QToolBar& toolBar) {
  QAction* line = nullptr;
  for (QAction* const action : toolBar.actions()) {
    if (!action->isSeparator() && !action->isVisible()) continue;
    if (line != nullptr) line->setVisible(!action->isSeparator());
    line = action->isSeparator() ? action : nullptr;
  }
}

}  // namespace

CommandActions::CommandActions(QMainWindow& window, Callbacks callbacks)
    : window_(window), callbacks_(std::move(callbacks)) {
  auto* const status = new GreyedStatus(window);
  for (int i = 0; i < static_cast<int>(Menu::kNone); ++i) {
    const auto menu = static_cast<Menu>(i);
    menus_[menu] = window.menuBar()->addMenu(Text(MenuTitle(menu)));
    menus_[menu]->installEventFilter(status);
  }
  for (const CommandRow& row : CommandTable()) AddRow(row);
  toolBar_ = window.addToolBar(QStringLiteral("Toolbar"));
  FillToolBar();
}

void CommandActions::AddRow(const CommandRow& row) {
  auto* const action = new QAction(Translated(row.text), &window_);
  action->setIcon(IconOf(row.id));
  action->setIconVisibleInMenu(false);
  action->setToolTip(Translated(row.toolTip));
  action->setShortcuts(KeysOf(row));
  // A picture looks its keys up by itself; the menu only names them.
  if (row.keyInPicture) action->setShortcutContext(Qt::WidgetShortcut);
  // A menu that has a place of its own for an entry may not move it to another one.
  action->setMenuRole(QAction::NoRole);
  QObject::connect(action, &QAction::triggered, &window_,
                   [this, id = row.id] { callbacks_.perform(id); });
  actions_[row.id] = action;
  // So that its accelerator works while its menu is hidden.
  window_.addAction(action);
  if (row.menu == Menu::kNone) return;
  QMenu* const menu = menus_[row.menu];
  if (row.separator) menu->addSeparator();
  menu->addAction(action);
}

void CommandActions::FillToolBar() {
  toolBar_->setObjectName(QStringLiteral("toolBar"));
  NameExtension(*toolBar_);
  toolBar_->setAllowedAreas(Qt::AllToolBarAreas);
  toolBar_->setIconSize(QSize(22, 22));
  for (int group = 1; group <= kToolGroups; ++group) {
    if (group > 1) toolBar_->addSeparator();
    for (const CommandRow& row : CommandTable()) {
      if (row.toolGroup == group) toolBar_->addAction(actions_[row.id]);
    }
  }
}

void CommandActions::Refresh(const CSonadexView* view) {
  const Facts facts = FactsOf(view);
  std::map<Menu, bool> hasEntry;
  for (const CommandRow& row : CommandTable()) {
    QAction* const action = actions_[row.id];
    action->setText(Translated(MenuText(row, view)));
    action->setEnabled(IsEnabled(row, facts));
    action->setStatusTip(Translated(StatusText(row, facts)));
    if (row.id == Command::kRecentFiles || row.menu == Menu::kNone) continue;
    action->setVisible(IsShown(row, view));
    hasEntry[row.menu] = hasEntry[row.menu] || IsShown(row, view);
  }
  for (const auto& [menu, entry] : menus_) entry->menuAction()->setVisible(hasEntry[menu]);
  ShowLinesBetweenButtons(*toolBar_);
}

void CommandActions::ShowRecentFiles(const std::vector<std::string>& paths) {
  // One of them may be the one whose click leads here.
  for (QAction* const action : recent_) {
    menus_[Menu::kFile]->removeAction(action);
    action->deleteLater();
  }
  recent_.clear();
  QAction* const place = actions_[Command::kRecentFiles];
  place->setVisible(paths.empty());
  for (const std::string& path : paths) {
    const QString name = ShownPath(std::filesystem::path(path).filename().string());
    auto* const action = new QAction(&window_);
    action->setText(
        QStringLiteral("&%1 %2").arg(recent_.size() + 1).arg(QString(name).replace('&', "&&")));
    action->setStatusTip(ShownPath(path));
    QObject::connect(action, &QAction::triggered, &window_,
                     [this, path] { callbacks_.openRecent(path); });
    menus_[Menu::kFile]->insertAction(place, action);
    recent_.push_back(action);
  }
}

}  // namespace cantorix
