// spectrogram.h - levels over time and frequency, one analysis frame per column, with the formants
// of each column.
// Relies on the power spectrum, linear prediction and the formant search. Levels only: turning
// them into colours is left to who draws them, so another colour needs no transform.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "analysis/formant_selection.h"
#include "analysis/sample_range.h"
#include "platform/progress.h"
#include "platform/sample_source.h"

namespace cantorix {

struct SpectrogramSettings;
class Workers;

// Takes the levels of the next columns, whole ones, in dB re a power of 1.
using LevelTaker = std::function<void(std::span<const double> levels)>;

struct SpectrogramRequest {
  SampleRange range;          // samples; column c stands at range.start + c * length / columns
  double totalSamples = 0.0;  // of the recording, not rounded
  double rateHz = 0.0;
  std::int64_t columns = 0;
  int rows = 0;
  bool keepLevels = true;   // false: only the formants are wanted
  bool keepSource = false;  // another dynamic range may be wanted later
  LevelTaker takeLevels{};  // the levels are given away as they come and none are kept
};

inline constexpr std::uint16_t kNoFormantHz = 65535;
inline constexpr std::uint16_t kSilentHz = 0;

// F1 ... F5 of a column in whole Hz, kNoFormantHz where there is none, kSilentHz all over in a
// column without sound.
using FormantColumn = std::array<std::uint16_t, kFormants>;

enum class SpectrogramOutcome {
  kNothing,        // no columns, no rows, or settings and a rate that nothing can be computed with
  kComputed,       // all columns are there
  kFormantFailure  // the polynomial of a column could not be factored; there are no columns
};

// What a picture is made of, whatever its dynamic range.
struct SpectrogramSource {
  std::unique_ptr<double[]> levels;     // dB re a power of 1, as in the picture
  std::vector<double> columnMaxima;     // dB
  double highest = 0.0;                 // dB, of all columns
  std::vector<FormantColumn> formants;  // of silent columns, too
};

struct Spectrogram {
  SpectrogramOutcome outcome = SpectrogramOutcome::kNothing;
  SampleRange range;
  std::int64_t columns = 0;
  int rows = 0;
  double maxHz = 0.0;                         // row r of R stands for r * maxHz / R
  std::unique_ptr<double[]> levels;           // columns x rows dB above the floor, column by column
  std::vector<FormantColumn> formants;        // one per column; empty without formant tracking
  double highest = 0.0;                       // dB re a power of 1, of all columns
  bool formantsFound = false;                 // in any column, silent ones included
  std::unique_ptr<SpectrogramSource> source;  // with keepSource

  bool computed() const { return outcome == SpectrogramOutcome::kComputed; }
  // The levels of a column from 0 Hz upward, each in 0 ... dynamic range.
  std::span<const double> Column(std::int64_t column) const {
    const auto height = static_cast<std::size_t>(rows);
    return {levels.get() + static_cast<std::size_t>(column) * height, height};
  }
  // Where a column's frame starts, in samples.
  double StartOf(std::int64_t column) const {
    return static_cast<double>(column) * (range.length() / static_cast<double>(columns)) +
           range.start;
  }
  double FrequencyHz(int row) const { return row * maxHz / rows; }
};

// Computes with the points, frequency range (at most the whole kHz within half of the rate),
// dynamic range, pre-emphasis, formant tracking and LPC order of `settings`. The levels count from
// the dynamic range below the highest level of the picture. The status text counts columns.
// Throws Abandoned when the user cancels or memory runs out, FileError when the store cannot be
// read. With `workers` long pictures take several threads, to the same digits.
Spectrogram ComputeSpectrogram(const SampleSource& samples, const SpectrogramRequest& request,
                               const SpectrogramSettings& settings, Progress& progress,
                               Workers* workers = nullptr);

// Levels that were given away become those that the picture would have kept.
void ReferenceLevels(std::span<double> levels, const Spectrogram& spectrogram,
                     std::int32_t dynamicRangeDb);

// The levels and the silence of a picture with a source in another dynamic range: the same numbers
// as computed anew with it, without a transform.
void ApplyDynamicRange(Spectrogram& spectrogram, std::int32_t dynamicRangeDb);

}  // namespace cantorix
