// context_commands.h - the commands of the context menu of the main view, by what is under the
// pointer. They are the rows of the menu bar, with the same conditions.
#pragma once

#include <cstdint>
#include <vector>

#include "mainview/commands.h"

namespace cantorix {

// Groups of commands for a client pixel, in the order of the menu: those of the selection where it
// lies there, of the label and the tier there, of the pane there. The label becomes the selected
// one, its tier the current one.
std::vector<std::vector<Command>> ContextCommands(CSonadexView& view, std::int32_t x,
                                                  std::int32_t y);

// Where the menu stands that is asked for by a key: at the selected label, in the middle of the
// visible part of the selection, or at the cursor.
struct PixelPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
};
PixelPoint ContextPoint(CSonadexView& view);

}  // namespace cantorix
