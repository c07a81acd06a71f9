// text.h - 8-bit texts of files, which keep their bytes: cut into lines, and as text that can be
// shown.
#pragma once

#include <string>
#include <string_view>

namespace cantorix {

// Whether `bytes` are well-formed UTF-8 (no surrogates, no overlong forms).
bool IsUtf8(std::string_view bytes);

// `bytes` themselves when they are well-formed UTF-8, else read as Windows-1252.
std::string ToUtf8(std::string_view bytes);

// Takes the next line that is not empty off the front of `rest`, without its end; lines end at
// every CR and at every LF. Empty when no line is left.
std::string_view TakeLine(std::string_view& rest);

// A cell of a table of texts: in quotes, with quotes in it doubled, where it holds the separator, a
// quote or a line end.
std::string TableCell(std::string_view text, char separator);

}  // namespace cantorix
