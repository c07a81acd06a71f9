// fft_lpc_log.cpp - from a frequency to a display point, and its texts.
#include "analysisview/fft_lpc_log.h"

#include <algorithm>

#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr double kRoundingOfPlace = 1e-9;  // display points

// A row for every Hz of half a million samples a second; only the rate of a false header has more.
constexpr std::size_t kMostEntries = 250'000;

}  // namespace

std::int64_t DisplayPointAt(std::size_t count, double hz, double maxHz) {
  const auto points = static_cast<double>(count);
  const double place = hz * points / maxHz;
  if (!(place >= 0.0 && place < points)) return -1;
  // j * maxHz / points * points / maxHz may come out a digit below j.
  const std::int64_t point = Truncate(place + kRoundingOfPlace);
  return std::min(point, static_cast<std::int64_t>(count) - 1);
}

double DisplayValueAt(std::span<const double> values, double hz, double maxHz) {
  const std::int64_t point = DisplayPointAt(values.size(), hz, maxHz);
  return point < 0 ? 0.0 : values[static_cast<std::size_t>(point)];
}

LogEntry FftLpcMarkerEntry(const std::string& source, const Spectrum& spectrum, double hz) {
  const double levelDb = DisplayValueAt(spectrum.fftDb, hz, spectrum.maxHz);
  return {source,
          "FFT/LPC Marker Entry: freq., FFT_dB",
          {FormatOneDecimal(hz), FormatOneDecimal(levelDb)}};
}

LogEntry FftLpcFormantsEntry(const std::string& source, const Spectrum& spectrum) {
  LogEntry entry{source, "FFT/LPC Formants Entry: F1, F2, F3, F4, F5, BW1, BW2, BW3, BW4, BW5", {}};
  for (const double hz : spectrum.formants.frequencyHz) {
    entry.columns.push_back(FormatOneDecimal(hz));
  }
  for (const double hz : spectrum.formants.bandwidthHz) {
    entry.columns.push_back(FormatOneDecimal(hz));
  }
  return entry;
}

std::vector<LogEntry> FftLpcEntireFrameEntries(const std::string& source, const Spectrum& spectrum,
                                               std::int32_t stepHz) {
  std::vector<LogEntry> entries;
  const std::int64_t step = std::max<std::int32_t>(stepHz, 1);
  for (std::int64_t whole = 0; static_cast<double>(whole) < spectrum.maxHz; whole += step) {
    if (entries.size() == kMostEntries) break;
    const auto hz = static_cast<double>(whole);
    const double fftDb = DisplayValueAt(spectrum.fftDb, hz, spectrum.maxHz);
    const double lpcDb = DisplayValueAt(spectrum.lpcDb, hz, spectrum.maxHz);
    entries.push_back({source,
                       "FFT/LPC Entire Frame Entry: freq., FFT_dB, LPC_dB",
                       {FormatOneDecimal(hz), FormatOneDecimal(fftDb), FormatOneDecimal(lpcDb)}});
  }
  return entries;
}

}  // namespace cantorix
