// ascii_numbers.h - the numbers of a text file: one to a line, or several apart by blanks, tabs or
// commas. Lines before the first one of nothing but numbers are a heading.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/file.h"

namespace cantorix {

class AsciiNumbers {
 public:
  // From the first line of numbers at or behind `offset`. `file` outlives the numbers. Throws
  // FileError when there is none or the file cannot be read.
  AsciiNumbers(const File& file, std::int64_t offset);

  // The next number; false at the end. Throws FileError, naming the line, at a word that is none.
  bool Next(double& number);
  // Bytes of the file that were looked at.
  std::int64_t position() const { return offset_; }

 private:
  enum class Token { kNumber, kWord, kLineEnd, kEnd };

  void SkipHeading(std::int64_t offset);
  void GoTo(std::int64_t offset, std::int64_t line);
  int Peek();
  Token NextToken();

  const File& file_;
  std::int64_t offset_ = 0;
  std::int64_t line_ = 1;
  std::array<char, 16384> block_{};
  std::size_t blockUsed_ = 0;
  std::size_t blockSize_ = 0;
  std::string word_;
  double value_ = 0.0;
};

}  // namespace cantorix
