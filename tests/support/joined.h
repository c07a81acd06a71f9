// joined.h - values as one line of text, so that one comparison shows a whole state.
#pragma once

#include <sstream>
#include <string>

namespace cantorix {

// With blanks between them, numbers with ten digits.
template <typename First, typename... Rest>
std::string Joined(const First& first, const Rest&... rest) {
  std::ostringstream text;
  text.precision(10);
  text << first;
  ((text << ' ' << rest), ...);
  return text.str();
}

// What `text` makes of each element.
template <typename Range, typename Text>
std::string JoinedEach(const Range& range, const Text& text) {
  std::string all;
  for (const auto& element : range) all += (all.empty() ? "" : " ") + Joined(text(element));
  return all;
}

}  // namespace cantorix
