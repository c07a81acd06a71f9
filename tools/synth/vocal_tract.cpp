// vocal_tract.cpp - the cascade, sample by sample.
#include "synth/vocal_tract.h"

#include "synth/exact_math.h"

namespace cantorix::synth {

void VocalTract::SetFormants(const Formants& formants) {
  constexpr double kPi = 3.141592653589793238463;
  for (std::size_t i = 0; i < formants.size(); ++i) {
    const double radius = SmallExp(-kPi * formants[i].bandwidthHz / rateHz_);
    Resonator& r = resonators_[i];
    r.c = -(radius * radius);
    r.b = 2.0 * radius * OfTurns(formants[i].hz / rateHz_).cos;
    r.a = 1.0 - r.b - r.c;
  }
}

double VocalTract::Next(double flow) {
  // Radiation is a first difference; it commutes with the cascade of a tract that stands still.
  double x = flow - lastFlow_;
  lastFlow_ = flow;
  for (Resonator& r : resonators_) {
    const double y = r.a * x + r.b * r.y1 + r.c * r.y2;
    r.y2 = r.y1;
    r.y1 = y;
    x = y;
  }
  return x;
}

}  // namespace cantorix::synth
