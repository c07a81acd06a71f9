// fuzz_input.h - an input taken apart into numbers and texts. What lies behind its end is zero or
// empty, so that any input can be taken apart in any way.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>
#include <type_traits>

namespace cantorix {

// Stops the program, saying where, when something does not hold.
inline void Require(bool holds, const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
  if (holds) return;
  std::fprintf(stderr, "%s:%d does not hold\n", file, line);
  std::abort();
}

class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  bool atEnd() const { return rest_.empty(); }

  // A number of any bits.
  template <typename T>
  requires std::is_arithmetic_v<T> T Take() {
    T value{};
    const auto bytes = Bytes(sizeof(T));
    if (!bytes.empty()) std::memcpy(&value, bytes.data(), bytes.size());
    return value;
  }

  // 0 ... count - 1; count is 1 to 256.
  int Below(int count) { return Take<std::uint8_t>() % count; }

  // Up to 255 bytes, behind their number.
  std::string Text() {
    const auto bytes = Bytes(Take<std::uint8_t>());
    return {bytes.begin(), bytes.end()};
  }

  std::span<const std::uint8_t> Bytes(std::size_t count) {
    const auto taken = rest_.first(std::min(count, rest_.size()));
    rest_ = rest_.subspan(taken.size());
    return taken;
  }

 private:
  std::span<const std::uint8_t> rest_;
};

}  // namespace cantorix
