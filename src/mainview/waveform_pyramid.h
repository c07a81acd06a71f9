// waveform_pyramid.h - smallest and largest samples of ever longer pieces of a recording, so that
// the waveform of any stretch is drawn at a cost of its pixels. Level 0 holds pieces of
// kPieceSamples, every further level twice as long ones: about 1/64 of the size of the samples.
// Relies on a sample source for what is finer than a piece. Draws nothing.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/sample_source.h"

namespace cantorix {

// Smallest and largest sample of a stretch; `low` above `high`: the stretch has no sample.
struct SampleExtent {
  std::int16_t low = INT16_MAX;
  std::int16_t high = INT16_MIN;

  bool empty() const { return low > high; }
  void Include(SampleExtent other) {
    low = other.low < low ? other.low : low;
    high = other.high > high ? other.high : high;
  }
  bool operator==(const SampleExtent&) const = default;
};

// Smallest and largest of `samples`.
SampleExtent ExtentOf(std::span<const std::int16_t> samples);

class WaveformPyramid {
 public:
  static constexpr std::int64_t kPieceSamples = 256;

  // An empty recording.
  WaveformPyramid() = default;
  // All samples of a source, read in large blocks. Throws FileError.
  explicit WaveformPyramid(const SampleSource& samples);

  // The next samples of the recording, for a picture made while reading; any number at a time.
  void Append(std::span<const std::int16_t> samples);

  std::int64_t length() const { return length_; }
  // Of the whole recording.
  SampleExtent Whole() const;

  // The extents of `columns.size()` columns over [start, end) samples: column c covers the samples
  // from floor(start + c w) up to floor(start + (c + 1) w), w = (end - start) / columns, but at
  // least one. From four pieces per column on, borders are rounded to pieces. What lies outside the
  // recording has no samples. `samples` are those the pyramid was made of. Throws FileError.
  void Extents(const SampleSource& samples, double start, double end,
               std::span<SampleExtent> columns) const;

 private:
  void FineExtents(const SampleSource& samples, double start, double width,
                   std::span<SampleExtent> columns) const;
  void CoarseExtents(double start, double width, std::span<SampleExtent> columns) const;
  SampleExtent PiecesBetween(std::int64_t first, std::int64_t last) const;
  void AddPiece(SampleExtent piece);

  std::vector<std::vector<SampleExtent>> levels_;
  SampleExtent open_;  // of the last piece, while it is not full
  std::int64_t length_ = 0;
};

}  // namespace cantorix
