// window_actions.cpp - rows of the table as actions, in groups.
#include "desktop/windows/window_actions.h"

#include <QMenu>
#include <QToolButton>
#include <array>

#include "desktop/paint/words.h"
#include "desktop/tool_icon.h"

namespace cantorix {
namespace {

struct IconRow {
  WindowCommand command;
  const char* name;
};

constexpr std::array kIcons{
    IconRow{WindowCommand::kEnterMarker, "enter_marker"},
    IconRow{WindowCommand::kEnterFormants, "enter_formants"},
    IconRow{WindowCommand::kEnterFormantsAll, "enter_formants_all"},
    IconRow{WindowCommand::kEnterEntireFrame, "enter_frame"},
    IconRow{WindowCommand::kPlayWindow, "play_window"},
    IconRow{WindowCommand::kUpdate, "update"},
    IconRow{WindowCommand::kOptions, "options"},
    IconRow{WindowCommand::kDrawLpc, "draw_lpc"},
    IconRow{WindowCommand::kRelativeLevel, "relative"},
    IconRow{WindowCommand::kDrawFormants, "draw_formants"},
    IconRow{WindowCommand::kDrawAudio, "draw_audio"},
    IconRow{WindowCommand::kDrawIntensity, "intensity"},
    IconRow{WindowCommand::kDrawLabels, "label_entry"},
    IconRow{WindowCommand::kTrackMouse, "link"},
    IconRow{WindowCommand::kFollowView, "follow_view"},
    IconRow{WindowCommand::kFollowMarker, "follow_marker"},
    IconRow{WindowCommand::kSavePicture, "save"},
    IconRow{WindowCommand::kCopyPicture, "copy"},
    IconRow{WindowCommand::kPrint, "print"},
};

QIcon IconOf(WindowCommand command) {
  for (const IconRow& row : kIcons) {
    if (row.command == command) return DrawnIcon(QLatin1String(row.name));
  }
  return {};
}

constexpr int kIconPixels = 18;

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString ToolTip(const WindowCommandRow& row) {
  QString tip = Translated(row.toolTip);
  if (!row.accelerator.empty()) tip += " (" + Text(row.accelerator) + ')';
  return tip;
}

QAction* Separator(QWidget& owner) {
  auto* const separator = new QAction(&owner);
  separator->setSeparator(true);
  return separator;
}

// The toolkit's own menu of actions waits for its end, and a window that is closed meanwhile by a
// key takes that menu with it. This one goes by itself.
void ShowContextMenu(QWidget& owner, const QPoint& at) {
  auto* const menu = new QMenu(&owner);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addActions(owner.actions());
  menu->popup(owner.mapToGlobal(at));
}

// One button for saving, copying and printing the picture.
QMenu* AddOutput(QToolBar& strip) {
  auto* const button = new QToolButton(&strip);
  button->setIcon(DrawnIcon(QStringLiteral("output")));
  button->setText(Tr("Picture"));
  button->setToolTip(Tr("Save, copy or print the picture"));
  button->setPopupMode(QToolButton::InstantPopup);
  auto* const menu = new QMenu(button);
  button->setMenu(menu);
  strip.addWidget(button);
  return menu;
}

}  // namespace

WindowActions::WindowActions(QWidget& owner, AnalysisWindow& model,
                             const std::function<void(WindowCommand)>& perform)
    : model_(model) {
  owner.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&owner, &QWidget::customContextMenuRequested, &owner,
                   [&owner](const QPoint& at) { ShowContextMenu(owner, at); });
  const WindowCommandRow* before = nullptr;
  for (const WindowCommandRow& row : WindowCommands()) {
    if (!Offers(model.kind(), row)) continue;
    if (before != nullptr && before->group != row.group) owner.addAction(Separator(owner));
    auto* const action = new QAction(Translated(row.text), &owner);
    action->setToolTip(ToolTip(row));
    action->setIcon(IconOf(row.id));
    action->setIconVisibleInMenu(false);
    action->setCheckable(row.checkedWith.has_value());
    if (!row.accelerator.empty()) action->setShortcut(QKeySequence(Text(row.accelerator)));
    // The same keys mean the same in each of the windows, so only those of the active one count.
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(action, &QAction::triggered, &owner, [perform, id = row.id] { perform(id); });
    owner.addAction(action);
    entries_.push_back({&row, action});
    before = &row;
  }
}

void WindowActions::Fill(QToolBar& strip) const {
  strip.setToolButtonStyle(Qt::ToolButtonIconOnly);
  strip.setIconSize({kIconPixels, kIconPixels});
  QMenu* const output = AddOutput(strip);
  QAction* const last = strip.actions().constLast();
  const WindowCommandRow* before = nullptr;
  for (const Entry& entry : entries_) {
    if (!entry.row->onStrip) continue;
    if (entry.row->group == WindowGroup::kOutput) {
      output->addAction(entry.action);
      continue;
    }
    if (before != nullptr && before->group != entry.row->group) strip.insertSeparator(last);
    strip.insertAction(last, entry.action);
    before = entry.row;
  }
}

void WindowActions::Refresh() {
  const std::uint32_t conditions = ConditionsOf(model_);
  for (const Entry& entry : entries_) {
    entry.action->setEnabled(IsEnabled(*entry.row, conditions));
    entry.action->setStatusTip(Translated(StatusText(*entry.row, conditions)));
    if (!entry.row->checkedWith) continue;
    const std::int32_t* const value = model_.SwitchOf(*entry.row->checkedWith);
    entry.action->setChecked(value != nullptr && *value != 0);
  }
}

QAction* WindowActions::ActionOf(WindowCommand command) const {
  for (const Entry& entry : entries_) {
    if (entry.row->id == command) return entry.action;
  }
  return nullptr;
}

}  // namespace cantorix
