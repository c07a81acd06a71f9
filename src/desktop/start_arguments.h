// start_arguments.h - what the program says of itself without opening a window.
#pragma once

#include <optional>
#include <span>
#include <string>

namespace cantorix {

// The text of --help or --version, whichever comes first; nothing when the program is to start.
std::optional<std::string> AnswerWithoutWindow(std::span<const std::string> arguments);

}  // namespace cantorix
