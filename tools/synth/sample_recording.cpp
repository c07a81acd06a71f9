// sample_recording.cpp - the script of the sample recording and its performance.
// The formants are those of an adult male voice, placed on harmonics of the fundamental in the
// middle of each vowel: linear prediction leans towards the nearest harmonic, and there the
// nearest harmonic is the formant. The melody moves by less than 70 Hz per second: a tracker's
// value belongs to a window of some 30 ms, and should still agree with the truth at either end of
// it.
#include "synth/sample_recording.h"

#include <cmath>

namespace cantorix::synth {
namespace {

constexpr double kRateHz = 11025.0;
constexpr double kFirstOnsetMs = 100.0;
constexpr double kPauseMs = 110.0;  // between the vowels and after the last
// Room noise, uniform in +-kNoise sample units: far below what any voicing rule takes for speech.
constexpr double kNoise = 6.0;

struct Line {
  Vowel vowel;
  std::vector<TimedText> tones;  // ms after the onset
};

Vowel Steady(const std::string& name, const Formants& formants, std::vector<ContourPoint> melody,
             double peak) {
  const double durationMs = melody.back().ms;
  return {name, durationMs, PitchContour(std::move(melody)), formants, formants, 0.0, 0.0, peak};
}

std::vector<Line> Script() {
  const Formants i = {{{300, 50}, {2200, 90}, {2950, 130}, {3600, 180}, {4600, 240}}};
  const Formants e = {{{420, 60}, {1995, 90}, {2625, 120}, {3500, 180}, {4500, 240}}};
  const Formants a = {{{720, 80}, {1200, 90}, {2520, 130}, {3400, 180}, {4400, 240}}};
  const Formants o = {{{480, 70}, {840, 80}, {2520, 130}, {3350, 180}, {4350, 240}}};
  const Formants u = {{{330, 60}, {880, 80}, {2310, 130}, {3300, 180}, {4300, 240}}};
  const Formants nearI = {{{480, 70}, {1920, 90}, {2640, 130}, {3500, 180}, {4500, 240}}};
  const Formants highA = {{{720, 80}, {1200, 90}, {2640, 140}, {3500, 190}, {4500, 250}}};
  const PitchContour rise({{0, 110}, {400, 120}, {800, 135}});
  const Vowel glide{"aɪ", 800.0, rise, a, nearI, 150.0, 650.0, 21000.0};
  return {
      {Steady("i", i, {{0, 100}, {310, 100}, {620, 92}}, 19000.0), {{310, "L*"}, {620, "L%"}}},
      {Steady("e", e, {{0, 105}, {330, 105}, {640, 122}}, 20000.0), {{330, "L*"}, {640, "H%"}}},
      {Steady("a", a, {{0, 130}, {620, 110}}, 23000.0), {{0, "H*"}, {620, "L%"}}},
      {Steady("o", o, {{0, 108}, {320, 120}, {640, 108}}, 21000.0), {{320, "H*"}, {640, "L%"}}},
      {Steady("u", u, {{0, 118}, {310, 110}, {620, 120}}, 20000.0), {{310, "L*"}, {620, "H%"}}},
      {glide, {{0, "L*"}, {800, "H%"}}},
      {Steady("a", highA, {{0, 260}, {600, 220}}, 22000.0), {{0, "H*"}, {600, "L%"}}},
  };
}

// Uniform numbers in [-1, 1) from a 32-bit linear congruential generator.
class Noise {
 public:
  double Next() {
    state_ = state_ * 1664525U + 1013904223U;
    return static_cast<double>(state_) / 2147483648.0 - 1.0;
  }

 private:
  std::uint32_t state_ = 20U;
};

void Perform(const Line& line, double startMs, SampleRecording& recording,
             std::vector<double>& sound) {
  const double endMs = startMs + line.vowel.durationMs + kPauseMs;
  const std::vector<double> spoken = Speak(line.vowel, startMs, endMs, kRateHz);
  sound.insert(sound.end(), spoken.begin(), spoken.end());
  recording.vowels.push_back({startMs, line.vowel});
  recording.words.push_back({startMs, line.vowel.name});
  for (const TimedText& tone : line.tones) {
    recording.tones.push_back({startMs + tone.ms, tone.text});
  }
}

}  // namespace

SampleRecording MakeSampleRecording() {
  SampleRecording recording;
  recording.rateHz = kRateHz;
  // Each vowel brings the pause after it, so the sounds only need to be put end to end.
  std::vector<double> sound(static_cast<std::size_t>(std::ceil(kFirstOnsetMs * kRateHz / 1000.0)));
  double startMs = kFirstOnsetMs;
  for (const Line& line : Script()) {
    Perform(line, startMs, recording, sound);
    startMs += line.vowel.durationMs + kPauseMs;
  }
  Noise noise;
  for (const double x : sound) {
    const double rounded = std::floor(x + kNoise * noise.Next() + 0.5);
    recording.samples.push_back(static_cast<std::int16_t>(rounded));
  }
  return recording;
}

}  // namespace cantorix::synth
