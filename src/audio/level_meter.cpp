// level_meter.cpp - levels from slices of a twentieth of a second.
#include "audio/level_meter.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace cantorix {
namespace {

constexpr double kFullScale = 32768.0;
constexpr std::int32_t kClipped = 32767;
constexpr std::int64_t kClipRun = 3;

double Decibels(double amplitude) { return 20.0 * std::log10(amplitude / kFullScale); }

}  // namespace

LevelMeter::LevelMeter(std::uint32_t rateHz)
    : sliceSamples_(std::max<std::size_t>(rateHz / kSlices, 1)) {}

void LevelMeter::Take(std::span<const std::int16_t> samples) {
  for (const std::int16_t sample : samples) {
    if (slices_[newest_].count == sliceSamples_) {
      newest_ = (newest_ + 1) % kSlices;
      slices_[newest_] = {};
    }
    Slice& slice = slices_[newest_];
    const std::int32_t magnitude = std::abs(std::int32_t{sample});
    slice.peak = std::max(slice.peak, magnitude);
    slice.squares += static_cast<double>(magnitude) * magnitude;
    ++slice.count;
    CountClip(magnitude);
    ++taken_;
  }
}

void LevelMeter::CountClip(std::int32_t magnitude) {
  run_ = magnitude >= kClipped ? run_ + 1 : 0;
  if (run_ != kClipRun) return;
  ++clips_;
  if (firstClipSample_ < 0) firstClipSample_ = taken_ + 1 - kClipRun;
}

LevelReading LevelMeter::Reading() const {
  std::int32_t peak = 0;
  std::int32_t heldPeak = 0;
  double squares = 0.0;
  std::size_t count = 0;
  for (std::size_t back = 0; back < kSlices; ++back) {
    const Slice& slice = SliceBack(back);
    heldPeak = std::max(heldPeak, slice.peak);
    if (back >= kShortSlices) continue;
    peak = std::max(peak, slice.peak);
    squares += slice.squares;
    count += slice.count;
  }
  const double rms = count > 0 ? std::sqrt(squares / static_cast<double>(count)) : 0.0;
  return {Decibels(peak), Decibels(heldPeak), Decibels(rms), clips_, firstClipSample_};
}

}  // namespace cantorix
