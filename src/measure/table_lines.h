// table_lines.h - the lines of a text file that may be long, one after the other: a block of it is
// held at a time, and the line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace cantorix {

class TableLines {
 public:
  // Throws FileError.
  explicit TableLines(const std::string& path);

  // The next line that is not empty, without its end, good until the next call; lines end at every
  // CR and at every LF. Empty when no line is left. Throws FileError.
  std::string_view Next();

 private:
  bool ReadBlock();

  File file_;
  std::string text_;
  std::size_t at_ = 0;  // in the text
  std::int64_t read_ = 0;
};

}  // namespace cantorix
