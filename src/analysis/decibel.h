// decibel.h - the level of a power: the one conversion of the spectra and of the cepstrum.
#pragma once

#include <cmath>

namespace cantorix {

// 10 log10(power), and 0 for a power of exactly 0: silence is 0 dB, not minus infinity.
inline double PowerDb(double power) { return power != 0.0 ? 10.0 * std::log10(power) : 0.0; }

}  // namespace cantorix
