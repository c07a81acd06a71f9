// truth_tables.cpp - the script of the sample recording as the tables of sample_recording.h.
#include <array>
#include <charconv>

#include "synth/sample_recording.h"

namespace cantorix::synth {
namespace {

constexpr double kGridMs = 10.0;

std::string Decimal(double x) {
  std::array<char, 32> text;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), x, std::chars_format::fixed, 3).ptr;
  return {text.data(), end};
}

double FundamentalAt(const SampleRecording& recording, double ms) {
  for (const SpokenVowel& spoken : recording.vowels) {
    const double local = ms - spoken.startMs;
    if (local >= 0.0 && local < spoken.vowel.durationMs) return spoken.vowel.pitch.Hz(local);
  }
  return 0.0;
}

}  // namespace

std::string PitchTruthTable(const SampleRecording& recording) {
  std::string table = "time_ms\tpitch_hz\n";
  for (int i = 0; i * kGridMs < recording.durationMs(); ++i) {
    const double ms = i * kGridMs;
    table += Decimal(ms) + "\t" + Decimal(FundamentalAt(recording, ms)) + "\n";
  }
  return table;
}

std::string FormantTruthTable(const SampleRecording& recording) {
  std::string table = "name\tstart_ms\tend_ms\tmiddle_ms";
  for (const char* const kind : {"F", "B"}) {
    for (int i = 1; i <= kFormantCount; ++i) table += "\t" + (kind + std::to_string(i)) + "_hz";
  }
  table += "\tF0_hz\n";
  for (const auto& [startMs, vowel] : recording.vowels) {
    const double half = 0.5 * vowel.durationMs;
    const Formants formants = vowel.FormantsAt(half);
    table += vowel.name;
    for (const double ms : {startMs, startMs + vowel.durationMs, startMs + half}) {
      table += "\t" + Decimal(ms);
    }
    for (const Formant& f : formants) table += "\t" + Decimal(f.hz);
    for (const Formant& f : formants) table += "\t" + Decimal(f.bandwidthHz);
    table += "\t" + Decimal(vowel.pitch.Hz(half)) + "\n";
  }
  return table;
}

}  // namespace cantorix::synth
