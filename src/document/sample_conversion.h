// sample_conversion.h - the sample codings of sound files, turned into 16-bit values.
// Integers keep their upper 16 bits, without rounding or dither. Floating-point samples of full
// scale 1 are scaled by 32768, rounded half away from zero and clipped; NaN gives 0. A-law and
// mu-law are the 8-bit codes of ITU-T Recommendation G.711, 1988, at 16-bit scale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace cantorix {

enum class SampleCoding {
  kUnsigned8,
  kSigned16,
  kSigned24,
  kSigned32,
  kFloat32,
  kFloat64,
  kALaw,
  kMuLaw,
};

// Bytes of one sample.
std::size_t WidthOf(SampleCoding coding);

// Converts out.size() little-endian samples that stand in `in`, the first at its start, each
// `strideBytes` after the one before. `in` must hold the last of them whole.
void ConvertSamples(SampleCoding coding, std::span<const std::byte> in, std::size_t strideBytes,
                    std::span<std::int16_t> out);

}  // namespace cantorix
