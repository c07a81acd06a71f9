// printable.h - texts of files and names as they may stand in a line for people and programs.
#pragma once

#include <string>
#include <string_view>

namespace cantorix {

enum class Tabs { kBlanks, kStay };

// `bytes` with a blank for every tab and line end, and "\x1b" for every other control character, so
// that no line breaks and no terminal obeys what a name holds.
std::string Printable(std::string_view bytes, Tabs tabs = Tabs::kBlanks);

}  // namespace cantorix
