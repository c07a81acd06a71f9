// sample_conversion.h - the sample codings of sound files, turned into 16-bit values.
// Integers keep their upper 16 bits, without rounding or dither. Floating-point samples of full
// scale 1 are scaled by 32768, rounded half away from zero and clipped; NaN gives 0. Those in
// sample units are rounded and clipped alike. A-law and mu-law are the 8-bit codes of ITU-T
// Recommendation G.711, 1988, at 16-bit scale.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/bytes.h"

namespace cantorix {

enum class SampleCoding {
  kUnsigned8,
  kSigned8,
  kSigned16,
  kSigned24,
  kSigned32,
  kFloat32,
  kFloat64,
  kFloat32InUnits,
  kFloat64InUnits,
  kALaw,
  kMuLaw,
};

// Bytes of one sample.
std::size_t WidthOf(SampleCoding coding);

// What the user is told of a coding: "Signed 16 bit PCM".
std::string NameOf(SampleCoding coding);
// The same for a format that knows both byte orders: "Signed 16 bit PCM, high byte first".
std::string NameOf(SampleCoding coding, ByteOrder order);

// Converts out.size() samples of that byte order that stand in `in`, the first at its start, each
// `strideBytes` after the one before. `in` must hold the last of them whole.
void ConvertSamples(SampleCoding coding, std::span<const std::byte> in, std::size_t strideBytes,
                    std::span<std::int16_t> out, ByteOrder order = ByteOrder::kLowFirst);

// A number in sample units, of any size.
inline std::int16_t SampleFromUnits(double x) {
  if (std::isnan(x)) return 0;
  return static_cast<std::int16_t>(std::clamp(std::round(x), -32768.0, 32767.0));
}

// A number of full scale 1.
inline std::int16_t SampleFromFloat(double x) { return SampleFromUnits(x * 32768.0); }

}  // namespace cantorix
