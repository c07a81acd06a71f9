// label_file.cpp - the words that messages about label files share.
#include "labelfile/label_file.h"

#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr std::size_t kShownBytes = 60;

std::string AsSentence(std::string_view reason) {
  std::string sentence(reason);
  sentence += '.';
  const char first = sentence.front();
  if (first >= 'a' && first <= 'z') sentence.front() = static_cast<char>(first - 'a' + 'A');
  return sentence;
}

}  // namespace

LabelFileError::LabelFileError(std::string_view reason) : std::runtime_error(AsSentence(reason)) {}

std::string CountOf(std::size_t count, std::string_view what) {
  return std::to_string(count) + ' ' + std::string(what) + (count == 1 ? "" : "s");
}

std::string Quoted(std::string_view text) {
  const std::string_view shown = CutText(text, kShownBytes);
  return '"' + std::string(shown) + (shown.size() < text.size() ? "..." : "") + '"';
}

}  // namespace cantorix
