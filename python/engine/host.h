// host.h - what a recording finds around it when Python opened it: prompts that keep what is said,
// and progress that lets an interrupt and the caller's callback through.
#pragma once

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <chrono>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "measure/wrong_usage.h"
#include "platform/progress.h"
#include "platform/quiet_prompts.h"

namespace cantorix::python {

namespace py = pybind11;

// Messages are kept; the questions that a file raises are answered by the arguments of open().
class KeptPrompts : public QuietPrompts {
 public:
  std::optional<int> channel;  // counted from 1
  std::optional<GenericParameters> generic;

  void Message(const std::string& text) override { said_.push_back(text); }
  Answer Ask(const std::string& text, Buttons buttons) override;
  // Throws WrongUsage when the argument is missing or names none of the file.
  std::optional<int> ChooseChannel(const std::string& text, int channelCount) override;
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters&,
                                                        GenericPreview&) override {
    return generic;
  }

  // What was said since the last call, one text each.
  std::vector<std::string> TakeSaid();
  // Why a question of the file had no answer; thrown once the file is closed again.
  const std::optional<WrongUsage>& refusal() const { return refusal_; }

 private:
  std::vector<std::string> said_;
  std::optional<WrongUsage> refusal_;
};

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
