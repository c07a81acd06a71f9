// spectrogram_log.h - the rows that the spectrogram window enters into the measurement log.
// Every number has one decimal. The views hand the rows to the log.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/spectrogram.h"
#include "mainview/log_entry.h"

namespace cantorix {

// A time in ms is written as ms * timeFactor: 1 in milliseconds, 0.001 in seconds.
struct SpectrogramLogContext {
  std::string source;
  double msPerSample = 0.0;
  double timeFactor = 1.0;
};

// "-" for a column without such a formant, the frequency in Hz otherwise.
std::string FormantText(std::uint16_t hz);

// The same for a window whose picture ends at `maxHz`: "↑ 6120.0" above it.
std::string ShownFormantText(std::uint16_t hz, double maxHz);

// The column whose stretch holds `ms`; -1 outside the picture.
std::int64_t ColumnAt(const Spectrogram& spectrogram, double msPerSample, double ms);

// The row whose band holds `hz`; -1 outside the picture.
std::int64_t RowAt(const Spectrogram& spectrogram, double hz);

// The level at a time and frequency, dB; nothing outside the picture or without levels.
std::optional<double> LevelAt(const Spectrogram& spectrogram, double msPerSample, double ms,
                              double hz);

LogEntry SpectrogramMarkerEntry(const SpectrogramLogContext& context, double ms, double hz);

// The formants of the column under the cursor; nothing outside the picture or without tracking.
std::vector<LogEntry> SpectrogramFormantsEntries(const SpectrogramLogContext& context,
                                                 const Spectrogram& spectrogram, double ms);

// The formants of every column, at the time where its frame starts.
std::vector<LogEntry> SpectrogramFormantsAllEntries(const SpectrogramLogContext& context,
                                                    const Spectrogram& spectrogram);

// The column under the cursor, one row per display row from 0 Hz upward: frequency and level.
std::vector<LogEntry> SpectrogramEntireFrameEntries(const SpectrogramLogContext& context,
                                                    const Spectrogram& spectrogram, double ms);

}  // namespace cantorix
