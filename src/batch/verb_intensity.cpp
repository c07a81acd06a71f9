// verb_intensity.cpp - the level contour as a table, one row per frame or per sample.
#include "batch/table.h"
#include "batch/verbs.h"
#include "measure/analyses.h"

namespace cantorix::batch {

bool WriteIntensity(Session& session, bool namesFile, TextSink& sink) {
  const CChannel& channel = session.document().channel();
  const IntensityResult result = MeasureIntensity(session.document(), session.request());
  TableRows rows(sink, session.request().exact, namesFile ? session.file() : "");
  const LevelTrack& track = result.IntensityTrack;
  const double start = result.range.start;
  if (session.request().perSample) {
    for (std::int64_t k = 0; k < track.size(); ++k) {
      rows.Append({(start + static_cast<double>(k)) * channel.msPerSample(), track[k]});
    }
  } else {
    double frame = 0.0;
    for (const double level : track.levels()) {
      rows.Append({(start + frame * track.stepSamples()) * channel.msPerSample(), level});
      frame += 1.0;
    }
  }
  rows.Flush();
  return true;
}

}  // namespace cantorix::batch
