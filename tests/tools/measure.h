// measure.h - plain textbook measurements, to judge the synthesiser by something other than the
// system's own analyses: a correlation pitch and the peaks of a linear-prediction envelope.
// [1] J. Makhoul, "Linear prediction: a tutorial review", 1975.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace cantorix::testing {

// Frequency (Hz) of the shortest period around sample `centre` that repeats about as well as any
// period between 80 and 300 Hz. The two stretches compared lie evenly about `centre`.
double CorrelationPitch(std::span<const std::int16_t> x, std::int64_t centre, double rateHz);

// Frequencies (Hz, rising) of the peaks of the order-`order` envelope of the `length` samples
// around `centre` under a Hamming window, after the pre-emphasis x[n] - preEmphasis x[n-1].
std::vector<double> EnvelopePeaks(std::span<const std::int16_t> x, std::int64_t centre,
                                  std::size_t length, int order, double preEmphasis, double rateHz);

}  // namespace cantorix::testing
