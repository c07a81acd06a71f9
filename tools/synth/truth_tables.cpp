// truth_tables.cpp - the script of the sample recording as the tables of sample_recording.h.
#include <array>
#include <charconv>

#include "synth/sample_recording.h"

namespace cantorix::synth {
namespace {

constexpr int kGridMs = 10;

// Appends a tab and the number with three decimals.
void AppendCell(std::string& table, double x) {
  std::array<char, 32> text;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), x, std::chars_format::fixed, 3).ptr;
  table += '\t';
  table.append(text.data(), end);
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
  for (int ms = 0; ms < recording.durationMs(); ms += kGridMs) {
    table += std::to_string(ms);
    AppendCell(table, FundamentalAt(recording, ms));
    table += '\n';
  }
  return table;
}

std::string FormantTruthTable(const SampleRecording& recording) {
  std::string table =
      "name\tstart_ms\tend_ms\tmiddle_ms\tF1_hz\tF2_hz\tF3_hz\tF4_hz\tF5_hz\t"
      "B1_hz\tB2_hz\tB3_hz\tB4_hz\tB5_hz\tF0_hz\n";
  for (const auto& [startMs, vowel] : recording.vowels) {
    const double half = 0.5 * vowel.durationMs;
    const Formants formants = vowel.FormantsAt(half);
    table += vowel.name;
    AppendCell(table, startMs);
    AppendCell(table, startMs + vowel.durationMs);
    AppendCell(table, startMs + half);
    for (const Formant& f : formants) AppendCell(table, f.hz);
    for (const Formant& f : formants) AppendCell(table, f.bandwidthHz);
    AppendCell(table, vowel.pitch.Hz(half));
    table += '\n';
  }
  return table;
}

}  // namespace cantorix::synth
