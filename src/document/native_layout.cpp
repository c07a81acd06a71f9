// native_layout.cpp - what the native file can hold.
#include "document/native_layout.h"

#include <limits>

namespace cantorix::native {

std::optional<ImpossibleField> FindImpossible(double lengthSamples, double rateHz,
                                              double durationMs) {
  constexpr double kLongest = 9007199254740992.0;  // up to here doubles count every sample
  constexpr double kHighestRate = std::numeric_limits<std::uint32_t>::max();
  constexpr double kSlowestMs = 1000.0;  // per sample; sound is not slower
  // Written so that NaN is refused too.
  const auto isWithin = [](double x, double high) { return x >= 0.0 && x <= high; };
  if (!isWithin(lengthSamples, kLongest)) return ImpossibleField{"length", kLengthAt};
  if (!isWithin(rateHz, kHighestRate) || rateHz == 0.0) {
    return ImpossibleField{"sample rate", kRateAt};
  }
  if (!isWithin(durationMs, (lengthSamples + 1.0) * kSlowestMs)) {
    return ImpossibleField{"duration", kDurationAt};
  }
  return std::nullopt;
}

}  // namespace cantorix::native
