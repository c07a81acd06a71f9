// sample_window.h - reading a recording forward in overlapping pieces with bounded memory: a store
// is asked for large blocks, however short and dense the pieces are.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/sample_source.h"

namespace cantorix {

class SampleWindow {
 public:
  static constexpr std::int64_t kBlockSamples = 65536;  // the longest piece

  // Indices count from the sample `origin` of the recording.
  SampleWindow(const SampleSource& samples, std::int64_t origin)
      : samples_(samples), origin_(origin) {}

  // The samples [first, first + count) as far as they lie in the recording, so the view may be
  // shorter; count <= kBlockSamples. Valid until the next call. Throws FileError.
  std::span<const std::int16_t> View(std::int64_t first, std::int64_t count);

 private:
  const SampleSource& samples_;
  std::int64_t origin_;
  std::int64_t blockStart_ = 0;  // of the recording, as all positions below
  std::span<const std::int16_t> block_;
  std::vector<std::int16_t> scratch_;
};

}  // namespace cantorix
