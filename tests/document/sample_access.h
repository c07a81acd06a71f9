// sample_access.h - all samples of a document, for comparison.
#pragma once

#include <cstdint>
#include <vector>

#include "document/document.h"

namespace cantorix {

inline std::vector<std::int16_t> SamplesOf(const CSonadexDoc& document) {
  std::vector<std::int16_t> samples(static_cast<std::size_t>(document.Samples().length()));
  document.Samples().Read(0, samples);
  return samples;
}

}  // namespace cantorix
