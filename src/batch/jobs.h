// jobs.h - the threads that work on a recording each, and the stock of threads that these share for
// their computations.
#pragma once

#include <functional>

#include "platform/workers.h"

namespace cantorix::batch {

struct Request;

class Jobs {
 public:
  // `count` recordings at one time, at least 1; as many threads as `request` asks for, or as there
  // are processors, but never fewer than recordings.
  Jobs(const Request& request, int count);

  // Calls `loop`, which does not throw, in as many threads as there are recordings at one time, one
  // of them the calling one, and returns when the last has ended. Who finds nothing left to do
  // leaves its thread to the computations of the others.
  void Run(const std::function<void()>& loop);

  Workers& workers() { return workers_; }

 private:
  int count_;
  Workers workers_;
};

}  // namespace cantorix::batch
