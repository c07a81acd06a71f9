// outcome.h - how the work on a file or on a whole run ended, and the usage that is refused.
#pragma once

#include <stdexcept>
#include <string>

namespace cantorix::batch {

// In the order of the exit code's claim: the largest of a run's outcomes decides it.
enum class Outcome {
  kDone = 0,
  kFailed = 1,
  kRefused = 2,  // the command asks for what cannot be
};

// What the user asked for cannot be, with the reason in a sentence for one line.
class WrongUsage : public std::runtime_error {
 public:
  explicit WrongUsage(const std::string& reason) : std::runtime_error(reason) {}
};

}  // namespace cantorix::batch
