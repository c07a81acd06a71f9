// environment_variable.h - a variable of the environment, set or taken away for a scope.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace cantorix {

class EnvironmentVariable {
 public:
  // Null takes it away.
  EnvironmentVariable(const char* name, const char* value) : name_(name) {
    if (const char* const old = std::getenv(name)) old_ = old;
    Set(value);
  }
  ~EnvironmentVariable() { Set(old_ ? old_->c_str() : nullptr); }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

 private:
  void Set(const char* value) {
    if (value == nullptr) {
      ::unsetenv(name_);
    } else {
      ::setenv(name_, value, 1);
    }
  }

  const char* name_;
  std::optional<std::string> old_;
};

}  // namespace cantorix
