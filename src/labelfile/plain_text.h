// plain_text.h - the lines "Time<tab>Label" of a plain text file of labels, the unit of whose times
// only the user knows.
#pragma once

#include <functional>
#include <string_view>

namespace cantorix {

struct PlainLine {
  std::string_view time;
  std::string_view text;  // everything after the line's first TAB; it may be empty
};

// Gives `take` each line that holds a label. A UTF-8 mark at the start is skipped. Lines end at
// every CR and every LF. A line is ignored unless it begins with a digit or a point and has fewer
// than 1000 bytes.
void ForEachPlainLine(std::string_view bytes, const std::function<void(const PlainLine&)>& take);

// The decimal number that a time begins with, 0 without one; it may be infinite. Hexadecimal ones
// are none.
double LeadingTime(std::string_view time);

}  // namespace cantorix
