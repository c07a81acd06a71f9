// picture_keys.cpp - keys compared as the toolkit writes them.
#include "desktop/picture_keys.h"

#include <QKeySequence>

namespace cantorix {
namespace {

// The keypad's keys count as the others, and Tab with Shift as Tab.
QKeySequence SequenceOf(const QKeyEvent& event) {
  int key = event.key();
  if (key == Qt::Key_Backtab) key = Qt::Key_Tab;
  if (key == Qt::Key_Enter) key = Qt::Key_Return;
  return QKeySequence(
      QKeyCombination(event.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(key)));
}

QKeySequence SequenceOf(std::string_view keys) {
  return QKeySequence(QString::fromUtf8(keys.data(), static_cast<qsizetype>(keys.size())));
}

}  // namespace

const PictureKey* PictureKeyOf(const QKeyEvent& event) {
  const QKeySequence pressed = SequenceOf(event);
  for (const PictureKey& row : PictureKeys()) {
    if (SequenceOf(row.keys) == pressed) return &row;
  }
  return nullptr;
}

std::optional<Command> PictureCommandOf(const QKeyEvent& event) {
  const QKeySequence pressed = SequenceOf(event);
  for (const CommandRow& row : CommandTable()) {
    if (row.keyInPicture && SequenceOf(row.accelerator) == pressed) return row.id;
  }
  return std::nullopt;
}

}  // namespace cantorix
