// frame_reader.h - stretches of a recording as doubles, for the frames of the spectra.
// Relies on a sample source alone, so frames in memory and in a store read the same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/sample_source.h"

namespace cantorix {

class FrameReader {
 public:
  explicit FrameReader(const SampleSource& samples) : samples_(samples) {}

  // The samples [first, first + out.size()), 0 outside the recording. Throws FileError.
  void Read(std::int64_t first, std::span<double> out);

 private:
  const SampleSource& samples_;
  std::vector<std::int16_t> scratch_;
};

// The frame buffer of a run that takes frames of one length over a recording. It starts zeroed and
// is never cleared: near the end of the recording a frame keeps what an earlier one left.
class FrameBuffer {
 public:
  // Frames of `length` samples and `margin` more.
  FrameBuffer(std::size_t length, std::size_t margin);

  // Takes the frame that starts at `start` in a recording of `total` samples, both not rounded.
  // A frame that fits, margin included, is copied whole from Truncate(start). Otherwise samples
  // are copied from there only up to position Truncate(total - start).
  void Load(FrameReader& reader, double start, double total);

  std::span<const double> samples() const { return samples_; }

 private:
  double length_, margin_;
  std::vector<double> samples_;
};

}  // namespace cantorix
