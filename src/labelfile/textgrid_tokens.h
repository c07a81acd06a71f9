// textgrid_tokens.h - Praat's text files as the stream of tokens that they are: numbers, texts in
// quotes and flags that stand free between white space count, every other word is decoration, and
// "!" begins a comment. Lines mean nothing.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace cantorix {

struct TextGridToken {
  enum Kind { kNumber, kText, kFlag, kEnd };
  Kind kind = kEnd;
  double number = 0.0;
  std::string
      text;  // without its quotes, doubled ones undone; line ends become LF. Of a flag: "exists"
};

class TextGridTokens {
 public:
  // Reads the first token. Throws LabelFileError for a number that is none, here and in Take. A
  // text without its closing quote and a broken number at the very end are no tokens: the file is
  // cut.
  explicit TextGridTokens(std::string_view text);

  const TextGridToken& Peek() const { return next_; }
  // Whether nothing is left, not even what is no token.
  bool AtEnd() const { return next_.kind == TextGridToken::kEnd && rest_.empty(); }
  TextGridToken Take();
  // Takes the next token, which must be of this kind; `what` it is for the error's sentence.
  double TakeNumber(std::string_view what);
  std::string TakeText(std::string_view what);
  // The line in which the next token begins, counted from 1.
  std::size_t line() const { return line_; }

 private:
  void Advance();
  bool TakeToken();
  void PassWhiteSpace();
  void PassComment();
  std::string_view TakeWord();
  std::optional<std::string> TakeQuoted();

  std::string_view rest_;
  std::size_t line_ = 1;        // of the next token
  std::size_t cursorLine_ = 1;  // where `rest_` begins
  TextGridToken next_;
};

}  // namespace cantorix
