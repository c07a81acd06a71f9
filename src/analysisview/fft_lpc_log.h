// fft_lpc_log.h - the rows that the FFT/LPC window enters into the measurement log.
// Every number has one decimal. The views hand the rows to the log.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "analysis/spectrum.h"
#include "mainview/log_entry.h"

namespace cantorix {

// The display point of `count` over 0 Hz to `maxHz` that holds `hz`, -1 outside them. The frequency
// of a point is held by that point whatever its last digits.
std::int64_t DisplayPointAt(std::size_t count, double hz, double maxHz);
// The value at `hz` of an array over the display points of 0 Hz to `maxHz`; 0 outside them.
double DisplayValueAt(std::span<const double> values, double hz, double maxHz);

// The frequency under the cursor and the FFT level there.
LogEntry FftLpcMarkerEntry(const std::string& source, const Spectrum& spectrum, double hz);

// F1 ... F5, then BW1 ... BW5; -1.0 where there is none.
LogEntry FftLpcFormantsEntry(const std::string& source, const Spectrum& spectrum);

// One row every `stepHz` (at least 1) from 0 Hz to below the top of the display: frequency, FFT
// level, LPC level. Not more than 250,000 rows, which is every Hz up to a rate of 500 kHz.
std::vector<LogEntry> FftLpcEntireFrameEntries(const std::string& source, const Spectrum& spectrum,
                                               std::int32_t stepHz);

}  // namespace cantorix
