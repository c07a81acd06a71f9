// spectrum.cpp - the frames of a selection, halved into the average one after the other.
#include "analysis/spectrum.h"

#include <algorithm>

namespace cantorix {
namespace {

Spectrum EmptySpectrum(const SpectrumFrameOptions& options) {
  Spectrum spectrum;
  spectrum.fftDb.resize(static_cast<std::size_t>(options.displayPoints));
  spectrum.lpcDb.resize(spectrum.fftDb.size());
  spectrum.maxHz = options.maxHz;
  return spectrum;
}

void TakeFrame(SpectrumFrameAnalyser& analyser, double start, Spectrum& spectrum) {
  analyser.FrameFft(start, spectrum.fftDb);
  spectrum.lpcSpanDb = analyser.FrameLpc(start, spectrum.lpcDb, spectrum.formants);
}

// Kept: a running halving and not a mean, so the last frame weighs a half, the one before it a
// quarter. It halves the mark of a missing formant like a frequency.
void Halve(std::span<const double> added, std::span<double> average) {
  for (std::size_t i = 0; i < average.size(); ++i) average[i] = (added[i] + average[i]) * 0.5;
}

// The envelope is not averaged: the last frame's is shown.
void AddFrame(Spectrum& frame, Spectrum& average) {
  Halve(frame.fftDb, average.fftDb);
  Halve(frame.formants.frequencyHz, average.formants.frequencyHz);
  Halve(frame.formants.bandwidthHz, average.formants.bandwidthHz);
  average.lpcDb.swap(frame.lpcDb);
  average.lpcSpanDb = frame.lpcSpanDb;
}

// Puts the lowest point at 0 dB.
void Reference(Spectrum& spectrum) {
  double least = 1e8;
  double most = -1e8;
  for (const double v : spectrum.fftDb) {
    least = std::min(least, v);
    most = std::max(most, v);
  }
  for (double& v : spectrum.fftDb) {
    v -= least;
    if (v < 0.0) v = 0.0;
  }
  spectrum.fftMaxDb = most - least;
  spectrum.fftMinDb = 0.0;
}

}  // namespace

Spectrum SpectrumOfFrame(SpectrumFrameAnalyser& analyser, double position) {
  Spectrum spectrum = EmptySpectrum(analyser.options());
  TakeFrame(analyser, position, spectrum);
  Reference(spectrum);
  return spectrum;
}

Spectrum AverageSpectrum(SpectrumFrameAnalyser& analyser, const SampleRange& selection,
                         double stepMs, Progress& progress) {
  const SpectrumFrameOptions& options = analyser.options();
  const double step = stepMs * options.rateHz * 0.001 + 0.5;  // samples, not rounded
  ProgressScope scope(progress, " Processing FFT/LPC...(Press mouse to cancel)",
                      selection.length() / step);

  Spectrum average = EmptySpectrum(options);
  TakeFrame(analyser, selection.start, average);
  Spectrum frame = EmptySpectrum(options);
  double start = selection.start;
  for (double j = 1.0; step > 0.0 && start + options.points < selection.end; j += 1.0) {
    scope.StepOrAbandon(j);
    start = step * j + selection.start;
    TakeFrame(analyser, start, frame);
    AddFrame(frame, average);
  }
  Reference(average);
  return average;
}

}  // namespace cantorix
