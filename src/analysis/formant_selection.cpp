// formant_selection.cpp - half a hertz is added first, then the bandwidth decides.
#include "analysis/formant_selection.h"

#include <algorithm>

namespace cantorix {

SelectedFormants SelectFormants(const FormantList& candidates) {
  SelectedFormants selected;
  // Kept: a dropped candidate is not replaced by the sixth, so F1 to F5 stay within the range where
  // the first five were looked for.
  const auto looked =
      std::min<std::size_t>(static_cast<std::size_t>(candidates.candidates), kFormants);
  for (std::size_t i = 0; i < looked; ++i) {
    // Kept: the half stays in both values; tables of earlier measurements hold it.
    const Formant formant{candidates.frequencyHz[i] + 0.5, candidates.bandwidthHz[i] + 0.5};
    if (formant.frequencyHz >= 2.0 * formant.bandwidthHz) {
      selected.formants[selected.count++] = formant;
    }
  }
  return selected;
}

}  // namespace cantorix
