// start_arguments.cpp
#include "desktop/start_arguments.h"

#include "desktop/picture_command.h"

namespace cantorix {
namespace {

constexpr const char* kMore =
    "       cantorix --help | --version\n"
    "\n"
    "Shows, measures, labels and edits recordings of speech. Without FILE it starts with an empty\n"
    "document; with --picture it draws one picture of FILE into OUT, without a display.\n"
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

}  // namespace cantorix
