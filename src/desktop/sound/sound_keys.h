// sound_keys.h - the keys that play and stop while a picture has the focus: boxes, buttons and
// dialogs keep theirs, because these are no shortcuts.
#pragma once

#include <QKeyEvent>
#include <optional>

#include "mainview/listening.h"

namespace cantorix {

using SoundAction = void (*)(CSonadexView&);

// What the key does with the view of the picture; nothing for another key.
inline std::optional<SoundAction> SoundKey(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return std::nullopt;
  if (event.key() == Qt::Key_Space) return event.isAutoRepeat() ? [](CSonadexView&) {} : PlayOrStop;
  return std::nullopt;
}

}  // namespace cantorix
