// pitch.h - the fundamental-frequency track of a stretch of samples, by either method.
// Relies on a sample source, the pitch settings and the progress port; cepstral_pitch.h and
// autocorrelation_pitch.h hold the two estimators. Does not choose the stretch, store or draw.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "analysis/sample_range.h"
#include "analysis/track_summary.h"
#include "platform/progress.h"
#include "platform/sample_source.h"

namespace cantorix {

struct PitchSettings;
class Workers;

struct PitchResult {
  std::vector<double> PitchTrack;  // Hz, 0 = unvoiced; count() entries and 5 more of 0
  double PitchFrameCount = 0.0;    // not rounded: the truncated value counts
  bool PitchValid = false;
  SampleRange range;           // the stretch that was analysed
  bool badParameters = false;  // failed for want of working memory: show kBadParametersText
  mutable std::shared_ptr<const TrackSummary> summary;

  // Entries of the track; 0 without a valid one.
  std::int64_t count() const;
  std::span<const double> entries() const;
  // Of the voiced entries, made when it is first asked for; the entries stay as they are then.
  const TrackSummary& Summary() const;
  // Position of entry i in ms: the entries divide the stretch evenly.
  double TimeMs(std::int64_t i, double msPerSample) const;
};

inline constexpr std::string_view kBadParametersText =
    "Process failure due to bad parameters.\nCheck all the parameters in the options or simply "
    "revert to default configuarion by File->Revert To Default Configuration menu.";

// Tracks the pitch of `range` (samples, clamped by nothing: the caller passes a stretch inside the
// recording) with the method that `settings` choose. A run that is cancelled or fails gives an
// invalid result without a track, and so do settings without a usable step or window and, with the
// autocorrelation method, fewer than 1100 samples. A cepstral window of 4096 samples or more is cut
// to 4096, and settings.windowMs is then overwritten with the length that was used. `totalSamples`
// is the recording's length where that has a fraction. Throws FileError when the store cannot be
// read. With `workers` long stretches take several threads, to the same digits.
PitchResult ComputePitch(const SampleSource& samples, const SampleRange& range, double rateHz,
                         PitchSettings& settings, Progress& progress,
                         std::optional<double> totalSamples = std::nullopt,
                         Workers* workers = nullptr);

}  // namespace cantorix
