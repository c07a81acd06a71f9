// exact_math.h - the three functions the synthesiser needs, made of additions, multiplications and
// divisions only. Those are rounded alike on every machine, the C library's sin and exp are not:
// so the sample recording comes out with the same bytes wherever it is made.
#pragma once

namespace cantorix::synth {

struct SinCos {
  double sin = 0.0;
  double cos = 0.0;
};

// Sine and cosine of an angle in turns (1 = 2 pi), any finite value below 2^50; correct to about
// 1e-16.
SinCos OfTurns(double turns);

// e^x for -1 <= x <= 1, correct to about 1e-16 of the result.
double SmallExp(double x);

}  // namespace cantorix::synth
