// carrier.h - what carries a command out, as a column of the tables of commands: one function on
// one of the things that a table knows.
#pragma once

#include <concepts>
#include <variant>

namespace cantorix {

template <typename Type, typename... Types>
concept OneOf = (std::same_as<Type, Types> || ...);

template <typename... Targets>
class Carrier {
 public:
  // A row without a carrier does not compile: there is no default, and a function is never null.
  template <OneOf<Targets...> Target>
  constexpr Carrier(void (&function)(Target&))  // NOLINT(google-explicit-constructor)
      : function_(&function) {}

  template <typename Target>
  constexpr bool IsFor() const {
    return std::holds_alternative<void (*)(Target&)>(function_);
  }
  // Carries the command out when it is one for such a target; false otherwise.
  template <typename Target>
  bool RunOn(Target& target) const {
    if (!IsFor<Target>()) return false;
    std::get<void (*)(Target&)>(function_)(target);
    return true;
  }

 private:
  std::variant<void (*)(Targets&)...> function_;
};

// A member of `Target` with its arguments as the function of a row.
template <typename Target, auto kMember, auto... kArguments>
void Call(Target& target) {
  (target.*kMember)(kArguments...);
}

}  // namespace cantorix
