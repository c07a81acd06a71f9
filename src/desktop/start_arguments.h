// start_arguments.h - what the program says of itself without opening a window.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace cantorix {

// The text of --help or --version, whichever comes first; nothing when the program is to start.
std::optional<std::string> AnswerWithoutWindow(std::span<const std::string> arguments);

// Takes "--language de" out of the arguments: "de", empty without it.
std::string TakeLanguage(std::vector<std::string>& arguments);

}  // namespace cantorix
