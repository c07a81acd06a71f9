// sample_source.cpp - reading with zeros outside the recording.
#include "platform/sample_source.h"

#include <algorithm>

namespace cantorix {

void SampleSource::Read(std::int64_t start, std::span<std::int16_t> out) const {
  std::fill(out.begin(), out.end(), std::int16_t{0});
  const std::int64_t end = start + static_cast<std::int64_t>(out.size());
  const std::int64_t first = std::max<std::int64_t>(start, 0);
  const std::int64_t last = std::min(end, length());
  if (first >= last) return;
  std::vector<std::int16_t> scratch;
  const auto view = View(first, last - first, scratch);
  std::copy(view.begin(), view.end(), out.begin() + (first - start));
}

}  // namespace cantorix
