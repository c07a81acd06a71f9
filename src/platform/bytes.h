// bytes.h - numbers and texts of fixed places in blocks of bytes, little-endian unless named
// otherwise. Every access is bounded: a place outside the block is a broken invariant and throws.
#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace cantorix {

namespace detail {
inline void RequireInside(std::size_t offset, std::size_t width, std::size_t size) {
  if (offset > size || width > size - offset) throw std::out_of_range("place outside its block");
}

template <typename T>
T SwappedIf(bool swap, T value) {
  auto raw = std::bit_cast<std::array<std::byte, sizeof(T)>>(value);
  if (swap) {
    for (std::size_t i = 0; i < sizeof(T) / 2; ++i) std::swap(raw[i], raw[sizeof(T) - 1 - i]);
  }
  return std::bit_cast<T>(raw);
}
}  // namespace detail

template <typename T>
requires std::integral<T> || std::floating_point<T> T LoadLittle(std::span<const std::byte> block,
                                                                 std::size_t offset) {
  detail::RequireInside(offset, sizeof(T), block.size());
  T value;
  std::memcpy(&value, block.data() + offset, sizeof(T));
  return detail::SwappedIf(std::endian::native == std::endian::big, value);
}

enum class ByteOrder { kLowFirst, kHighFirst };

// The same in either order.
template <typename T>
T LoadIn(ByteOrder order, std::span<const std::byte> block, std::size_t offset) {
  return detail::SwappedIf(order == ByteOrder::kHighFirst, LoadLittle<T>(block, offset));
}

template <typename T>
requires std::integral<T> || std::floating_point<T>
void StoreLittle(std::span<std::byte> block, std::size_t offset, T value) {
  detail::RequireInside(offset, sizeof(T), block.size());
  const T stored = detail::SwappedIf(std::endian::native == std::endian::big, value);
  std::memcpy(block.data() + offset, &stored, sizeof(T));
}

// The text of a NUL-terminated field of `width` bytes; a field without a NUL gives all its bytes.
std::string LoadText(std::span<const std::byte> block, std::size_t offset, std::size_t width);

// Writes at most `width` - 1 bytes of `text`, cut at a UTF-8 character border, and fills the rest
// of the field with zeros.
void StoreText(std::span<std::byte> block, std::size_t offset, std::size_t width,
               std::string_view text);

// `text` cut to at most `maxBytes` bytes. Where the cut would fall inside a UTF-8 character of a
// valid text, the whole character goes; bytes that are not UTF-8 are cut where they stand.
std::string_view CutText(std::string_view text, std::size_t maxBytes);

}  // namespace cantorix
