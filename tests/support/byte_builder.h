// byte_builder.h - a file written down by hand, number by number, little-endian unless it is made
// with its high bytes first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace cantorix {

class ByteBuilder {
 public:
  explicit ByteBuilder(bool highFirst = false) : highFirst_(highFirst) {}

  ByteBuilder& Text(std::string_view text, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i)
      bytes.push_back(std::byte(i < text.size() ? text[i] : 0));
    return *this;
  }
  ByteBuilder& Zeros(std::size_t count) { return Text("", count); }
  ByteBuilder& F64(std::initializer_list<double> values) {
    for (const double value : values) {
      std::uint64_t word;
      std::memcpy(&word, &value, sizeof word);
      Append(word, 8);
    }
    return *this;
  }
  ByteBuilder& I32(std::initializer_list<std::int64_t> values) { return Whole(values, 4); }
  ByteBuilder& I16(std::initializer_list<std::int64_t> values) { return Whole(values, 2); }
  ByteBuilder& U8(std::initializer_list<std::int64_t> values) { return Whole(values, 1); }

  std::vector<std::byte> bytes;

 private:
  ByteBuilder& Whole(std::initializer_list<std::int64_t> values, int width) {
    for (const std::int64_t value : values) Append(static_cast<std::uint64_t>(value), width);
    return *this;
  }
  void Append(std::uint64_t word, int width) {
    for (int i = 0; i < width; ++i) {
      const int place = highFirst_ ? width - 1 - i : i;
      bytes.push_back(static_cast<std::byte>(word >> (8 * place) & 0xFFU));
    }
  }

  bool highFirst_;
};

}  // namespace cantorix
