// sample_source.h - the 16-bit samples of one channel, wherever they are kept.
// Analyses and writers ask for stretches by absolute sample index, so a recording in memory and
// one in a disk store go through the same code and give the same digits.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/file.h"

namespace cantorix {

class SampleSource {
 public:
  virtual ~SampleSource() = default;

  // Number of samples.
  virtual std::int64_t length() const = 0;

  // The samples [start, start + count), which must lie within [0, length()). The view points
  // into the source itself or into `scratch` (resized as needed) and is valid until the source
  // changes or `scratch` is used again. Throws FileError when the store cannot be read.
  virtual std::span<const std::int16_t> View(std::int64_t start, std::int64_t count,
                                             std::vector<std::int16_t>& scratch) const = 0;

  // Where the bytes of the samples [start, start + count) stand in a file as they are written to
  // sound files, low byte first; nothing when they do not.
  virtual std::optional<FileStretch> InFile(std::int64_t /*start*/, std::int64_t /*count*/) const {
    return std::nullopt;
  }

  // Copies the samples [start, start + out.size()), reading 0 outside [0, length()).
  void Read(std::int64_t start, std::span<std::int16_t> out) const;
};

// Samples that somebody else owns.
class SpanSource : public SampleSource {
 public:
  explicit SpanSource(std::span<const std::int16_t> samples) : samples_(samples) {}
  std::int64_t length() const override { return static_cast<std::int64_t>(samples_.size()); }
  std::span<const std::int16_t> View(std::int64_t start, std::int64_t count,
                                     std::vector<std::int16_t>&) const override {
    return samples_.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(count));
  }

 private:
  std::span<const std::int16_t> samples_;
};

}  // namespace cantorix
