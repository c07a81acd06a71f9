// verb_spectrum.cpp - two tables: the spectra over frequency, then the formants.
#include "analysis/spectrum_limits.h"
#include "analysisview/fft_lpc_log.h"
#include "analysisview/fft_lpc_view.h"
#include "batch/log_rows.h"
#include "batch/lpc_order.h"
#include "batch/outcome.h"
#include "batch/table.h"
#include "batch/verbs.h"
#include "platform/numbers.h"

namespace cantorix::batch {
namespace {

SpectrumPlace PlaceOf(const Session& session, const CChannel& channel) {
  const auto& atMs = session.request().atMs;
  if (!atMs) return {0.0, session.Range()};
  return {channel.PointAtTime(*atMs).samples, {}};
}

// Throws WrongUsage, naming the option, for what does not fit the recording's rate.
void RequireFit(const CSonadexDoc& document) {
  const double rateHz = document.channel().sampleRateHz;
  const auto refuse = [&](const char* option, std::int64_t most, std::int32_t given) {
    throw WrongUsage(std::string(option) + " may be " + std::to_string(most) + " at most, not " +
                     std::to_string(given) + ", at the recording's rate of " +
                     FormatOneDecimal(rateHz) + " Hz");
  };
  const FftLpcSettings& settings = document.settings.fftLpc;
  if (settings.rangeHz > HighestRangeHz(rateHz)) {
    refuse("--fmax", HighestRangeHz(rateHz), settings.rangeHz);
  }
  if (settings.lpcOrder > MostLpcCoefficients(rateHz)) {
    refuse("--lpc", MostLpcCoefficients(rateHz), settings.lpcOrder);
  }
}

bool Analyse(Session& session, CFFTLPCView& view) {
  SettleLpcOrder(session, session.document().settings.fftLpc.lpcOrder);
  RequireFit(session.document());
  return view.AnalyseSpectrum(PlaceOf(session, session.document().channel()),
                              session.request().displayPoints);
}

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
  if (!Analyse(session, view)) return false;
  TableRows rows(sink, session.request().exact, namesFile ? session.file() : "");
  WriteTables(view.spectrum(), rows);
  rows.Flush();
  return true;
}

bool LogSpectrum(Session& session, TextSink& sink) {
  CSonadexDoc& document = session.document();
  CFFTLPCView view(document);
  if (!Analyse(session, view)) return false;
  LogRows rows(sink, kSpectrumValues);
  rows.Append(FftLpcFormantsEntry(document.title(), view.spectrum()));
  AppendAll(
      FftLpcEntireFrameEntries(document.title(), view.spectrum(), document.settings.logStepHz),
      rows);
  rows.Flush();
  return true;
}

}  // namespace cantorix::batch
