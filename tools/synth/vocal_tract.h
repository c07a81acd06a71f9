// vocal_tract.h - the filter between glottis and microphone: five formants in cascade and the
// radiation at the lips. Each formant is a digital resonator of unit gain at 0 Hz, so a cascade
// gets its formant levels by itself, as a vocal tract does.
// [1] D. H. Klatt, "Software for a cascade/parallel formant synthesizer", 1980.
#pragma once

#include <array>

namespace cantorix::synth {

struct Formant {
  double hz = 0.0;           // below half the sample rate
  double bandwidthHz = 0.0;  // > 0, at -3 dB
};

inline constexpr int kFormantCount = 5;
using Formants = std::array<Formant, kFormantCount>;

class VocalTract {
 public:
  explicit VocalTract(double rateHz) : rateHz_(rateHz) {}

  // Sets the shape for the samples that follow; may change with every sample.
  void SetFormants(const Formants& formants);
  // Sound pressure for the next sample of glottal flow.
  double Next(double flow);

 private:
  // y[n] = a x[n] + b y[n-1] + c y[n-2]
  struct Resonator {
    double a = 1.0, b = 0.0, c = 0.0;
    double y1 = 0.0, y2 = 0.0;
  };

  double rateHz_;
  std::array<Resonator, kFormantCount> resonators_{};
  double lastFlow_ = 0.0;
};

}  // namespace cantorix::synth
