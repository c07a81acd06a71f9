// label_field.cpp - a line without a frame of its own, and the keys that end it.
#include "desktop/label_field.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

#include "desktop/paint/paint_style.h"
#include "desktop/qt_text.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_typing.h"
#include "mainview/phonetic_signs.h"

namespace cantorix {
namespace {

constexpr int kFrame = 2;  // pixels

bool EditsText(int key) {
  return key == Qt::Key_A || key == Qt::Key_C || key == Qt::Key_V || key == Qt::Key_X ||
         key == Qt::Key_Z;
}

// Commands that a label begun by accident must not set off.
bool IsSwallowed(int key) {
  return key == Qt::Key_K || key == Qt::Key_T || key == Qt::Key_I || key == Qt::Key_J;
}

bool IsControlled(const QKeyEvent& event) { return event.modifiers() == Qt::ControlModifier; }

bool IsLetter(int key) { return key >= Qt::Key_A && key <= Qt::Key_Z; }

// A menu or another program in front: the user comes back.
bool ComesBack(Qt::FocusReason reason) {
  return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
         reason == Qt::ActiveWindowFocusReason;
}

}  // namespace

LabelField::LabelField(Pass pass, std::function<bool()> pairs, QWidget* picture)
    : QLineEdit(picture), pass_(std::move(pass)), pairs_(std::move(pairs)) {
  setFrame(false);
  setAccessibleName(QStringLiteral("Label"));
  setContextMenuPolicy(Qt::NoContextMenu);
  hide();
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { Take(text); });
}

// The two letters before the cursor become a sign, as an edit that can be undone.
bool LabelField::TakesPair(const QString& text) {
  const bool typed = text.size() == length_ + 1;
  length_ = text.size();
  if (!typed || !pairs_()) return false;
  const std::string before = Typed(text.left(cursorPosition()));
  const auto with = WithSign(before, before.size());
  if (!with) return false;
  constexpr int kKeys = 2;
  const QString sign = Shown(with->text).mid(cursorPosition() - kKeys);
  setSelection(cursorPosition() - kKeys, kKeys);
  insert(sign);
  return true;
}

void LabelField::Take(const QString& text) {
  if (TakesPair(text)) return;
  pass_([&](CSonadexView& view) { TypeText(view, Typed(text)); });
}

void LabelField::LetGo() { ending_ = true; }

void LabelField::Follow(CSonadexView& view) {
  const auto& typing = view.labelEntry.typing;
  if (!typing) {
    if (isHidden()) return;
    const QScopedValueRollback ending(ending_, true);
    const bool focused = hasFocus();
    hide();
    if (focused) parentWidget()->setFocus();
    return;
  }
  if (typing->label.text != Typed(text())) {
    // A letter that was refused goes; one that began the label stands before the cursor.
    const bool shrinks = typing->label.text.size() < Typed(text()).size();
    const int cursor = cursorPosition();
    setText(Shown(typing->label.text));
    if (shrinks) setCursorPosition(std::min<int>(cursor, static_cast<int>(text().size())));
  }
  length_ = text().size();
  ShowLooks(view);
  const auto place = TypingPlace(view, fontMetrics().horizontalAdvance(text()));
  if (place) {
    setGeometry(place->left, place->top, place->right - place->left, place->bottom - place->top);
  }
  if (!isHidden()) return;
  show();
  setFocus();
  if (typing->index >= 0) selectAll();
}

void LabelField::ShowLooks(const CSonadexView& view) {
  const LabelTyping& typing = *view.labelEntry.typing;
  const PaintStyle style = StyleFor(parentWidget()->palette());
  const QColor edge = typing.refusal.empty() ? style.selectionEdge : style.error;
  setFont(FontOf(typing.label.font));
  const QString sheet =
      QStringLiteral(
          "QLineEdit { border: %1px solid %2; background: %3; color: %4; padding: 0px; }")
          .arg(kFrame)
          .arg(edge.name(), style.pane.name(), style.text.name());
  if (sheet != styleSheet()) setStyleSheet(sheet);
  setAccessibleDescription(Shown(typing.refusal));
}

// Letters are text here; the other accelerators stay those of the commands.
bool LabelField::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (IsControlled(key) && IsLetter(key.key())) {
      event->setAccepted(EditsText(key.key()) || IsSwallowed(key.key()));
      return event->isAccepted();
    }
  }
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
      keyPressEvent(static_cast<QKeyEvent*>(event));
      return true;
    }
  }
  return QLineEdit::event(event);
}

void LabelField::keyPressEvent(QKeyEvent* event) {
  const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return pass_(
          [shift](CSonadexView& view) { shift ? KeepTypingWithEnd(view) : KeepTyping(view); });
    case Qt::Key_Escape:
      return pass_(DropTyping);
    case Qt::Key_Tab:
      return pass_([shift](CSonadexView& view) { KeepTypingAndStep(view, shift ? -1 : 1); });
    case Qt::Key_Backtab:
      return pass_([](CSonadexView& view) { KeepTypingAndStep(view, -1); });
    default:
      break;
  }
  if (IsControlled(*event) && IsSwallowed(event->key())) return event->accept();
  QLineEdit::keyPressEvent(event);
}

// Whoever clicks elsewhere keeps the label; one that was refused stays open.
void LabelField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (ending_ || ComesBack(event->reason())) return;
  pass_([](CSonadexView& view) { KeepTyping(view); });
  if (!isHidden())
    QMetaObject::invokeMethod(
        this, [this] { setFocus(); }, Qt::QueuedConnection);
}

}  // namespace cantorix
