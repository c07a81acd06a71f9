// payload.h - numbers and texts one behind the other, as the records of a journal hold them:
// little-endian, a text as its length in 32 bits and its bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/bytes.h"

namespace cantorix {

class PayloadWriter {
 public:
  template <typename T>
  void Put(T value) {
    std::array<std::byte, sizeof(T)> raw{};
    StoreLittle<T>(raw, 0, value);
    PutBytes(raw);
  }
  void PutText(std::string_view text);
  void PutBytes(std::span<const std::byte> bytes);

  std::span<const std::byte> bytes() const { return bytes_; }

 private:
  std::vector<std::byte> bytes_;
};

// A record whose content cannot be true.
class BadRecord : public std::runtime_error {
 public:
  BadRecord() : std::runtime_error("a record that cannot be true") {}
};

// Each function throws BadRecord when the record ends before what is asked of it.
class PayloadReader {
 public:
  explicit PayloadReader(std::span<const std::byte> bytes) : bytes_(bytes) {}

  template <typename T>
  T Take() {
    return LoadLittle<T>(TakeBytes(sizeof(T)), 0);
  }
  std::string TakeText();
  std::span<const std::byte> TakeBytes(std::size_t count);
  // A number of things that take at least `leastBytes` each in what follows.
  std::size_t TakeCount(std::size_t leastBytes);
  void RequireEnd() const;

 private:
  std::span<const std::byte> bytes_;
};

}  // namespace cantorix
