// sound_samples.h - samples that tell their place.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "support/eventually.h"
#include "support/temporary_folder.h"

namespace cantorix {

// Sample number k of every test recording: never 0, and different from its neighbours.
inline std::int16_t SampleAt(std::int64_t k) {
  const auto mixed = static_cast<std::uint64_t>(k) * 2654435761U;
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(mixed >> 13) | 1U);
}

inline std::vector<std::int16_t> SamplesFrom(std::int64_t first, std::size_t count) {
  std::vector<std::int16_t> samples(count);
  for (std::size_t i = 0; i < count; ++i) {
    samples[i] = SampleAt(first + static_cast<std::int64_t>(i));
  }
  return samples;
}

// What a file of raw samples holds.
inline std::vector<std::int16_t> SamplesOf(const std::string& path) {
  const auto bytes = ReadBytes(path);
  std::vector<std::int16_t> samples(bytes.size() / 2);
  if (!samples.empty()) std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
  return samples;
}

}  // namespace cantorix
