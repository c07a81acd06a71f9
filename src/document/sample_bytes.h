// sample_bytes.h - samples as the little-endian bytes that every file of this system holds, and the
// blocks in which long recordings are moved.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace cantorix {

// Shown while samples move from or to a file.
inline constexpr std::string_view kFileStatusText = " Reading File...(Press mouse to cancel)";

// Samples in one second of sound, whole and at least 1: the block that long copies move at a time.
std::int64_t OneSecondOfSamples(double rateHz);

// The bytes of `samples`: their own memory, or `scratch` on a machine of the other byte order.
std::span<const std::byte> LittleBytes(std::span<const std::int16_t> samples,
                                       std::vector<std::int16_t>& scratch);

}  // namespace cantorix
