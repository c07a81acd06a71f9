// parameters.h - the options that set a field of the settings, one table for each measurement:
// their names, their fields and what they take. The command line and other front ends are made
// from them.
#pragma once

#include <span>
#include <string_view>

namespace cantorix {

enum class ParameterRule {
  kNumber,         // the dialog's limits alone
  kPositive,       // more than 0
  kNotNegative,    // 0 or more
  kFftSize,        // a power of two, 32 to 8192
  kPitchMethod,    // "cepstral" or "autocorrelation"
  kSwitch,         // off unless it is named
  kLpcOrder,       // a number, or "auto" for the usual order at a recording's rate
  kTrackingOrder,  // the same, 1 to 400
};

struct Parameter {
  const char* name;         // "low"
  const char* field;        // "pitch.lowHz"
  const char* description;  // for a help text
  ParameterRule rule = ParameterRule::kNumber;
};

std::span<const Parameter> PitchParameters();
std::span<const Parameter> IntensityParameters();
std::span<const Parameter> SpectrumParameters();
// Of the spectrogram and of its formants alone.
std::span<const Parameter> SpectrogramParameters();

inline constexpr std::string_view kAutomaticOrder = "auto";
inline constexpr int kMostColumns = 100000000;
inline constexpr int kMostRows = 100000;
inline constexpr int kMostDisplayPoints = 1000000;

}  // namespace cantorix
