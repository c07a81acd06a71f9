// verb_measure.cpp - one row for each recording: what a stretch of it measures in all. Pitch and
// intensity are those of the whole recording, as in the desktop.
#include <algorithm>

#include "analysisview/spectrogram_view.h"
#include "batch/batch_view.h"
#include "batch/log_rows.h"
#include "batch/table.h"
#include "batch/verbs.h"
#include "mainview/selection_statistics.h"
#include "measure/lpc_order.h"
#include "platform/numbers.h"

namespace cantorix::batch {
namespace {

constexpr double kColumnStepMs = 10.0;

// The formants every 10 ms of the stretch, as the verb formants gives them.
bool FindFormants(Session& session, CSpectrogramView& spectrogram) {
  CSonadexDoc& document = session.document();
  SpectrogramSettings& settings = document.settings.spectrogram;
  settings.trackFormants = 1;
  SettleLpcOrder(document, session.request(), session.Remarks(), settings.lpcOrder);
  const SampleRange range = session.Range();
  const double step = kColumnStepMs * document.channel().sampleRateHz * 0.001;
  const std::int64_t columns = std::max<std::int64_t>(Truncate(range.length() / step), 1);
  return spectrogram.ComputeSpectrogram(
      {range.start, range.start + static_cast<double>(columns) * step},
      {columns, session.request().rows, false});
}

std::optional<SelectionStatistics> Measured(Session& session, BatchView& batch) {
  if (!batch.AnalysePitch(Stretch::kAll)) return std::nullopt;
  CSpectrogramView spectrogram(session.document());
  const bool found = FindFormants(session, spectrogram);
  const Request& request = session.request();
  const MsSpan span{request.fromMs.value_or(0.0),
                    std::min(request.toMs.value_or(batch.view().channel().totalDurationMs),
                             batch.view().channel().totalDurationMs)};
  return StatisticsOf(batch.view(), span, found ? &spectrogram.spectrogram() : nullptr);
}

}  // namespace

std::string MeasureHeader() {
  std::string header;
  for (const StatisticsName& name : kStatisticsNames) {
    header += (header.empty() ? "" : "\t") + std::string(name.column);
  }
  return header + '\n';
}

bool WriteMeasure(Session& session, bool namesFile, TextSink& sink) {
  BatchView batch(session);
  const auto measured = Measured(session, batch);
  if (!measured) return false;
  TableRows rows(sink, session.request().exact, namesFile ? session.file() : "");
  for (const auto& value : StatisticsValues(*measured, 0)) {
    value ? rows.Cell(*value) : rows.Cell("-");
  }
  rows.EndRow();
  rows.Flush();
  return true;
}

bool LogMeasure(Session& session, TextSink& sink) {
  BatchView batch(session);
  const auto measured = Measured(session, batch);
  if (!measured) return false;
  LogRows rows(sink, kStatisticsNames.size());
  rows.Append(StatisticsEntry(batch.view(), *measured));
  rows.Flush();
  return true;
}

}  // namespace cantorix::batch
