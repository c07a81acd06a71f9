// operations.h - what a user does that may fail: each operation with its world, prepared before a
// fault is armed and taken down after it was.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace cantorix::faults {

// The state of one whose parts may be either way.
inline constexpr const char* kInParts = "in parts";

// One try of an operation, in a folder of its own.
class Attempt {
 public:
  virtual ~Attempt() = default;
  // Does it; true when it says that it is done. What leaves it is a fault.
  virtual bool Do() = 0;
  // All that the user has from it, or had before.
  virtual std::string State() = 0;
  // How often it told the user something, and what last.
  virtual int told() const = 0;
  virtual std::string lastText() const = 0;
};

struct Operation {
  std::string name;
  // The folder exists, is empty, and ends with a separator.
  std::function<std::unique_ptr<Attempt>(const std::string& folder)> prepare;
  bool isSilent = false;           // its caller tells of a failure, or nobody by design
  bool freesWithoutMemory = true;  // else no allocation of it is refused
  bool inSample = true;            // of all operations
  // For one that may end the whole program with exit code 1 for want of memory: what is wrong with
  // what it leaves in the folder then; empty: nothing.
  std::function<std::string(const std::string& folder)> wrongAfterEnd{};
};

std::vector<Operation> Operations();

}  // namespace cantorix::faults
