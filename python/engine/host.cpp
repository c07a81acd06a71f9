// host.cpp - the polls.
#include "host.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace cantorix::python {
namespace {

constexpr auto kBetweenPolls = std::chrono::milliseconds(30);

}  // namespace

void PolledProgress::Start(const py::object* callback) {
  callback_ = callback;
  failure_ = nullptr;
  nextPoll_ = std::chrono::steady_clock::now() + kBetweenPolls;
}

void PolledProgress::Finish() {
  callback_ = nullptr;
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void PolledProgress::Begin(std::string_view text, double totalUnits) {
  // The hint in brackets speaks of a mouse.
  text_ = std::string(text.substr(0, text.find('(')));
  text_.erase(0, text_.find_first_not_of(' '));
  totalUnits_ = totalUnits;
}

bool PolledProgress::Step(double doneUnits) {
  if (failure_) return true;
  if (std::chrono::steady_clock::now() < nextPoll_) return false;
  Poll(doneUnits);
  nextPoll_ = std::chrono::steady_clock::now() + kBetweenPolls;
  return failure_ != nullptr;
}

void PolledProgress::Poll(double doneUnits) {
  const py::gil_scoped_acquire lock;
  try {
    if (PyErr_CheckSignals() != 0) throw py::error_already_set();
    if (callback_ == nullptr || callback_->is_none()) return;
    const double fraction = doneUnits / totalUnits_;
    (*callback_)(text_, std::isfinite(fraction) ? std::clamp(fraction, 0.0, 1.0) : 0.0);
  } catch (...) {
    failure_ = std::current_exception();
  }
}

}  // namespace cantorix::python
