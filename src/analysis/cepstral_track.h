// cepstral_track.h - the cepstral estimates of a stretch, and the rules that decide which of them
// become pitch: continuity, smoothing and energy.
// Relies on cepstral_pitch.h for one frame. Does not choose the stretch or handle failures.
//
//   t[i] = f[i], 0 where trunc |f[i] - f[i-1]| >= D or trunc |f[i+1] - f[i]| >= D   i = 1 ... n - 2
//   t[i] = (t[i] + t[i+1] + t[i+2]) / 3 where all three are voiced, in place, i = 0 ... n - 4
//   t[i] = 0 where E[i] <= T / 100 max E,  E[i] = sum of x[j]^2 / S over the step of frame i
//
// with estimates f and track t in Hz, deviation D in Hz, threshold T in percent, samples x, step S
// in samples and n = trunc(stretch / S) entries.
#pragma once

#include <vector>

#include "analysis/cepstral_pitch.h"
#include "analysis/sample_range.h"
#include "platform/progress.h"
#include "platform/sample_source.h"

namespace cantorix {

struct PitchSettings;
class Workers;

struct CepstralFraming {
  SampleRange range;
  double stepSamples;       // not rounded
  double frames;            // not rounded; every frame that starts before the range's end is run
  double deviationHz;       // largest step between neighbours
  double thresholdPercent;  // of the largest frame energy
  CepstralOptions options;
};

// The frames of `range` under `settings`. A window of 4096 samples or more is cut to 4096, and
// settings.windowMs is overwritten with the whole ms that this takes.
CepstralFraming FrameForCepstrum(const SampleRange& range, double rateHz, PitchSettings& settings);

// False for a step that is not a positive number, a window below 0 samples, and steps so short that
// the track would dwarf a recording of `samples` samples or 1 GB of memory.
bool IsUsable(const CepstralFraming& framing, std::int64_t samples);

// One value in Hz for each frame and 5 more of 0; empty when an estimate is not supported.
// `totalSamples` is the recording's length, with its fraction. Throws Abandoned when the user
// cancels, FileError when the store cannot be read. Counts 3 progress units per frame. Every thread
// works with a copy of `workspace`.
std::vector<double> TrackCepstralPitch(const SampleSource& samples, double totalSamples,
                                       const CepstralFraming& framing,
                                       const CepstralWorkspace& workspace, ProgressScope& progress,
                                       Workers* workers);

// Track entries from raw estimates in Hz, `count` of which are whole frames: 0 at both ends and
// next to a step of deviationHz or more; others averaged with two voiced successors.
void ApplyContinuity(const std::vector<double>& raw, double deviationHz, std::int64_t count,
                     std::vector<double>& track);
void SmoothTrack(std::int64_t count, std::vector<double>& track);

}  // namespace cantorix
