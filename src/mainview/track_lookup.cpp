// track_lookup.cpp - an entry's index in the stated order of doubles, and its value.
#include "mainview/track_lookup.h"

#include "platform/numbers.h"

namespace cantorix {
namespace {

struct TrackSpan {
  std::int64_t count = 0;  // entries
  double startMs = 0.0;
  double endMs = 0.0;
};

TrackSpan SpanOf(const PitchResult& pitch, const CChannel& channel) {
  const double factor = channel.msPerSample();
  return {pitch.count(), pitch.range.start * factor, pitch.range.end * factor};
}

TrackSpan SpanOf(const IntensityResult& intensity, const CChannel& channel) {
  const double factor = channel.msPerSample();
  return {intensity.IntensityValid ? intensity.IntensityTrack.size() : 0,
          intensity.range.start * factor, intensity.range.end * factor};
}

// Kept: truncation is toward 0, so a time less than one entry before the span reads its first
// entry, as the readouts always did.
template <typename Track>
double ValueAt(const Track& track, const TrackSpan& span, double ms) {
  if (!(span.endMs > span.startMs)) return 0.0;
  const std::int64_t k =
      Truncate((ms - span.startMs) * static_cast<double>(span.count) / (span.endMs - span.startMs));
  if (k < 0 || k >= span.count) return 0.0;
  return track[static_cast<decltype(track.size())>(k)];
}

}  // namespace

double PitchAt(const PitchResult& pitch, const CChannel& channel, double ms) {
  return ValueAt(pitch.PitchTrack, SpanOf(pitch, channel), ms);
}

double IntensityAt(const IntensityResult& intensity, const CChannel& channel, double ms) {
  return ValueAt(intensity.IntensityTrack, SpanOf(intensity, channel), ms);
}

double AveragePitch(const PitchResult& pitch, const CChannel& channel, double startMs,
                    double endMs) {
  const TrackSpan span = SpanOf(pitch, channel);
  double mean = 0.0;
  for (std::int64_t i = 0; i < span.count; ++i) {
    const double ms = pitch.TimeMs(i, channel.msPerSample());
    if (ms < startMs || ms > endMs) continue;
    // Kept: the entry's own time may look up the entry before it, as all readouts at a time do.
    const double value = ValueAt(pitch.PitchTrack, span, ms);
    if (value == 0.0) continue;
    // Kept: halving weighs the later entries more; published means were taken this way.
    mean = mean == 0.0 ? value : (value + mean) * 0.5;
  }
  return mean;
}

}  // namespace cantorix
