// intensity.cpp - one level per frame; LevelTrack spreads them over the samples on demand.
#include "analysis/intensity.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "analysis/frame_span.h"
#include "analysis/sample_window.h"
#include "analysis/square_sum.h"
#include "platform/numbers.h"
#include "platform/workers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr double kMaxLength = 4503599627370496.0;  // 2^52 samples: fractions still count
constexpr double kMaxFramesPerSample = 16.0;       // levels stay in proportion to the recording
constexpr double kAlwaysGranted = 1048576.0;       // frames

struct Framing {
  double window = 0.0;  // samples
  double step = 0.0;    // samples
  double frames = 0.0;  // not rounded, may be negative

  std::int64_t count() const { return std::max<std::int64_t>(Truncate(frames), 0); }
};

Framing FramingOf(double length, double rateHz, const IntensitySettings& settings) {
  Framing framing;
  // Kept: the half sample stays in the window, so the mean square divides by half a sample more
  // than is summed. Every published level depends on it.
  framing.window = settings.windowMs * rateHz * 0.001 + 0.5;
  framing.step = settings.stepMs * rateHz * 0.001;
  framing.frames = (length - framing.window) / framing.step;
  return framing;
}

bool CanCompute(const Framing& framing, double length) {
  return framing.window > 0.0 && framing.step > 0.0 && std::abs(length) < kMaxLength &&
         framing.frames <= std::max(kMaxFramesPerSample * length, kAlwaysGranted);
}

void AddStretch(SampleWindow& samples, std::int64_t first, std::int64_t end, double& sum) {
  for (std::int64_t from = first; from < end; from += SampleWindow::kBlockSamples) {
    const std::int64_t count = std::min(SampleWindow::kBlockSamples, end - from);
    AddSquares(samples.View(from, count), sum);
  }
}

double FrameEnergy(SampleWindow& samples, const FrameSpan& span) {
  double sum = 0.0;
  if (span.skipped < 0) {
    AddStretch(samples, span.first, span.end, sum);
  } else {
    AddStretch(samples, span.first, span.skipped, sum);
    AddStretch(samples, span.skipped + 1, span.end, sum);
  }
  return sum;
}

constexpr std::size_t kLevelPart = 1024;  // a ms or two

PartWork NewLeveller(const SampleSource& samples, std::int64_t origin, const Framing& framing,
                     std::vector<double>& levels) {
  return [&framing, &levels, window = SampleWindow(samples, origin)](
             const Part& part, ProgressScope& progress) mutable {
    for (std::size_t i = part.first; i < part.end; ++i) {
      const auto frame = static_cast<double>(i);
      progress.StepOrAbandon(frame);
      const FrameSpan span = SpanOfFrame(frame * framing.step, framing.window);
      // Kept: a silent frame is minus infinity.
      levels[i] = 10.0 * std::log10(FrameEnergy(window, span) / framing.window);
    }
  };
}

// One level per frame.
std::vector<double> FrameLevels(const SampleSource& samples, const SampleRange& range,
                                const Framing& framing, ProgressScope& progress, Workers* workers) {
  std::vector<double> levels(static_cast<std::size_t>(framing.count()));
  ComputeParts(workers, levels.size(), kLevelPart, progress,
               [&] { return NewLeveller(samples, Truncate(range.start), framing, levels); });
  return levels;
}

// Kept: the extremes start at these values and change by strict comparison only, so a recording of
// silence keeps the maximum's, and one without a frame both.
void FindExtremes(const std::vector<double>& levels, ProgressScope& progress,
                  IntensityResult& result) {
  result.IntensityMax = -1e9;
  result.IntensityMin = 1e9;
  auto done = static_cast<double>(levels.size());
  for (const double level : levels) {
    progress.StepOrAbandon(done++);
    if (level > result.IntensityMax) result.IntensityMax = level;
    if (level < result.IntensityMin) result.IntensityMin = level;
  }
}

// Kept: with a silent frame the others become infinite and the silent ones NaN.
void MakeRelative(std::vector<double>& levels, ProgressScope& progress, IntensityResult& result) {
  double done = 2.0 * static_cast<double>(levels.size());
  for (double& level : levels) {
    progress.StepOrAbandon(done++);
    level -= result.IntensityMin;
  }
  result.IntensityMax -= result.IntensityMin;
  result.IntensityMin = 0.0;
}

}  // namespace

IntensityResult ComputeIntensity(const SampleSource& samples, const SampleRange& range,
                                 double rateHz, const IntensitySettings& settings,
                                 Progress& progress, Workers* workers) {
  const double length = range.length();
  const Framing framing = FramingOf(length, rateHz, settings);
  const bool relative = settings.relative != 0;
  const double units = (relative ? 3.0 : 2.0) * framing.frames;
  ProgressScope scope(progress, " Processing Intensity...(Press mouse to cancel)", units);

  IntensityResult result;
  result.range = range;
  if (!CanCompute(framing, length)) return result;
  try {
    std::vector<double> levels = FrameLevels(samples, range, framing, scope, workers);
    FindExtremes(levels, scope, result);
    if (relative) MakeRelative(levels, scope, result);
    scope.StepOrAbandon(units);  // the bar's end, also with a part of a frame left
    result.IntensityTrack = LevelTrack(std::move(levels), framing.step, framing.window,
                                       std::max<std::int64_t>(Truncate(length), 0));
  } catch (const Abandoned&) {
    return result;
  } catch (const std::bad_alloc&) {
    return result;
  }
  result.IntensityLength = length;
  result.IntensityValid = true;
  return result;
}

}  // namespace cantorix
