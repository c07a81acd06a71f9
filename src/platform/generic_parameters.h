// generic_parameters.h - how a file that no reader recognises is read.
#pragma once

#include <cstdint>

namespace cantorix {

struct GenericParameters {
  std::int32_t headerBytes = 0;    // bytes to skip, >= 0
  std::int32_t rateHz = 10000;     // > 0
  std::int32_t sixteenBit = 1;     // 0: 8 bit
  std::int32_t highByteFirst = 1;  // of 16-bit samples
  std::int32_t binary = 1;         // integer binary; 0: ASCII numbers
};

}  // namespace cantorix
