// cepstral_track.cpp - three passes over the frames: estimates, energies, threshold.
#include "analysis/cepstral_track.h"

#include <algorithm>
#include <cmath>

#include "analysis/frame_reader.h"
#include "analysis/sample_window.h"
#include "analysis/square_sum.h"
#include "platform/numbers.h"
#include "platform/workers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr std::int64_t kMostFramePoints = 4096;
constexpr double kSpareEntries = 5.0;
constexpr double kMaxFramesPerSample = 16.0;  // tracks stay in proportion to the recording
constexpr double kAlwaysGranted = 1048576.0;  // frames
constexpr double kMostFrames = 40e6;          // a ms apart in eleven hours: 1 GB of tracks

std::int64_t TransformPoints(std::int64_t windowSamples) {
  if (windowSamples < 1024) return 1024;
  return windowSamples < 2048 ? 2048 : kMostFramePoints;
}

// The frames that start before the range's end: one more than entries when the count is fractional.
std::size_t StartedFrames(const CepstralFraming& framing) {
  return static_cast<std::size_t>(std::ceil(framing.frames));
}

// The first sample of frame `frame`, before truncation.
double FrameStart(const CepstralFraming& framing, std::size_t frame) {
  return static_cast<double>(frame) * framing.stepSamples + framing.range.start;
}

constexpr std::size_t kPitchPart = 256;  // a ms or two

// What the frames of a run are computed from.
struct CepstralRun {
  const SampleSource& samples;
  double totalSamples;
  const CepstralFraming& framing;
  const CepstralWorkspace& workspace;
};

// Writes an estimate for each frame of a part; -1 for one that is not supported.
PartWork NewCepstralWork(const CepstralRun& run, std::vector<double>& raw) {
  return [&run, &raw, window = SampleWindow(run.samples, 0), workspace = run.workspace](
             const Part& part, ProgressScope& progress) mutable {
    for (std::size_t i = part.first; i < part.end; ++i) {
      progress.StepOrAbandon(static_cast<double>(i));
      raw[i] = CepstralPitch(window, FrameStart(run.framing, i), run.totalSamples, workspace);
    }
  };
}

// One estimate per frame; empty when one is not supported.
std::vector<double> EstimateFrames(const CepstralRun& run, ProgressScope& progress,
                                   Workers* workers) {
  std::vector<double> raw(static_cast<std::size_t>(run.framing.frames + kSpareEntries));
  const std::size_t frames = StartedFrames(run.framing);
  const std::size_t free = FreeFrames(frames, [&run](std::size_t i) {
    return run.workspace.IsFree(FrameStart(run.framing, i), run.totalSamples);
  });
  const auto newWork = [&run, &raw] { return NewCepstralWork(run, raw); };
  ComputeParts(workers, free, kPitchPart, progress, newWork);
  if (free < frames) newWork()({free, frames}, progress);
  if (std::find(raw.begin(), raw.end(), -1.0) != raw.end()) return {};
  return raw;
}

// The mean square over one step; samples from `length` on count as 0.
double StepEnergy(SampleWindow& samples, std::int64_t length, const CepstralFraming& framing,
                  std::size_t frame) {
  const double start = FrameStart(framing, frame);
  const std::int64_t end = std::min(Truncate(start + framing.stepSamples), length);
  double sum = 0.0;
  for (std::int64_t from = Truncate(start); from < end; from += SampleWindow::kBlockSamples) {
    AddSquares(samples.View(from, std::min(SampleWindow::kBlockSamples, end - from)), sum);
  }
  return sum / framing.stepSamples;
}

std::vector<double> StepEnergies(const CepstralRun& run, ProgressScope& progress,
                                 Workers* workers) {
  std::vector<double> energy(StartedFrames(run.framing));
  ComputeParts(workers, energy.size(), kPitchPart, progress, [&run, &energy]() -> PartWork {
    return [&run, &energy, window = SampleWindow(run.samples, 0)](const Part& part,
                                                                  ProgressScope& scope) mutable {
      for (std::size_t i = part.first; i < part.end; ++i) {
        scope.StepOrAbandon(run.framing.frames + static_cast<double>(i));
        energy[i] = StepEnergy(window, run.samples.length(), run.framing, i);
      }
    };
  });
  return energy;
}

