// crc32.cpp - eight bytes at a time by eight tables.
#include "journal/crc32.h"

#include <array>

#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr std::uint32_t kReversedPolynomial = 0xEDB88320U;
constexpr std::size_t kStride = 8;

using Tables = std::array<std::array<std::uint32_t, 256>, kStride>;

// Table k: what a byte comes to that has k bytes behind it.
constexpr Tables MakeTables() {
  Tables tables{};
  for (std::uint32_t i = 0; i < 256; ++i) {
    std::uint32_t crc = i;
    for (int bit = 0; bit < 8; ++bit) {
      crc = (crc & 1U) != 0 ? crc >> 1U ^ kReversedPolynomial : crc >> 1U;
    }
    tables[0][i] = crc;
  }
  for (std::size_t k = 1; k < kStride; ++k) {
    for (std::size_t i = 0; i < 256; ++i) {
      const std::uint32_t shorter = tables[k - 1][i];
      tables[k][i] = shorter >> 8U ^ tables[0][shorter & 0xFFU];
    }
  }
  return tables;
}

constexpr Tables kTables = MakeTables();

}  // namespace

std::uint32_t Crc32(std::span<const std::byte> bytes, std::uint32_t before) {
  std::uint32_t crc = ~before;
  for (; bytes.size() >= kStride; bytes = bytes.subspan(kStride)) {
    const std::uint32_t low = LoadLittle<std::uint32_t>(bytes, 0) ^ crc;
    const auto high = LoadLittle<std::uint32_t>(bytes, 4);
    crc = 0;
    for (unsigned i = 0; i < 4; ++i) {
      crc ^= kTables[7 - i][low >> 8 * i & 0xFFU] ^ kTables[3 - i][high >> 8 * i & 0xFFU];
    }
  }
  for (const std::byte byte : bytes) {
    crc = crc >> 8U ^ kTables[0][(crc ^ std::to_integer<std::uint32_t>(byte)) & 0xFFU];
  }
  return ~crc;
}

}  // namespace cantorix
