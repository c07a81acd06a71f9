// verb_pitch.cpp - the pitch track as a table, one row per entry.
#include "analysis/pitch.h"
#include "batch/batch_view.h"
#include "batch/log_rows.h"
#include "batch/table.h"
#include "batch/verbs.h"
#include "mainview/log_commands.h"
#include "settings/settings.h"

namespace cantorix::batch {

bool WritePitch(Session& session, bool namesFile, TextSink& sink) {
  CSonadexDoc& document = session.document();
  const CChannel& channel = document.channel();
  const PitchResult result =
      ComputePitch(document.Samples(), session.Range(), channel.sampleRateHz,
                   document.settings.pitch, session.progress(), channel.totalLength);
  if (!result.PitchValid) {
    session.prompts().Say(result.badParameters ? std::string(kBadParametersText)
                                               : std::string(kNoPitchTrack));
    return false;
  }
  TableRows rows(sink, session.request().exact, namesFile ? session.file() : "");
  for (std::int64_t i = 0; i < result.count(); ++i) {
    rows.Append(
        {result.TimeMs(i, channel.msPerSample()), result.PitchTrack[static_cast<std::size_t>(i)]});
  }
  rows.Flush();
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
