// level_tap.h - a second way out of the sound input, for pictures: the last moments of sound, which
// come every few milliseconds where the buffers of a recording take a third of a second each. Sound
// that nobody fetches is dropped.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "audio/sample_ring.h"

namespace cantorix {

class LevelTap {
 public:
  // Holds one second.
  explicit LevelTap(std::uint32_t rateHz) : ring_(rateHz) {}

  // From the audio callback; what finds no room is dropped.
  void Put(std::span<const std::int16_t> samples) { ring_.Write(samples); }

  // Fills `out` from its beginning and gives the number of samples. One thread only.
  std::size_t Fetch(std::span<std::int16_t> out) { return ring_.Read(out); }

 private:
  SampleRing ring_;
};

}  // namespace cantorix
