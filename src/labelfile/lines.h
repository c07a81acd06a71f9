// lines.h - the lines of a text with their numbers, and the fields of a line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cantorix {

// Lines end at LF, at CR LF and at CR alone.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  // Takes the next line, without its end; false when none is left.
  bool Next(std::string_view& line);
  // Of the line taken last, counted from 1.
  std::size_t number() const { return number_; }

 private:
  std::string_view rest_;
  std::size_t number_ = 0;
};

// Takes the next field, which ends at a blank or tab, off the front of `rest`, and the blanks
// before it. Empty when none is left.
std::string_view TakeField(std::string_view& rest);
// Without blanks and tabs at both ends.
std::string_view Trimmed(std::string_view text);

// "line 12: "0x" is no time" as the error of a label file.
[[noreturn]] void RefuseLine(std::size_t number, const std::string& reason);

// The text with each character for which `isUnfit` holds as a blank.
template <typename IsUnfit>
std::string Blanked(std::string text, IsUnfit isUnfit) {
  for (char& c : text) {
    if (isUnfit(c)) c = ' ';
  }
  return text;
}

}  // namespace cantorix
