// formant_selection.h - which candidates of a frame are its formants F1, F2, ...
// Relies on the candidates of formants.h. The windows that show formants share the rule.
#pragma once

#include <array>
#include <cstddef>

#include "analysis/formants.h"

namespace cantorix {

inline constexpr std::size_t kFormants = 5;

struct SelectedFormants {
  std::size_t count = 0;
  std::array<Formant, kFormants> formants{};  // the first `count` are in use

  std::span<const Formant> kept() const { return std::span(formants).first(count); }
};

// Takes the first five candidates, adds 0.5 Hz to the frequency and to the bandwidth of each, and
// keeps those whose frequency is then at least twice their bandwidth, in order.
SelectedFormants SelectFormants(const FormantList& candidates);

}  // namespace cantorix
