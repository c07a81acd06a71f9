// selection_statistics.h - what a stretch of the recording measures in all: its pitch, intensity,
// amplitude and formants, as numbers, as texts, and as one row of the log.
// Relies on the tracks of the view and on a spectrogram made elsewhere. Analyses nothing itself.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/spectrogram.h"
#include "mainview/log_entry.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

class WaveformPyramid;

struct MsSpan {
  double startMs = 0.0;
  double endMs = 0.0;  // included
};

// Over the voiced entries of the pitch track, Hz.
struct PitchStatistics {
  double least = 0.0;
  double most = 0.0;
  double mean = 0.0;
  double median = 0.0;                // between the two in the middle where there are two
  std::optional<double> deviation{};  // root of the squares over n - 1; none of a single entry
};

struct SelectionStatistics {
  MsSpan span;
  std::int64_t entries = 0;  // of the pitch track, at times inside the span
  std::int64_t voiced = 0;   // of these
  std::optional<PitchStatistics> pitch{};
  // Of the intensity frames that start inside the span: the level of the mean power, dB, and the
  // highest level. Frames without a level (of zeros) count as no power.
  std::optional<double> meanDb{}, mostDb{};
  std::optional<std::int16_t> leastSample{}, mostSample{};
  std::int64_t columns = 0;  // of the spectrogram that start inside the span
  // F1 ... F5: mean over the columns that have the formant, Hz.
  std::array<std::optional<double>, kFormants> formantHz{};
};

// Takes what there is: without a track, or a spectrogram (null), its values stay empty. With the
// pyramid of the recording's samples a long stretch is not read again. Throws FileError when the
// samples cannot be read.
SelectionStatistics StatisticsOf(const CSonadexView& view, const MsSpan& span,
                                 const Spectrogram* spectrogram,
                                 const WaveformPyramid* pyramid = nullptr);

// What the values are called in the log and as columns of a table.
struct StatisticsName {
  const char* inLog;
  const char* column;
};
inline constexpr std::array kStatisticsNames{
    StatisticsName{"start", "start_ms"},
    StatisticsName{"end", "end_ms"},
    StatisticsName{"duration", "duration_ms"},
    StatisticsName{"pitch min", "pitch_min_hz"},
    StatisticsName{"pitch max", "pitch_max_hz"},
    StatisticsName{"pitch mean", "pitch_mean_hz"},
    StatisticsName{"pitch median", "pitch_median_hz"},
    StatisticsName{"pitch SD", "pitch_sd_hz"},
    StatisticsName{"voiced %", "voiced_percent"},
    StatisticsName{"intensity mean", "intensity_mean_db"},
    StatisticsName{"intensity max", "intensity_max_db"},
    StatisticsName{"amplitude min", "amplitude_min"},
    StatisticsName{"amplitude max", "amplitude_max"},
    StatisticsName{"F1", "F1"},
    StatisticsName{"F2", "F2"},
    StatisticsName{"F3", "F3"},
    StatisticsName{"F4", "F4"},
    StatisticsName{"F5", "F5"},
};
// The values in the order of the names, nothing for what is missing; times in a time base (0 ms,
// 1 seconds).
std::vector<std::optional<double>> StatisticsValues(const SelectionStatistics& statistics,
                                                    std::int32_t timeBase);

// "Statistics Entry: start, end, duration, ...": one decimal, times in the time base of the
// display,
// "-" for what is missing.
LogEntry StatisticsEntry(const CSonadexView& view, const SelectionStatistics& statistics);

}  // namespace cantorix
