// spectrogram_log.cpp - from a time and a frequency to a column and a row, and their texts.
#include "analysisview/spectrogram_log.h"

#include "platform/numbers.h"

namespace cantorix {
namespace {

// Columns: times of up to ten hours, taken apart to less than a sample.
constexpr double kRoundingOfPlace = 1e-5;

LogEntry FormantsRow(const SpectrogramLogContext& context, const char* heading, double ms,
                     const FormantColumn& formants) {
  LogEntry entry{context.source, heading, {FormatOneDecimal(ms * context.timeFactor)}};
  for (const std::uint16_t hz : formants) entry.columns.push_back(FormantText(hz));
  return entry;
}

}  // namespace

std::string FormantText(std::uint16_t hz) {
  return hz == kNoFormantHz ? std::string("-") : FormatOneDecimal(hz);
}

std::string ShownFormantText(std::uint16_t hz, double maxHz) {
  return (hz != kNoFormantHz && hz > maxHz ? "\u2191 " : "") + FormantText(hz);
}

std::int64_t ColumnAt(const Spectrogram& spectrogram, double msPerSample, double ms) {
  const double startMs = spectrogram.range.start * msPerSample;
  const double lengthMs = spectrogram.range.length() * msPerSample;
  const auto columns = static_cast<double>(spectrogram.columns);
  // A column's own time belongs to that column whatever its last digits.
  const double place = (ms - startMs) * columns / lengthMs + kRoundingOfPlace;
  return place >= 0.0 && place < columns ? Truncate(place) : -1;
}

std::int64_t RowAt(const Spectrogram& spectrogram, double hz) {
  const double place = hz * spectrogram.rows / spectrogram.maxHz + kRoundingOfPlace;
  return place >= 0.0 && place < spectrogram.rows ? Truncate(place) : -1;
}

std::optional<double> LevelAt(const Spectrogram& spectrogram, double msPerSample, double ms,
                              double hz) {
  if (!spectrogram.computed() || !spectrogram.levels) return std::nullopt;
  const std::int64_t column = ColumnAt(spectrogram, msPerSample, ms);
  const std::int64_t row = RowAt(spectrogram, hz);
  if (column < 0 || row < 0) return std::nullopt;
  return spectrogram.Column(column)[static_cast<std::size_t>(row)];
}

LogEntry SpectrogramMarkerEntry(const SpectrogramLogContext& context, double ms, double hz) {
  return {context.source,
          "Spec. Marker Entry: time, frequency",
          {FormatOneDecimal(ms * context.timeFactor), FormatOneDecimal(hz)}};
}

std::vector<LogEntry> SpectrogramFormantsEntries(const SpectrogramLogContext& context,
                                                 const Spectrogram& spectrogram, double ms) {
  const std::int64_t column = ColumnAt(spectrogram, context.msPerSample, ms);
  if (column < 0 || spectrogram.formants.empty()) return {};
  return {FormantsRow(context, "Spec. Formants Entry: time, F1, F2, F3, F4, F5", ms,
                      spectrogram.formants[static_cast<std::size_t>(column)])};
}

std::vector<LogEntry> SpectrogramFormantsAllEntries(const SpectrogramLogContext& context,
                                                    const Spectrogram& spectrogram) {
  std::vector<LogEntry> entries;
  std::int64_t column = 0;
  for (const FormantColumn& formants : spectrogram.formants) {
    const double ms = spectrogram.StartOf(column++) * context.msPerSample;
    entries.push_back(
        FormantsRow(context, "Spec. Formants All Entry: time, F1, F2, F3, F4, F5", ms, formants));
  }
  return entries;
}

std::vector<LogEntry> SpectrogramEntireFrameEntries(const SpectrogramLogContext& context,
                                                    const Spectrogram& spectrogram, double ms) {
  const std::int64_t column = ColumnAt(spectrogram, context.msPerSample, ms);
  if (column < 0 || !spectrogram.levels) return {};
  std::vector<LogEntry> entries;
  int row = 0;
  for (const double levelDb : spectrogram.Column(column)) {
    entries.push_back(
        {context.source,
         "Spec. Entire Frame Entry: frequency, dB",
         {FormatOneDecimal(spectrogram.FrequencyHz(row++)), FormatOneDecimal(levelDb)}});
  }
  return entries;
}

}  // namespace cantorix
