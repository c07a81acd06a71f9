// tool_icon.h - the drawn icons of commands, in the colour of the text around them, sharp at every
// size and scale.
#pragma once

#include <QIcon>

#include "mainview/commands.h"

namespace cantorix {

// Null for a command without one.
QIcon IconOf(Command command);

// The drawing `name` of the resources.
QIcon DrawnIcon(const QString& name);

}  // namespace cantorix
