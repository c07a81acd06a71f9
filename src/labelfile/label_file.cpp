// label_file.cpp - the words that messages about label files share.
#include "labelfile/label_file.h"

#include <utility>

#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr std::size_t kShownBytes = 60;

std::string AsSentence(std::string reason) {
  if (!reason.empty() && reason[0] >= 'a' && reason[0] <= 'z') {
    reason[0] = static_cast<char>(reason[0] - 'a' + 'A');
  }
  return reason + '.';
}

}  // namespace

LabelFileError::LabelFileError(std::string reason)
    : std::runtime_error(AsSentence(std::move(reason))) {}

std::string CountOf(std::size_t count, std::string_view what) {
  return std::to_string(count) + ' ' + std::string(what) + (count == 1 ? "" : "s");
}

std::string Quoted(std::string_view text) {
  const std::string_view shown = CutText(text, kShownBytes);
  return '"' + std::string(shown) + (shown.size() < text.size() ? "..." : "") + '"';
}

}  // namespace cantorix