// Unvoices the frames whose energy does not exceed the threshold's share of the largest one.
void ApplyThreshold(const CepstralRun& run, ProgressScope& progress, Workers* workers,
                    std::vector<double>& track) {
  // Kept: the frame that begins inside the stretch and ends beyond it has no entry of its own, but
  // it was estimated and its energy counts for the largest one.
  const std::vector<double> energy = StepEnergies(run, progress, workers);
  double greatest = -1e9;
  for (const double e : energy) greatest = std::max(greatest, e);
  const double limit = greatest * run.framing.thresholdPercent * 0.01;
  for (std::size_t i = 0; i < energy.size(); ++i) {
    progress.StepOrAbandon(2.0 * run.framing.frames + static_cast<double>(i));
    if (energy[i] - limit <= 0.0) track[i] = 0.0;
  }
}

}  // namespace

CepstralFraming FrameForCepstrum(const SampleRange& range, double rateHz, PitchSettings& settings) {
  std::int64_t window = Truncate(rateHz * 0.001 * settings.windowMs);
  const std::int64_t points = TransformPoints(window);
  if (window >= kMostFramePoints) {
    settings.windowMs = static_cast<double>(Truncate(1000.0 / rateHz * kMostFramePoints));
    window = Truncate(rateHz * 0.001 * settings.windowMs);
  }
  const double step = rateHz * 0.001 * settings.stepMs;
  return {.range = range,
          .stepSamples = step,
          .frames = range.length() / step,
          .deviationHz = settings.deviationHz,
          .thresholdPercent = settings.thresholdPercent,
          .options = {.rateHz = rateHz,
                      .lowHz = settings.lowHz,
                      .highHz = settings.highHz,
                      .points = points,
                      .windowSamples = window}};
}

bool IsUsable(const CepstralFraming& framing, std::int64_t samples) {
  const double most =
      std::clamp(kMaxFramesPerSample * static_cast<double>(samples), kAlwaysGranted, kMostFrames);
  return framing.stepSamples > 0.0 && std::isfinite(framing.stepSamples) &&
         framing.options.windowSamples >= 0 && framing.frames <= most;
}

void ApplyContinuity(const std::vector<double>& raw, double deviationHz, std::int64_t count,
                     std::vector<double>& track) {
  const auto isFar = [&](std::size_t i, std::size_t j) {
    return static_cast<double>(Truncate(std::abs(raw[i] - raw[j]))) >= deviationHz;
  };
  std::fill(track.begin(), track.end(), 0.0);
  // Kept: the first and the last entry stay unvoiced.
  for (std::size_t i = 1; static_cast<std::int64_t>(i) < count - 1; ++i) {
    track[i] = isFar(i - 1, i) || isFar(i + 1, i) ? 0.0 : raw[i];
  }
}

void SmoothTrack(std::int64_t count, std::vector<double>& track) {
  for (std::size_t i = 0; static_cast<std::int64_t>(i) < count - 3; ++i) {
    if (track[i] == 0.0 || track[i + 1] == 0.0 || track[i + 2] == 0.0) continue;
    track[i] = (track[i] + track[i + 1] + track[i + 2]) / 3.0;
  }
}

std::vector<double> TrackCepstralPitch(const SampleSource& samples, double totalSamples,
                                       const CepstralFraming& framing,
                                       const CepstralWorkspace& workspace, ProgressScope& progress,
                                       Workers* workers) {
  const CepstralRun run{samples, totalSamples, framing, workspace};
  const auto raw = EstimateFrames(run, progress, workers);
  std::vector<double> track(raw.size());
  if (raw.empty()) return track;
  const std::int64_t count = Truncate(framing.frames);
  ApplyContinuity(raw, framing.deviationHz, count, track);
  SmoothTrack(count, track);
  ApplyThreshold(run, progress, workers, track);
  return track;
}

}  // namespace cantorix
