// verb_pitch.cpp - the pitch track as a table, one row per entry.
#include "batch/batch_view.h"
#include "batch/log_rows.h"
#include "batch/long_table.h"
#include "batch/verbs.h"
#include "mainview/log_commands.h"
#include "measure/analyses.h"

namespace cantorix::batch {

bool WritePitch(Session& session, bool namesFile, TextSink& sink) {
  const CChannel& channel = session.document().channel();
  const PitchResult result = MeasurePitch(session.document(), session.request());
  const double msPerSample = channel.msPerSample();
  WriteRows(session, namesFile, sink, result.count(), 2, [&](std::int64_t i, TableRows& rows) {
    rows.Append({result.TimeMs(i, msPerSample), result.PitchTrack[static_cast<std::size_t>(i)]});
  });
  return true;
}

bool LogTracks(Session& session, TextSink& sink) {
  BatchView batch(session);
  const bool ranged = batch.SelectRange();
  if (!batch.AnalysePitch(ranged ? Stretch::kSelection : Stretch::kAll)) return false;
  LogRows rows(sink, kTrackValues);
  EnterIntoLog(batch.view(), LogCommand::kPitchAll, rows);
  rows.Flush();
  return true;
}

}  // namespace cantorix::batch
