// pitch.cpp - the choice of the method and what both have in common; the magnitude-difference run.
#include "analysis/pitch.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "analysis/autocorrelation_pitch.h"
#include "analysis/cepstral_track.h"
#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr std::string_view kProgressText = " Processing Pitch...(Press mouse to cancel)";
constexpr double kLeastLength = 1100.0;  // samples, of the autocorrelation method
constexpr double kMostSamples = 0x1p52;  // beyond it positions lose their fractions

bool IsUsable(const SampleRange& range, double rateHz) {
  return std::abs(range.start) < kMostSamples && std::abs(range.end) < kMostSamples &&
         range.length() >= 0.0 && rateHz > 0.0 && std::isfinite(rateHz);
}

// Fills the track of `result`. Returns false when there is none.
bool RunAutoCorrelation(const SampleSource& samples, double rateHz, const PitchSettings& settings,
                        ProgressScope& progress, Workers* workers, PitchResult& result) {
  const SampleRange& range = result.range;
  if (!(range.length() >= kLeastLength)) return false;
  result.PitchFrameCount = range.length() * 0.01 + 1.0;
  result.PitchTrack.assign(static_cast<std::size_t>(result.PitchFrameCount + 5.0), 0.0);

  const std::int64_t start = Truncate(range.start);
  const std::int64_t end = Truncate(range.end);
  const AutoCorrelationOptions options{
      .rateHz = TruncateToInt32(rateHz),
      .lowHz = TruncateToInt32(settings.lowHz),
      .highHz = TruncateToInt32(settings.highHz),
      .tolerancePercent = TruncateToInt32(settings.tolerancePercent),
      .voicingLevel = TruncateToInt32(settings.voicingLevel),
  };
  const auto entries = static_cast<std::size_t>((end - start) / 100 + 1);
  const auto track = std::span(result.PitchTrack).first(entries);
  if (AutoCorrelationPitch(samples, start, end, options, track, progress, workers) != 0)
    return false;
  for (double& pitch : result.PitchTrack) pitch = pitch < 0.0 ? 0.0 : pitch;
  return true;
}

bool RunCepstral(const SampleSource& samples, double totalSamples, const CepstralFraming& framing,
                 ProgressScope& progress, Workers* workers, PitchResult& result) {
  if (!IsUsable(framing, samples.length())) return false;
  std::optional<CepstralWorkspace> workspace;
  try {
    workspace.emplace(framing.options);
  } catch (const std::bad_alloc&) {
    result.badParameters = true;
    return false;
  }
  result.PitchFrameCount = framing.frames;
  result.PitchTrack =
      TrackCepstralPitch(samples, totalSamples, framing, *workspace, progress, workers);
  return !result.PitchTrack.empty();
}

}  // namespace

std::int64_t PitchResult::count() const { return PitchValid ? Truncate(PitchFrameCount) : 0; }

std::span<const double> PitchResult::entries() const {
  return std::span(PitchTrack).first(static_cast<std::size_t>(count()));
}

const TrackSummary& PitchResult::Summary() const {
  if (!summary || summary->size() != entries().size()) {
    summary = std::make_shared<const TrackSummary>(entries(), 0.0);
  }
  return *summary;
}

double PitchResult::TimeMs(std::int64_t i, double msPerSample) const {
  const double a = range.start * msPerSample;
  const double b = range.end * msPerSample;
  return a + static_cast<double>(i) * (b - a) / static_cast<double>(count());
}

PitchResult ComputePitch(const SampleSource& samples, const SampleRange& range, double rateHz,
                         PitchSettings& settings, Progress& progress,
                         std::optional<double> totalSamples, Workers* workers) {
  PitchResult result;
  result.range = range;
  if (!IsUsable(range, rateHz)) return result;
  try {
    if (settings.method == kCepstral) {
      const CepstralFraming framing = FrameForCepstrum(range, rateHz, settings);
      ProgressScope scope(progress, kProgressText, 3.0 * framing.frames);
      const double total = totalSamples.value_or(static_cast<double>(samples.length()));
      result.PitchValid = RunCepstral(samples, total, framing, scope, workers, result);
    } else {
      ProgressScope scope(progress, kProgressText, range.length() * 0.01);
      result.PitchValid = RunAutoCorrelation(samples, rateHz, settings, scope, workers, result);
    }
  } catch (const Abandoned&) {
    result.PitchValid = false;
  } catch (const std::bad_alloc&) {
    result.PitchValid = false;
  }
  if (!result.PitchValid) {
    result.PitchTrack = {};
    result.PitchFrameCount = 0.0;
  }
  return result;
}

}  // namespace cantorix
