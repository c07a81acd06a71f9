// glottal_source.h - the periodic air flow through the glottis, without a trace of aliasing.
// One period is Rosenberg's polynomial pulse: a cubic opening, a parabolic closing, then rest. It
// is summed from its harmonics, whose coefficients have a closed form, so a period may have any
// fractional length and nothing folds back from above half the sample rate.
// [1] A. E. Rosenberg, "Effect of glottal pulse shape on the quality of natural vowels", 1971.
// [2] G. Fant, "Acoustic Theory of Speech Production", 1960 (source and filter).
#pragma once

#include <vector>

namespace cantorix::synth {

class GlottalSource {
 public:
  // Fractions of the period, both > 0 and together below 1: 0.40 and 0.16 are the ones that [1]
  // found most natural. `rateHz` is the sample rate; fundamentals down to `lowestHz` keep all the
  // harmonics that the rate can carry.
  GlottalSource(double openingFraction, double closingFraction, double rateHz, double lowestHz);

  // Flow at `turns` periods after the start of an opening (its whole part does not matter) while
  // the fundamental is `f0Hz`. The largest flow of a period is about 1, the mean is left out.
  double Flow(double turns, double f0Hz) const;

 private:
  struct Coefficient {
    double re = 0.0;
    double im = 0.0;
  };
  // Weight of a harmonic at `hz`: 1 in the band, falling to 0 at its edge, so that harmonics of a
  // gliding fundamental leave and enter without a click.
  double Weight(double hz) const;

  std::vector<Coefficient> harmonics_;  // of the numbers 1, 2, ...
  double fadeStartHz_;
  double fadeEndHz_;
};

}  // namespace cantorix::synth
