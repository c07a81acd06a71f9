// verb_spectrogram.cpp - the level matrix as a table, one row per column of the picture.
#include "batch/formant_cells.h"
#include "batch/table.h"
#include "batch/verbs.h"
#include "windows/spectrogram_view.h"

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

void WriteMatrix(const Spectrogram& spectrogram, double msPerSample, TableRows& rows) {
  for (std::int64_t column = 0; column < spectrogram.columns; ++column) {
    rows.Cell(spectrogram.StartOf(column) * msPerSample);
    for (const double level : spectrogram.Column(column)) rows.Cell(level);
    if (!spectrogram.formants.empty()) {
      WriteFormantCells(spectrogram.formants[static_cast<std::size_t>(column)], rows);
    }
    rows.EndRow();
  }
}

}  // namespace

bool WriteSpectrogram(Session& session, bool namesFile, TextSink& sink) {
  CSonadexDoc& document = session.document();
  const Request& request = session.request();
  document.settings.spectrogram.trackFormants = request.formantColumns ? 1 : 0;
  CSpectrogramView view(document);
  if (!view.ComputeSpectrogram(session.Range(), {request.columns, request.rows})) {
    session.SayNoResult("no spectrogram: the recording has no sampling rate to go by");
    return false;
  }
  TableRows rows(sink, request.exact, namesFile ? session.file() : "");
  WriteHeader(view.spectrogram(), rows);
  WriteMatrix(view.spectrogram(), document.channel().msPerSample(), rows);
  rows.Flush();
  return true;
}

}  // namespace cantorix::batch
