// vowel.cpp - the contour's arithmetic and the sample loop of a vowel.
#include "synth/vowel.h"

#include <algorithm>
#include <cmath>

#include "synth/glottal_source.h"

namespace cantorix::synth {
namespace {

constexpr double kAttackMs = 30.0;
constexpr double kReleaseMs = 60.0;
constexpr double kOpeningFraction = 0.40;
constexpr double kClosingFraction = 0.16;
// The flow of a soft voice closes less abruptly than the polynomial: one more pole, at about
// (1 - kTilt) / (2 pi) of the sample rate.
constexpr double kTilt = 0.4;

double Clamp01(double x) { return std::clamp(x, 0.0, 1.0); }

// A cubic from 0 to 1 that starts and ends level.
double Ease(double x) {
  const double c = Clamp01(x);
  return c * c * (3.0 - 2.0 * c);
}

double Loudness(double ms, double durationMs) {
  return Ease(ms / kAttackMs) * Ease((durationMs - ms) / kReleaseMs);
}

double Between(double from, double to, double share) { return from + (to - from) * share; }

}  // namespace

double PitchContour::Hz(double ms) const {
  if (ms <= points_.front().ms) return points_.front().hz;
  for (std::size_t i = 1; i < points_.size(); ++i) {
    const ContourPoint& a = points_[i - 1];
    const ContourPoint& b = points_[i];
    if (ms < b.ms) return Between(a.hz, b.hz, (ms - a.ms) / (b.ms - a.ms));
  }
  return points_.back().hz;
}

double PitchContour::Turns(double ms) const {
  // Trapezia between the corners of the line: exact, the line is straight between them.
  double turns = 0.0;
  double from = 0.0;
  for (const ContourPoint& point : points_) {
    const double to = std::clamp(point.ms, from, ms);
    turns += (to - from) * 0.5 * (Hz(from) + Hz(to));
    from = to;
  }
  turns += (ms - from) * 0.5 * (Hz(from) + Hz(ms));
  return turns / 1000.0;
}

double PitchContour::lowestHz() const {
  return std::min_element(points_.begin(), points_.end(),
                          [](const ContourPoint& a, const ContourPoint& b) { return a.hz < b.hz; })
      ->hz;
}

Formants Vowel::FormantsAt(double ms) const {
  const double share =
      moveToMs > moveFromMs ? Clamp01((ms - moveFromMs) / (moveToMs - moveFromMs)) : 0.0;
  Formants now;
  for (std::size_t i = 0; i < now.size(); ++i) {
    now[i].hz = Between(first[i].hz, last[i].hz, share);
    now[i].bandwidthHz = Between(first[i].bandwidthHz, last[i].bandwidthHz, share);
  }
  return now;
}

std::vector<double> Speak(const Vowel& vowel, double startMs, double endMs, double rateHz) {
  const GlottalSource glottis(kOpeningFraction, kClosingFraction, rateHz, vowel.pitch.lowestHz());
  VocalTract tract(rateHz);
  const double firstSample = std::ceil(startMs * rateHz / 1000.0);
  const double endSample = std::ceil(endMs * rateHz / 1000.0);
  std::vector<double> sound(static_cast<std::size_t>(endSample - firstSample));
  double soft = 0.0;
  double largest = 0.0;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double ms = (firstSample + static_cast<double>(i)) * 1000.0 / rateHz - startMs;
    double flow = 0.0;
    if (ms < vowel.durationMs) {
      flow =
          Loudness(ms, vowel.durationMs) * glottis.Flow(vowel.pitch.Turns(ms), vowel.pitch.Hz(ms));
    }
    soft = (1.0 - kTilt) * flow + kTilt * soft;
    tract.SetFormants(vowel.FormantsAt(ms));
    sound[i] = tract.Next(soft);
    largest = std::max(largest, std::fabs(sound[i]));
  }
  for (double& x : sound) x = x / largest * vowel.peak;
  return sound;
}

}  // namespace cantorix::synth
