// picture_keys.h - a key that came to a picture, looked up in the tables of keys and commands.
#pragma once

#include <QKeyEvent>
#include <optional>

#include "mainview/commands.h"
#include "mainview/picture_keys.h"

namespace cantorix {

// The row of the key; null for another one.
const PictureKey* PictureKeyOf(const QKeyEvent& event);
// The command whose accelerator counts in pictures alone; nothing for another key.
std::optional<Command> PictureCommandOf(const QKeyEvent& event);

}  // namespace cantorix
