// sample_changes.h - the arithmetic of the edits that change samples where they stand.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "platform/sample_source.h"

namespace cantorix {

// What becomes of each of the 65536 sample values: moved by the whole part of `reference`, then
// multiplied by gainPercent x 0.01 + 1.
class GainTable {
 public:
  GainTable(double gainPercent, double reference);
  std::int16_t operator[](std::int16_t sample) const {
    return results_[static_cast<std::uint16_t>(sample)];
  }
  void Apply(std::span<std::int16_t> samples) const;

 private:
  std::array<std::int16_t, 65536> results_;
};

// Makes every sample the mean of three, toward zero, one block after the other from the first
// sample on; the first and the last sample of the recording stay.
class Smoother {
 public:
  // `source` holds the samples behind each block as they were.
  explicit Smoother(const SampleSource& source) : source_(source) {}
  void Apply(std::int64_t position, std::span<std::int16_t> block);

 private:
  const SampleSource& source_;
  std::int16_t before_ = 0;
};

// The low 16 bits. Kept: a result beyond them wraps around instead of being clipped.
std::int16_t Low16(std::int64_t value);

}  // namespace cantorix
