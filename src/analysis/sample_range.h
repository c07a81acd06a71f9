// sample_range.h - a stretch of a recording in samples, as the views hold it: doubles, the start
// included and the end not.
#pragma once

namespace cantorix {

struct SampleRange {
  double start = 0.0;
  double end = 0.0;

  double length() const { return end - start; }
  bool operator==(const SampleRange&) const = default;
};

}  // namespace cantorix
