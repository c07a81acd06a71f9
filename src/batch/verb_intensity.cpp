// verb_intensity.cpp - the level contour as a table, one row per frame or per sample.
#include "batch/long_table.h"
#include "batch/verbs.h"
#include "measure/analyses.h"

namespace cantorix::batch {

bool WriteIntensity(Session& session, bool namesFile, TextSink& sink) {
  const CChannel& channel = session.document().channel();
  const IntensityResult result = MeasureIntensity(session.document(), session.request());
  const LevelTrack& track = result.IntensityTrack;
  const double start = result.range.start;
  const double msPerSample = channel.msPerSample();
  if (session.request().perSample) {
    WriteRows(session, namesFile, sink, track.size(), 2, [&](std::int64_t k, TableRows& rows) {
      rows.Append({(start + static_cast<double>(k)) * msPerSample, track[k]});
    });
  } else {
    const std::vector<double>& levels = track.levels();
    WriteRows(session, namesFile, sink, std::ssize(levels), 2,
              [&](std::int64_t i, TableRows& rows) {
                rows.Append({(start + static_cast<double>(i) * track.stepSamples()) * msPerSample,
                             levels[static_cast<std::size_t>(i)]});
              });
  }
  return true;
}

}  // namespace cantorix::batch
