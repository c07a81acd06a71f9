// file_source.h - an open file as the decoding library reads it: seek, then read small pieces.
// Nothing outside the file is ever touched, and small reads cost no system call each. The library
// is written in C, so that an error of the file waits here until the library has returned.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <span>
#include <vector>

#include "platform/file.h"

namespace cantorix {

class FileSource {
 public:
  // `file` outlives the source.
  explicit FileSource(const File& file) : file_(file), length_(file.Size()) {}

  std::int64_t length() const { return length_; }
  std::int64_t position() const { return position_; }

  // -1 for a place before the file; nothing is read behind it. Nobody can seek from the end: the
  // decoder of MPEG would take the chance to guess its length from that of the file.
  enum class From { kStart, kHere };
  std::int64_t Seek(std::int64_t offset, From from) noexcept;

  // Bytes read, fewer only at the end or after an error, which is kept.
  std::int64_t Read(std::span<std::byte> out) noexcept;

  // Throws the error that was kept, if any.
  void ThrowKept();

 private:
  static constexpr std::size_t kWindowBytes = std::size_t{1} << 16U;

  std::size_t ReadThroughWindow(std::span<std::byte> out);

  const File& file_;
  std::int64_t length_;
  std::int64_t position_ = 0;
  std::vector<std::byte> window_;
  std::int64_t windowStart_ = 0;
  std::exception_ptr kept_;
};

}  // namespace cantorix
