// wrong_usage.h - what a user asked a measurement for and cannot be had.
#pragma once

#include <stdexcept>
#include <string>

namespace cantorix {

// The reason in a sentence for one line; options are named as on a command line: "--low".
class WrongUsage : public std::runtime_error {
 public:
  explicit WrongUsage(const std::string& reason) : std::runtime_error(reason) {}
};

}  // namespace cantorix
