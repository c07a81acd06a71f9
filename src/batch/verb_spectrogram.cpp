// verb_spectrogram.cpp - the level matrix as a table, one row per column of the picture.
#include <algorithm>
#include <span>
#include <vector>

#include "analysisview/spectrogram_view.h"
#include "batch/formant_cells.h"
#include "batch/log_rows.h"
#include "batch/long_table.h"
#include "batch/spool.h"
#include "batch/verbs.h"
#include "measure/analyses.h"
#include "settings/settings.h"

namespace cantorix::batch {
namespace {

void WriteHeader(const Spectrogram& spectrogram, TableRows& rows) {
  rows.BeginHeader();
  rows.Cell("time_ms");
  for (int row = 0; row < spectrogram.rows; ++row) rows.Cell(spectrogram.FrequencyHz(row));
  if (!spectrogram.formants.empty()) {
    for (const char* name : {"F1", "F2", "F3", "F4", "F5"}) rows.Cell(name);
  }
  rows.EndRow();
}

// The levels of all columns, unreferenced.
class LevelSpool {
 public:
  // Throws FileError when there is no room for them.
  explicit LevelSpool(const Request& request) {
    constexpr double kMost = 0x1p62;
    const double bytes = static_cast<double>(request.columns) * request.rows * sizeof(double);
    Spool::RequireRoom(static_cast<std::int64_t>(std::min(bytes, kMost)));
  }
  void Append(std::span<const double> levels) { spool_.Append(std::as_bytes(levels)); }
  // Those of the columns [first, first + count), above the floor of the picture.
  std::vector<double> Read(const Spectrogram& spectrogram, std::int64_t first, std::int64_t count,
                           std::int32_t dynamicRangeDb) {
    std::vector<double> levels(static_cast<std::size_t>(count * spectrogram.rows));
    spool_.Read(first * spectrogram.rows * std::int64_t{sizeof(double)},
                std::as_writable_bytes(std::span(levels)));
    ReferenceLevels(levels, spectrogram, dynamicRangeDb);
    return levels;
  }

 private:
  Spool spool_;
};

void WriteMatrix(Session& session, bool namesFile, const Spectrogram& spectrogram,
                 LevelSpool& spool, TextSink& sink) {
  constexpr std::int64_t kLevelsAtOnce = std::int64_t{1} << 20;
  const CSonadexDoc& document = session.document();
  const double msPerSample = document.channel().msPerSample();
  const std::int64_t stretch = kLevelsAtOnce / spectrogram.rows + 1;
  for (std::int64_t first = 0; first < spectrogram.columns; first += stretch) {
    const std::int64_t count = std::min(stretch, spectrogram.columns - first);
    const std::vector<double> levels =
        spool.Read(spectrogram, first, count, document.settings.spectrogram.dynamicRangeDb);
    WriteRows(session, namesFile, sink, count, spectrogram.rows,
              [&](std::int64_t row, TableRows& rows) {
                const std::int64_t column = first + row;
                rows.Cell(spectrogram.StartOf(column) * msPerSample);
                const auto height = static_cast<std::size_t>(spectrogram.rows);
                const auto at = static_cast<std::size_t>(row) * height;
                for (const double level : std::span(levels).subspan(at, height)) rows.Cell(level);
                if (!spectrogram.formants.empty()) {
                  WriteFormantCells(spectrogram.formants[static_cast<std::size_t>(column)], rows);
                }
                rows.EndRow();
              });
  }
}

// The sample in the middle of a column, which is in no other one however it is rounded.
double MiddleOf(const Spectrogram& spectrogram, std::int64_t column) {
  return (spectrogram.StartOf(column) + spectrogram.StartOf(column + 1)) * 0.5;
}

}  // namespace

bool WriteSpectrogram(Session& session, bool namesFile, TextSink& sink) {
  CSpectrogramView view(session.document());
  LevelSpool spool(session.request());
  MeasureSpectrogram(session.document(), session.request(), session.Remarks(), view,
                     [&spool](std::span<const double> levels) { spool.Append(levels); });
  TableRows header(sink, session.request().exact, namesFile ? session.file() : "");
  WriteHeader(view.spectrogram(), header);
  header.Flush();
  WriteMatrix(session, namesFile, view.spectrogram(), spool, sink);
  return true;
}

std::size_t SpectrogramValues(const Request& request) {
  return request.formantColumns ? kFormantValues : 2;
}

bool LogSpectrogram(Session& session, TextSink& sink) {
  CSpectrogramView view(session.document());
  MeasureSpectrogram(session.document(), session.request(), session.Remarks(), view);
  const Spectrogram& spectrogram = view.spectrogram();
  const SpectrogramLogContext context = LogContextOf(session.document());
  LogRows rows(sink, SpectrogramValues(session.request()));
  for (std::int64_t column = 0; column < spectrogram.columns; ++column) {
    const double ms = MiddleOf(spectrogram, column) * context.msPerSample;
    AppendAll(SpectrogramEntireFrameEntries(context, spectrogram, ms), rows);
  }
  AppendAll(SpectrogramFormantsAllEntries(context, spectrogram), rows);
  rows.Flush();
  return true;
}

}  // namespace cantorix::batch
