// workers.h - long computations divided among threads.
// A computation is cut into parts of equal length, which the calling thread and as many more as the
// machine can spare take in order; each thread brings its own working memory. Results are written
// to places of their own, so that they do not depend on the number of threads.
#pragma once

#include <cstddef>
#include <functional>
#include <mutex>

#include "platform/progress.h"

namespace cantorix {

// The threads that may compute at one time. All that computes at once shares one of these.
class Workers {
 public:
  // `most` threads in all, at least 1; `busy` of them are at work from the start.
  explicit Workers(int most, int busy = 1) : free_(most - busy) {}

  // Takes one more thread into account; false when there are enough.
  bool Take();
  void Return();

 private:
  std::mutex mutex_;
  int free_;
};

// As many as the machine has processors for this program, at least 1.
int ProcessorCount();

// What is computed at a time: [first, end) of all there is.
struct Part {
  std::size_t first;
  std::size_t end;
};

// Computes one part. Reports through the scope where it is, and may so be abandoned.
using PartWork = std::function<void(const Part& part, ProgressScope& progress)>;

// Computes [0, count) in parts of `partLength` (at least 1). `newWork` is called once in every
// thread that takes part, the calling one first. The calling thread alone reports to `progress`,
// from its own parts, which come in ascending order. No thread is begun when one part is all there
// is, or without `workers`.
// When a part leaves by an exception, the parts before it are finished, those behind it given up,
// and the exception of the earliest one is thrown on.
void ComputeParts(Workers* workers, std::size_t count, std::size_t partLength,
                  ProgressScope& progress, const std::function<PartWork()>& newWork);

}  // namespace cantorix
