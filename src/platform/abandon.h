// abandon.h - the one exception that ends an operation without a message of its own.
// Cancel and lack of memory throw it, and so does a failure that was already shown. It is caught
// where a command or an open begins; what was half done is given back by scope on the way.
#pragma once

#include <exception>

namespace cantorix {

enum class AbandonReason {
  kCancelled,    // the user stopped a long operation or a dialog
  kOutOfMemory,  // a block could not be had
  kFailed,       // a failure that the user has been told about, or that shows nothing by design
};

class Abandoned : public std::exception {
 public:
  explicit Abandoned(AbandonReason reason) : reason_(reason) {}
  AbandonReason reason() const { return reason_; }
  const char* what() const noexcept override { return "operation abandoned"; }

 private:
  AbandonReason reason_;
};

}  // namespace cantorix
