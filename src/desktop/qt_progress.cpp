// qt_progress.cpp - looks at the user every 30 ms, which is often enough for the eye and too seldom
// to slow a run down.
#include "desktop/qt_progress.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

#include "desktop/paint/words.h"

namespace cantorix {
namespace {

constexpr qint64 kLookEveryMs = 30;

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::InputMethod:
      return true;
    default:
      return false;
  }
}

bool IsEscape(const QEvent& event) {
  return event.type() == QEvent::KeyPress &&
         static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

}  // namespace

// The menu bar opens by its mnemonics, and an open menu takes the keys: "Close Status Window" is
// there. Every other command waits for the end of the operation by itself.
bool UsesMenus(const QObject* receiver, QEvent::Type type) {
  switch (type) {
    case QEvent::Shortcut:
      return qobject_cast<const QMenuBar*>(receiver) != nullptr;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return qobject_cast<const QMenu*>(receiver) != nullptr;
    default:
      return false;
  }
}

// Sees every event of the program before its receiver does.
class QtProgress::InputFilter : public QObject {
 public:
  bool pressed = false;

  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (!IsInput(event->type()) || UsesMenus(receiver, event->type())) return false;
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin ||
        IsEscape(*event)) {
      pressed = true;
    }
    // A window that asks to be closed while it waits would otherwise be closed.
    if (event->type() == QEvent::Close) event->ignore();
    return true;
  }
};

QtProgress::QtProgress() : filter_(std::make_unique<InputFilter>()) {}

QtProgress::~QtProgress() = default;

void QtProgress::SetOwner(QWidget* owner) {
  window_.reset();
  owner_ = owner;
}

void QtProgress::Begin(std::string_view text, double totalUnits) {
  if (operations_.empty()) {
    cancelled_ = windowClosed_ = false;
    sinceLook_.start();
  }
  operations_.push_back({Translated(text), totalUnits});
  if (window_ && window_->isVisible()) window_->ShowText(operations_.back().text, totalUnits);
}

bool QtProgress::Step(double doneUnits) {
  if (!operations_.empty() && !cancelled_ && sinceLook_.elapsed() >= kLookEveryMs) Look(doneUnits);
  return cancelled_;
}

void QtProgress::End() {
  if (!operations_.empty()) operations_.pop_back();
  if (!window_) return;
  if (operations_.empty()) {
    window_->hide();
  } else if (window_->isVisible()) {
    window_->ShowText(operations_.back().text, operations_.back().totalUnits);
  }
}

void QtProgress::BeginWait() { QApplication::setOverrideCursor(Qt::WaitCursor); }

void QtProgress::EndWait() { QApplication::restoreOverrideCursor(); }

void QtProgress::CloseWindow() {
  windowClosed_ = true;
  if (window_) window_->hide();
}

void QtProgress::Look(double doneUnits) {
  if (!window_) window_ = std::make_unique<CStatusWindow>(owner_);
  const Operation& operation = operations_.back();
  if (!window_->isVisible() && !windowClosed_) {
    window_->ShowText(operation.text, operation.totalUnits);
  }
  window_->SetDone(doneUnits);
  filter_->pressed = false;
  QCoreApplication::instance()->installEventFilter(filter_.get());
  QCoreApplication::processEvents();
  QCoreApplication::instance()->removeEventFilter(filter_.get());
  cancelled_ = filter_->pressed;
  sinceLook_.restart();
}

}  // namespace cantorix
