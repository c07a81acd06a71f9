// verb_formants.cpp - the formant tracks of a spectrogram whose picture nobody needs.
#include <algorithm>

#include "analysisview/spectrogram_view.h"
#include "batch/formant_cells.h"
#include "batch/log_rows.h"
#include "batch/lpc_order.h"
#include "batch/option_limits.h"
#include "batch/table.h"
#include "batch/verbs.h"
#include "platform/numbers.h"

namespace cantorix::batch {
namespace {

struct Division {
  SampleRange range;
  std::int64_t columns;
};

// With a step, the rows stand exactly that far apart and the stretch ends with the last whole one.
Division DivisionOf(const Session& session, double rateHz) {
  const SampleRange range = session.Range();
  const auto& stepMs = session.request().columnStepMs;
  if (!stepMs) return {range, session.request().columns};
  const double step = *stepMs * rateHz * 0.001;
  const std::int64_t columns = std::max<std::int64_t>(Truncate(range.length() / step), 1);
  return {{range.start, range.start + static_cast<double>(columns) * step}, columns};
}

bool Compute(Session& session, CSpectrogramView& view) {
  RequireSpectrogramRange(session);
  CSonadexDoc& document = session.document();
  document.settings.spectrogram.trackFormants = 1;
  SettleLpcOrder(session, document.settings.spectrogram.lpcOrder);
  const Division division = DivisionOf(session, document.channel().sampleRateHz);
  const SpectrogramSize size{division.columns, session.request().rows, false};
  if (view.ComputeSpectrogram(division.range, size)) return true;
  session.prompts().Say("no formants: the recording has no sampling rate to go by");
  return false;
}

}  // namespace

bool WriteFormants(Session& session, bool namesFile, TextSink& sink) {
  CSonadexDoc& document = session.document();
  CSpectrogramView view(document);
  if (!Compute(session, view)) return false;
  const Spectrogram& spectrogram = view.spectrogram();
  TableRows rows(sink, session.request().exact, namesFile ? session.file() : "");
  for (std::int64_t column = 0; column < spectrogram.columns; ++column) {
    rows.Cell(spectrogram.StartOf(column) * document.channel().msPerSample());
    WriteFormantCells(spectrogram.formants[static_cast<std::size_t>(column)], rows);
    rows.EndRow();
  }
  rows.Flush();
  return true;
}

bool LogFormants(Session& session, TextSink& sink) {
  CSpectrogramView view(session.document());
  if (!Compute(session, view)) return false;
  LogRows rows(sink, kFormantValues);
  AppendAll(SpectrogramFormantsAllEntries(LogContextOf(session.document()), view.spectrogram()),
            rows);
  rows.Flush();
  return true;
}

}  // namespace cantorix::batch
