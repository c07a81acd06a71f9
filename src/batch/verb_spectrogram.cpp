// verb_spectrogram.cpp - the level matrix as a table, one row per column of the picture.
#include "analysisview/spectrogram_view.h"
#include "batch/formant_cells.h"
#include "batch/log_rows.h"
#include "batch/table.h"
#include "batch/verbs.h"
#include "measure/analyses.h"

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

// The sample in the middle of a column, which is in no other one however it is rounded.
double MiddleOf(const Spectrogram& spectrogram, std::int64_t column) {
  return (spectrogram.StartOf(column) + spectrogram.StartOf(column + 1)) * 0.5;
}

}  // namespace

bool WriteSpectrogram(Session& session, bool namesFile, TextSink& sink) {
  CSpectrogramView view(session.document());
  MeasureSpectrogram(session.document(), session.request(), session.Remarks(), view);
  TableRows rows(sink, session.request().exact, namesFile ? session.file() : "");
  WriteHeader(view.spectrogram(), rows);
  WriteMatrix(view.spectrogram(), session.document().channel().msPerSample(), rows);
  rows.Flush();
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
