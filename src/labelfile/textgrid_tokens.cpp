// textgrid_tokens.cpp - one token at a time.
#include "labelfile/textgrid_tokens.h"

#include <algorithm>
#include <utility>

#include "labelfile/label_file.h"
#include "labelfile/lines.h"
#include "labelfile/time_text.h"

namespace cantorix {
namespace {

constexpr std::string_view kWhiteSpace(" \t\r\n\f\v\0", 7);

bool BeginsANumber(char c) { return (c >= '0' && c <= '9') || c == '-' || c == '+'; }

std::size_t LineEndsIn(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool windows = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (text[i] == '\n' || (text[i] == '\r' && !windows)) ++count;
  }
  return count;
}

// CR LF and CR as LF.
std::string WithPlainLineEnds(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool windows = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (!windows) plain += text[i] == '\r' ? '\n' : text[i];
  }
  return plain;
}

}  // namespace

TextGridTokens::TextGridTokens(std::string_view text) : rest_(text) { Advance(); }

TextGridToken TextGridTokens::Take() {
  TextGridToken taken = std::move(next_);
  Advance();
  return taken;
}

double TextGridTokens::TakeNumber(std::string_view what) {
  if (next_.kind != TextGridToken::kNumber) RefuseLine(line_, std::string(what) + " is missing");
  return Take().number;
}

std::string TextGridTokens::TakeText(std::string_view what) {
  if (next_.kind != TextGridToken::kText) RefuseLine(line_, std::string(what) + " is missing");
  return Take().text;
}

void TextGridTokens::PassWhiteSpace() {
  const std::size_t count = std::min(rest_.find_first_not_of(kWhiteSpace), rest_.size());
  cursorLine_ += LineEndsIn(rest_.substr(0, count));
  rest_.remove_prefix(count);
}

void TextGridTokens::PassComment() {
  rest_.remove_prefix(std::min(rest_.find_first_of("\r\n"), rest_.size()));
}

std::string_view TextGridTokens::TakeWord() {
  const std::string_view word = rest_.substr(0, rest_.find_first_of(kWhiteSpace));
  rest_.remove_prefix(word.size());
  return word;
}

// Nothing when the closing quote is missing: the file is cut.
std::optional<std::string> TextGridTokens::TakeQuoted() {
  std::string text;
  rest_.remove_prefix(1);
  for (;;) {
    const std::size_t quote = rest_.find('"');
    if (quote == std::string_view::npos) {
      rest_ = {};
      return std::nullopt;
    }
    text += rest_.substr(0, quote);
    rest_.remove_prefix(quote + 1);
    if (!rest_.starts_with('"')) break;
    text += '"';
    rest_.remove_prefix(1);
  }
  cursorLine_ += LineEndsIn(text);
  return WithPlainLineEnds(text);
}

// False for a word that counts for nothing.
bool TextGridTokens::TakeToken() {
  if (rest_.front() == '"') {
    auto text = TakeQuoted();
    if (text) next_ = {TextGridToken::kText, 0.0, std::move(*text)};
    return text.has_value();
  }
  if (rest_.front() == '!') {
    PassComment();
    return false;
  }
  const std::string_view word = TakeWord();
  if (word.size() > 2 && word.front() == '<' && word.back() == '>') {
    next_ = {TextGridToken::kFlag, 0.0, std::string(word.substr(1, word.size() - 2))};
    return true;
  }
  if (!BeginsANumber(word.front())) return false;
  const auto number = ParseNumber(word);
  if (number) next_ = {TextGridToken::kNumber, *number, {}};
  // A number at the very end may be the rest of one.
  if (!number && !rest_.empty()) RefuseLine(line_, Quoted(word) + " is no number");
  return number.has_value();
}

void TextGridTokens::Advance() {
  next_ = {};
  for (;;) {
    PassWhiteSpace();
    line_ = cursorLine_;
    if (rest_.empty() || TakeToken()) return;
  }
}

}  // namespace cantorix
