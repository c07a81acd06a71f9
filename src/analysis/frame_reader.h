// frame_reader.h - stretches of a recording as doubles, for the frames of the spectra, and how much
// of a frame near the end is copied.
// Relies on a sample source alone, so frames in memory and in a store read the same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/sample_source.h"

namespace cantorix {

// Reads for one run, while the recording does not change.
class FrameReader {
 public:
  explicit FrameReader(const SampleSource& samples) : samples_(samples) {}

  // The samples [first, first + out.size()), 0 outside the recording. Throws FileError.
  void Read(std::int64_t first, std::span<double> out);

 private:
  // A store is asked for more than one stretch when stretches follow closely.
  std::span<const std::int16_t> Stretch(std::int64_t first, std::int64_t count);

  const SampleSource& samples_;
  std::int64_t last_ = 0;  // the first sample of the last stretch
  std::int64_t blockStart_ = 0;
  std::span<const std::int16_t> block_;
  std::vector<std::int16_t> scratch_;
};

// Whether all of a frame's samples are copied; see CopiedSamples.
bool IsCopiedWhole(double start, double length, double margin, double total);

// How many of a frame's `length` and `margin` samples are copied when it starts at `start` in a
// recording of `total` samples (all four may have a fraction): all of them when they fit, otherwise
// those up to the position trunc(total - start).
std::int64_t CopiedSamples(double start, double length, double margin, double total);

// The frame buffer of a run that takes frames of one length over a recording. It starts zeroed and
// is never cleared: near the end of the recording a frame keeps what an earlier one left.
class FrameBuffer {
 public:
  // Frames of `length` samples and `margin` more.
  FrameBuffer(std::size_t length, std::size_t margin);

  // Takes CopiedSamples of the frame that starts at `start` in a recording of `total` samples, from
  // sample Truncate(start) on.
  void Load(FrameReader& reader, double start, double total);

  // Whether that frame takes all of its samples and owes nothing to an earlier one.
  bool IsFree(double start, double total) const;

  std::span<const double> samples() const { return samples_; }

 private:
  double length_, margin_;
  std::vector<double> samples_;
};

// How many of `count` frames of a run, from the first on, may be computed in any order. Those
// behind them keep what an earlier one left, so they follow each other, beginning in a zeroed
// buffer. `isWhole` tells of a frame whether it is copied whole, which all are up to the end's.
template <typename IsWhole>
std::size_t FreeFrames(std::size_t count, IsWhole isWhole) {
  std::size_t whole = count;
  while (whole > 0 && !isWhole(whole - 1)) --whole;
  // The last whole one fills the buffer for those behind it.
  return whole == count || whole == 0 ? whole : whole - 1;
}

}  // namespace cantorix
