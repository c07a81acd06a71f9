// sample_recording.h - the recording that comes with the system: vowels with a known melody and
// known formants, their labels, and the tables that say what a measurement should find.
// Everything follows from one script of vowels; nothing here writes a file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "synth/vowel.h"

namespace cantorix::synth {

struct SpokenVowel {
  double startMs = 0.0;
  Vowel vowel;
};

struct TimedText {
  double ms = 0.0;
  std::string text;  // UTF-8
};

struct SampleRecording {
  double rateHz = 0.0;
  std::vector<std::int16_t> samples;
  std::vector<SpokenVowel> vowels;  // in time order
  std::vector<TimedText> words;     // vowel names at the onsets
  std::vector<TimedText> tones;     // at the turning points of the melody

  double durationMs() const { return static_cast<double>(samples.size()) * 1000.0 / rateHz; }
};

// Makes the recording; the same bytes on every machine.
SampleRecording MakeSampleRecording();

// Tab-separated tables with a header line, decimals with a point.
// Pitch: time (ms) on a grid of 10 ms from 0 and the instantaneous frequency (Hz) of the glottal
// pulse train at that time, 0 where the glottis is at rest.
std::string PitchTruthTable(const SampleRecording& recording);
// Formants: per vowel its name, start, end and middle (ms), F1 ... F5, B1 ... B5 and the
// fundamental, all at the middle (Hz).
std::string FormantTruthTable(const SampleRecording& recording);

}  // namespace cantorix::synth
