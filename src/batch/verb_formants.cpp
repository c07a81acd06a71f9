// verb_formants.cpp - the formant tracks of a spectrogram whose picture nobody needs.
#include "analysisview/spectrogram_view.h"
#include "batch/formant_cells.h"
#include "batch/log_rows.h"
#include "batch/long_table.h"
#include "batch/verbs.h"
#include "measure/analyses.h"

namespace cantorix::batch {
bool WriteFormants(Session& session, bool namesFile, TextSink& sink) {
  CSonadexDoc& document = session.document();
  CSpectrogramView view(document);
  MeasureFormants(session.document(), session.request(), session.Remarks(), view);
  const Spectrogram& spectrogram = view.spectrogram();
  const double msPerSample = document.channel().msPerSample();
  WriteRows(session, namesFile, sink, spectrogram.columns, 1 + static_cast<int>(kFormants),
            [&](std::int64_t column, TableRows& rows) {
              rows.Cell(spectrogram.StartOf(column) * msPerSample);
              WriteFormantCells(spectrogram.formants[static_cast<std::size_t>(column)], rows);
              rows.EndRow();
            });
  return true;
}

bool LogFormants(Session& session, TextSink& sink) {
  CSpectrogramView view(session.document());
  MeasureFormants(session.document(), session.request(), session.Remarks(), view);
  LogRows rows(sink, kFormantValues);
  AppendAll(SpectrogramFormantsAllEntries(LogContextOf(session.document()), view.spectrogram()),
            rows);
  rows.Flush();
  return true;
}

}  // namespace cantorix::batch
