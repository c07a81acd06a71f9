// vowel.h - one spoken vowel: its formants, its melody, and the sound they make.
// The melody is a broken line; its integral is known in closed form, so the fundamental at any
// instant is exactly what the contour says, not what rounding of periods left of it.
#pragma once

#include <string>
#include <vector>

#include "synth/vocal_tract.h"

namespace cantorix::synth {

struct ContourPoint {
  double ms = 0.0;  // after the onset of the vowel
  double hz = 0.0;
};

// A broken line through points of rising time; level before the first and after the last.
class PitchContour {
 public:
  explicit PitchContour(std::vector<ContourPoint> points) : points_(std::move(points)) {}

  double Hz(double ms) const;
  // Periods that have gone by since 0 ms: the integral of Hz.
  double Turns(double ms) const;
  double lowestHz() const;
  const std::vector<ContourPoint>& points() const { return points_; }

 private:
  std::vector<ContourPoint> points_;
};

struct Vowel {
  std::string name;  // UTF-8
  double durationMs = 0.0;
  PitchContour pitch;
  Formants first;           // the formants at the onset
  Formants last;            // and at the end; equal for a steady vowel
  double moveFromMs = 0.0;  // they move in straight lines between these two times
  double moveToMs = 0.0;
  double peak = 0.0;  // largest magnitude of the sound, sample units

  // Formants and bandwidths at a time after the onset.
  Formants FormantsAt(double ms) const;
};

// The sound of a vowel whose onset is at `startMs` of a recording: the samples whose times lie in
// [startMs, endMs). The glottis is at work for durationMs, swelling and fading inside that time;
// then the tract rings, and endMs should leave room for it (50 ms are plenty).
std::vector<double> Speak(const Vowel& vowel, double startMs, double endMs, double rateHz);

}  // namespace cantorix::synth
