// fft.h - in-place complex transform of a power-of-two size, the one under every analysis.
// Source: J. W. Cooley, J. W. Tukey, "An algorithm for the machine calculation of complex Fourier
// series", 1965: radix 2, decimation in time.
#pragma once

#include <span>

namespace cantorix {

// The angle constants of the transforms and windows, used with these digits.
inline constexpr double kPi = 3.1415926535898;
inline constexpr double kTwoPi = 6.2831853071796;

// Forward transform with kernel e^(-2 pi i n k / N) of the N = 2^m points in `re` and `im`
// (m >= 0, each span of N values), overwritten with the unscaled result. Twiddle factors follow
// the recurrence w <- w x (cos t, -sin t) with t = kPi / (span / 2), span 2 ... N, so the digits
// are those of the plain double loop over spans, positions and butterflies.
void Fft(std::span<double> re, std::span<double> im, int m);

}  // namespace cantorix
