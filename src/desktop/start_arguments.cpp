// start_arguments.cpp
#include "desktop/start_arguments.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "desktop/picture_command.h"

namespace cantorix {
namespace {

constexpr const char* kMore =
    "       cantorix [--language LANGUAGE] [FILE...]\n"
    "       cantorix --help | --version\n"
    "\n"
    "Shows, measures, labels and edits recordings of speech. Without FILE it starts with an empty\n"
    "document; texts are in the user's language or in LANGUAGE (en, de). With --picture it draws "
    "one\n"
    "picture of FILE into OUT, without a display.\n"
    "cantorix-batch measures many files from the command line.\n";

}  // namespace

std::optional<std::string> AnswerWithoutWindow(std::span<const std::string> arguments) {
  for (const std::string& argument : arguments) {
    if (argument == "--help" || argument == "-h") {
      return "usage: cantorix [FILE...]\n       " + std::string(kPictureUsage) + kMore;
    }
    if (argument == "--version") return "cantorix " CANTORIX_VERSION "\n";
  }
  return std::nullopt;
}

std::string TakeLanguage(std::vector<std::string>& arguments) {
  const auto option = std::find(arguments.begin(), arguments.end(), "--language");
  if (std::distance(option, arguments.end()) < 2) return {};
  std::string language = std::move(*std::next(option));
  arguments.erase(option, std::next(option, 2));
  return language;
}

}  // namespace cantorix
