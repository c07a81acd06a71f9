// level_meter.h - how loud the sound is that comes in, for a meter and for its texts: peak, peak
// held for a second, RMS, all in dB below full scale, and the places where it was clipped.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace cantorix {

// Where a good recording's peaks stay below.
inline constexpr double kLevelMarkDb = -6.0;

struct LevelReading {
  double peakDb;       // of the last 0.3 s; minus infinity in digital silence
  double heldPeakDb;   // the highest of the last second
  double rmsDb;        // of the last 0.3 s
  std::int64_t clips;  // places with 3 or more samples in a row at full scale, since the start
  std::int64_t firstClipSample;  // where the first of them begins, or -1
};

class LevelMeter {
 public:
  explicit LevelMeter(std::uint32_t rateHz);

  void Take(std::span<const std::int16_t> samples);
  LevelReading Reading() const;

 private:
  // A twentieth of a second.
  struct Slice {
    std::int32_t peak = 0;
    double squares = 0.0;
    std::size_t count = 0;
  };
  static constexpr std::size_t kSlices = 20;      // one second
  static constexpr std::size_t kShortSlices = 6;  // 0.3 s

  void CountClip(std::int32_t magnitude);
  // The newest is `back` = 0.
  const Slice& SliceBack(std::size_t back) const {
    return slices_[(newest_ + kSlices - back) % kSlices];
  }

  std::size_t sliceSamples_;
  std::array<Slice, kSlices> slices_{};
  std::size_t newest_ = 0;
  std::int64_t taken_ = 0;
  std::int64_t run_ = 0;  // samples in a row at full scale
  std::int64_t clips_ = 0;
  std::int64_t firstClipSample_ = -1;
};

}  // namespace cantorix
