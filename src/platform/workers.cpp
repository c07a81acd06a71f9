// workers.cpp - parts handed out in order, and the earliest failure.
#include "platform/workers.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

#include <sched.h>

namespace cantorix {
namespace {

// Parts that are handed out in order until one fails.
class Division {
 public:
  Division(std::size_t count, std::size_t partLength)
      : count_(count), length_(partLength), parts_((count + partLength - 1) / partLength) {}

  // The next part; nothing when there is none or an earlier one has failed.
  bool Next(std::size_t& part) {
    part = next_++;
    return part < limit_ && part < parts_;
  }
  std::size_t left() const { return parts_ - std::min<std::size_t>(next_, parts_); }
  Part Bounds(std::size_t part) const {
    return {part * length_, std::min(count_, (part + 1) * length_)};
  }
  bool IsGivenUp(std::size_t part) const { return part > limit_; }

  void Fail(std::size_t part, std::exception_ptr failure) {
    const std::lock_guard lock(mutex_);
    if (part >= limit_) return;
    limit_ = part;
    failure_ = std::move(failure);
  }
  void ThrowFailure() {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  std::size_t count_, length_, parts_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<std::size_t> limit_ = static_cast<std::size_t>(-1);  // the earliest that failed
  std::mutex mutex_;
  std::exception_ptr failure_;  // of that one
};

// Shows nothing, and ends a part that an earlier one has made useless.
class PartProgress : public NoProgress {
 public:
  explicit PartProgress(const Division& division) : division_(division) {}
  void Enter(std::size_t part) { part_ = part; }
  bool Step(double) override { return division_.IsGivenUp(part_); }

 private:
  const Division& division_;
  std::size_t part_ = 0;
};

void ComputePart(Division& division, std::size_t part, const PartWork& work,
                 ProgressScope& progress) {
  try {
    work(division.Bounds(part), progress);
  } catch (...) {
    division.Fail(part, std::current_exception());
  }
}

// A thread that cannot have its working memory leaves the parts to the others.
void Help(Division& division, const std::function<PartWork()>& newWork) noexcept {
  try {
    const PartWork work = newWork();
    PartProgress quiet(division);
    ProgressScope scope(quiet, {}, 0.0);
    for (std::size_t part = 0; division.Next(part);) {
      quiet.Enter(part);
      ComputePart(division, part, work, scope);
    }
  } catch (...) {
    return;
  }
}

// The threads beside the calling one.
class Helpers {
 public:
  Helpers(Workers* workers, Division& division, const std::function<PartWork()>& newWork)
      : workers_(workers), division_(division), newWork_(newWork) {}

  // One for each part that nobody has taken yet, as far as threads are to be had.
  void Grow() {
    for (std::size_t wanted = division_.left(); wanted > 0; --wanted) {
      if (workers_ == nullptr || !workers_->Take()) return;
      if (!Begin()) {
        workers_->Return();
        workers_ = nullptr;  // the system has no more
      }
    }
  }

 private:
  bool Begin() {
    try {
      threads_.emplace_back([this, workers = workers_] {
        Help(division_, newWork_);
        workers->Return();
      });
      return true;
    } catch (const std::system_error&) {
    } catch (const std::bad_alloc&) {
    }
    return false;
  }

  Workers* workers_;
  Division& division_;
  const std::function<PartWork()>& newWork_;
  std::vector<std::jthread> threads_;  // joined at the end
};

}  // namespace

bool Workers::Take() {
  const std::lock_guard lock(mutex_);
  if (free_ <= 0) return false;
  --free_;
  return true;
}

void Workers::Return() {
  const std::lock_guard lock(mutex_);
  ++free_;
}

int ProcessorCount() {
  cpu_set_t allowed;
  if (sched_getaffinity(0, sizeof allowed, &allowed) == 0) {
    return std::max(CPU_COUNT(&allowed), 1);
  }
  return std::max(static_cast<int>(std::thread::hardware_concurrency()), 1);
}

void ComputeParts(Workers* workers, std::size_t count, std::size_t partLength,
                  ProgressScope& progress, const std::function<PartWork()>& newWork) {
  if (count == 0) return;
  Division division(count, std::max<std::size_t>(partLength, 1));
  const PartWork work = newWork();
  {
    Helpers helpers(workers, division, newWork);
    for (std::size_t part = 0; division.Next(part);) {
      helpers.Grow();
      ComputePart(division, part, work, progress);
    }
  }
  division.ThrowFailure();
}

}  // namespace cantorix
