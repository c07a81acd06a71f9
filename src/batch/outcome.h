// outcome.h - how the work on a file or on a whole run ended.
#pragma once

#include "measure/wrong_usage.h"

namespace cantorix::batch {

// In the order of the exit code's claim: the largest of a run's outcomes decides it.
enum class Outcome {
  kDone = 0,
  kFailed = 1,
  kRefused = 2,  // the command asks for what cannot be
};

}  // namespace cantorix::batch
