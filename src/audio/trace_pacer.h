// trace_pacer.h - how much of the sound that came in a running trace shows at a moment. Sound comes
// in pieces; the trace runs by the clock, a little behind, so that it moves evenly.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace cantorix {

class TracePacer {
 public:
  explicit TracePacer(std::uint32_t rateHz);

  // Sound that came in. Beyond one second that nobody asked for, the oldest is dropped.
  void Take(std::span<const std::int16_t> samples);
  // The samples to be drawn between the last call and this one, valid until Take is called. None
  // while there are less than 50 ms in hand after it had run dry.
  std::span<const std::int16_t> Due(double nowMs);

 private:
  std::size_t Samples(double ms) const;

  std::uint32_t rateHz_;
  std::vector<std::int16_t> waiting_;
  std::size_t given_ = 0;         // at the beginning of `waiting_`, by the last call
  std::optional<double> lastMs_;  // while it runs
  double owed_ = 0.0;             // samples, less than one after each call
};

}  // namespace cantorix
