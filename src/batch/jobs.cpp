// jobs.cpp - one loop in several threads.
#include "batch/jobs.h"

#include <algorithm>
#include <thread>
#include <vector>

#include "batch/request.h"

namespace cantorix::batch {
namespace {

int MostThreads(const Request& request, int count) {
  const int wanted = request.threads > 0 ? request.threads : ProcessorCount();
  return std::max(wanted, count);
}

}  // namespace

Jobs::Jobs(const Request& request, int count)
    : count_(count), workers_(MostThreads(request, count), count) {}

void Jobs::Run(const std::function<void()>& loop) {
  const auto work = [&] {
    loop();
    workers_.Return();
  };
  std::vector<std::jthread> others;
  for (int i = 1; i < count_; ++i) others.emplace_back(work);
  work();
}

}  // namespace cantorix::batch
