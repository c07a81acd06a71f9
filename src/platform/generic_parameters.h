// generic_parameters.h - how a file that no reader recognises is read, and what would come of it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cantorix {

struct GenericParameters {
  std::int32_t headerBytes = 0;    // bytes to skip, >= 0
  std::int32_t rateHz = 10000;     // > 0
  std::int32_t sixteenBit = 1;     // 0: 8 bit
  std::int32_t highByteFirst = 1;  // of 16-bit samples
  std::int32_t binary = 1;         // integer binary; 0: ASCII numbers
};

// What reading with some parameters would give.
struct GenericOutcome {
  struct Extremes {
    std::int16_t low = 0;
    std::int16_t high = 0;
  };
  std::int64_t samples = 0;
  double durationMs = 0.0;
  std::vector<Extremes> waveform;  // of equal stretches, in their order
  std::string problem;             // why nothing would come of it; empty: it can be read
};

// A file for which parameters are sought.
class GenericPreview {
 public:
  virtual ~GenericPreview() = default;
  // The outcome with a waveform of at most `columns` stretches; of a text, whose length is not
  // known before, at most twice as many. What cannot be read is told as the outcome's problem.
  virtual GenericOutcome Try(const GenericParameters& parameters, int columns) = 0;
};

}  // namespace cantorix
