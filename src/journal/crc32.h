// crc32.h - the checksum of a journal's records.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace cantorix {

// CRC-32 as of Ethernet and ZIP (ISO 3309: polynomial 0x04C11DB7, bits reversed, begun and ended
// with all ones), of what gave `before` followed by `bytes`.
std::uint32_t Crc32(std::span<const std::byte> bytes, std::uint32_t before = 0);

}  // namespace cantorix
