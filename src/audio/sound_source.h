// sound_source.h - where a player takes its stretch from: a copy in memory, or a file of raw 16-bit
// little-endian samples that it opened for itself.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "platform/file.h"

namespace cantorix {

class SoundSource {
 public:
  virtual ~SoundSource() = default;
  // Fills `out` with the samples of the stretch from `position` on; they all lie within it. Throws
  // FileError.
  virtual void Read(std::int64_t position, std::span<std::int16_t> out) const = 0;
};

class MemorySound : public SoundSource {
 public:
  explicit MemorySound(std::vector<std::int16_t> samples) : samples_(std::move(samples)) {}
  void Read(std::int64_t position, std::span<std::int16_t> out) const override {
    std::copy_n(samples_.begin() + position, out.size(), out.begin());
  }

 private:
  std::vector<std::int16_t> samples_;
};

class FileSound : public SoundSource {
 public:
  // The stretch begins at sample `first`.
  FileSound(File file, std::int64_t first) : file_(std::move(file)), first_(first) {}
  void Read(std::int64_t position, std::span<std::int16_t> out) const override {
    file_.ReadExactly((first_ + position) * 2, std::as_writable_bytes(out));
    SwapFromLittle(out);
  }

 private:
  File file_;
  std::int64_t first_;
};

}  // namespace cantorix
