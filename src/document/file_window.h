// file_window.h - small reads of a file at growing positions, through a window: a file of nothing
// but empty chunks must not cost a system call for each.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/file.h"

namespace cantorix {

class FileWindow {
 public:
  static constexpr std::int64_t kBytes = 4096;

  // `file` outlives the window.
  explicit FileWindow(const File& file) : file_(file) {}

  // The bytes [offset, offset + width), width <= kBytes; what lies past the end of the file reads
  // as zeros. Valid until the next call. Throws FileError when the file cannot be read.
  std::span<const std::byte> At(std::int64_t offset, std::size_t width) {
    if (offset < start_ || offset + static_cast<std::int64_t>(width) > start_ + kBytes) {
      const std::size_t got = file_.ReadSome(offset, bytes_);
      std::fill(bytes_.begin() + static_cast<std::ptrdiff_t>(got), bytes_.end(), std::byte{0});
      start_ = offset;
    }
    return std::span(bytes_).subspan(static_cast<std::size_t>(offset - start_), width);
  }

 private:
  const File& file_;
  std::array<std::byte, kBytes> bytes_{};
  std::int64_t start_ = -kBytes;
};

// Whether `text` stands at `offset` of `block`, which holds as many bytes from there.
inline bool HasText(std::span<const std::byte> block, std::size_t offset, std::string_view text) {
  return std::equal(text.begin(), text.end(), block.begin() + static_cast<std::ptrdiff_t>(offset),
                    [](char c, std::byte b) { return static_cast<std::byte>(c) == b; });
}

// Whether the file has `magic` at `offset`.
inline bool HasMagic(const File& file, std::string_view magic, std::int64_t offset = 0) {
  std::array<std::byte, 32> block{};
  file.ReadSome(offset, std::span(block).first(magic.size()));
  return HasText(block, 0, magic);
}

}  // namespace cantorix
