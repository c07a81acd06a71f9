// verb_spectrum.cpp - two tables: the spectra over frequency, then the formants.
#include "analysisview/fft_lpc_log.h"
#include "analysisview/fft_lpc_view.h"
#include "batch/log_rows.h"
#include "batch/table.h"
#include "batch/verbs.h"
#include "measure/analyses.h"
#include "settings/settings.h"

namespace cantorix::batch {
namespace {

void WriteTables(const Spectrum& spectrum, TableRows& rows) {
  rows.Header({"frequency_hz", "fft_db", "lpc_db"});
  for (std::size_t j = 0; j < spectrum.fftDb.size(); ++j) {
    rows.Append({spectrum.FrequencyHz(j), spectrum.fftDb[j], spectrum.lpcDb[j]});
  }
  rows.EmptyLine();
  rows.Header({"formant", "frequency_hz", "bandwidth_hz"});
  for (std::size_t i = 0; i < kFormants; ++i) {
    rows.Cell("F" + std::to_string(i + 1));
    rows.Cell(spectrum.formants.frequencyHz[i]);
    rows.Cell(spectrum.formants.bandwidthHz[i]);
    rows.EndRow();
  }
}

}  // namespace

bool WriteSpectrum(Session& session, bool namesFile, TextSink& sink) {
  CSonadexDoc& document = session.document();
  CFFTLPCView view(document);
  MeasureSpectrum(document, session.request(), session.Remarks(), view);
  TableRows rows(sink, session.request().exact, namesFile ? session.file() : "");
  WriteTables(view.spectrum(), rows);
  rows.Flush();
  return true;
}

bool LogSpectrum(Session& session, TextSink& sink) {
  CSonadexDoc& document = session.document();
  CFFTLPCView view(document);
  MeasureSpectrum(document, session.request(), session.Remarks(), view);
  LogRows rows(sink, kSpectrumValues);
  rows.Append(FftLpcFormantsEntry(document.title(), view.spectrum()));
  AppendAll(
      FftLpcEntireFrameEntries(document.title(), view.spectrum(), document.settings.logStepHz),
      rows);
  rows.Flush();
  return true;
}

}  // namespace cantorix::batch
