// ascii_numbers.cpp - tokens, lines and what counts as a number.
#include "document/readers/ascii_numbers.h"

#include <charconv>
#include <span>
#include <string_view>

#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr int kNothing = -1;
// More letters than any number has; the rest of a longer word is passed over.
constexpr std::size_t kMostLetters = 64;

bool IsLineEnd(int c) { return c == '\n' || c == '\r'; }
bool IsBetween(int c) { return c == ' ' || c == '\t' || c == ','; }

// Decimal, with or without sign, fraction and exponent; no "inf", "nan" or hexadecimal.
bool ReadNumber(std::string_view word, double& value) {
  if (word.starts_with('+') && !word.starts_with("+-")) word.remove_prefix(1);
  constexpr std::string_view kFirst = "0123456789.-";
  if (word.empty() || kFirst.find(word.front()) == kFirst.npos || word.starts_with("-i") ||
      word.starts_with("-n")) {
    return false;
  }
  const char* const end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, value);
  if (stop != end) return false;
  // One that is too large or too small for a double is clipped like any other.
  if (error == std::errc::result_out_of_range) value = word.starts_with('-') ? -1e300 : 1e300;
  return error == std::errc() || error == std::errc::result_out_of_range;
}

}  // namespace

AsciiNumbers::AsciiNumbers(const File& file, std::int64_t offset) : file_(file) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";  // of UTF-8, as some editors write it
  std::array<char, kMark.size()> opening{};
  file.ReadSome(offset, std::as_writable_bytes(std::span(opening)));
  const bool isMarked = std::string_view(opening.data(), opening.size()) == kMark;
  SkipHeading(isMarked ? offset + std::ssize(kMark) : offset);
}

void AsciiNumbers::GoTo(std::int64_t offset, std::int64_t line) {
  offset_ = offset;
  line_ = line;
  blockUsed_ = blockSize_ = 0;
}

void AsciiNumbers::SkipHeading(std::int64_t offset) {
  GoTo(offset, 1);
  std::int64_t lineStart = offset;
  std::int64_t lineNumber = 1;
  bool hasNumber = false;
  bool hasWord = false;
  for (;;) {
    const Token token = NextToken();
    if (token == Token::kNumber) hasNumber = true;
    if (token == Token::kWord) hasWord = true;
    if (token != Token::kLineEnd && token != Token::kEnd) continue;
    if (hasNumber && !hasWord) return GoTo(lineStart, lineNumber);
    if (token == Token::kEnd) throw FileError("It holds no numbers.");
    lineStart = offset_;
    lineNumber = line_;
    hasNumber = hasWord = false;
  }
}

// The next byte, which stays the next one; kNothing at the end of the file.
int AsciiNumbers::Peek() {
  if (blockUsed_ == blockSize_) {
    blockUsed_ = 0;
    blockSize_ = file_.ReadSome(offset_, std::as_writable_bytes(std::span(block_)));
    if (blockSize_ == 0) return kNothing;
  }
  return static_cast<unsigned char>(block_[blockUsed_]);
}

AsciiNumbers::Token AsciiNumbers::NextToken() {
  const auto take = [this] {
    ++blockUsed_;
    ++offset_;
  };
  while (IsBetween(Peek())) take();
  int c = Peek();
  if (c == kNothing) return Token::kEnd;
  if (IsLineEnd(c)) {
    if (c == '\n') ++line_;
    take();
    return Token::kLineEnd;
  }
  word_.clear();
  for (; c != kNothing && !IsLineEnd(c) && !IsBetween(c); c = Peek()) {
    if (word_.size() < kMostLetters) word_ += static_cast<char>(c);
    take();
  }
  return ReadNumber(word_, value_) ? Token::kNumber : Token::kWord;
}

bool AsciiNumbers::Next(double& number) {
  for (;;) {
    switch (NextToken()) {
      case Token::kNumber:
        number = value_;
        return true;
      case Token::kWord:
        throw FileError("Line " + std::to_string(line_) + " has \"" + word_ +
                        "\" where a number should stand.");
      case Token::kLineEnd:
        break;
      case Token::kEnd:
        return false;
    }
  }
}

}  // namespace cantorix
