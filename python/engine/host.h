// host.h - the progress of a recording that Python opened: it lets an interrupt and the caller's
// callback through.
#pragma once

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <chrono>
#include <exception>
#include <string>

#include "platform/progress.h"

namespace cantorix::python {

namespace py = pybind11;

// Looks at the signals every few hundredths of a second, with the lock of the interpreter for that
// moment. An exception that comes of it, or of the callback, cancels the work and is kept.
class PolledProgress : public Progress {
 public:
  // For one piece of work. `callback(text, fraction)` or None; the caller keeps it alive.
  void Start(const py::object* callback);
  // Throws what cancelled the work, if anything did.
  void Finish();

  void Begin(std::string_view text, double totalUnits) override;
  bool Step(double doneUnits) override;
  void End() override {}
  bool Cancelled() override { return failure_ != nullptr; }

 private:
  void Poll(double doneUnits);

  const py::object* callback_ = nullptr;
  std::exception_ptr failure_;
  std::string text_;
  double totalUnits_ = 0.0;
  std::chrono::steady_clock::time_point nextPoll_;
};

}  // namespace cantorix::python
