// spectrogram_column.cpp - the levels and the formants of a column, each from a frame of its own.
#include "analysis/spectrogram_column.h"

#include <algorithm>
#include <iostream>
#include <new>

#include "analysis/spectrum_limits.h"
#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr double kLowestLevel = -1e7;  // every level is above it

// Kept: the whole milliseconds' worth of samples comes first and the order multiplies it, so at
// 22050 Hz an order of 26 gives 572 samples here and 573 in the FFT/LPC window.
std::size_t LpcFrameLength(double rateHz, std::int32_t order) {
  const std::int64_t samplesPerMs = Truncate(rateHz * 0.001);
  if (order <= 0 || samplesPerMs <= 0) return 0;
  if (samplesPerMs > kLongestLpcFrame / order) throw std::bad_alloc();
  return static_cast<std::size_t>(samplesPerMs * order);
}

}  // namespace

ColumnLevels::ColumnLevels(const SampleSource& samples, const SpectrogramRequest& request,
                           const SpectrogramSettings& settings, double maxHz)
    : reader_(samples),
      buffer_(static_cast<std::size_t>(settings.points), kColumnMargin),
      spectrum_({.points = settings.points,
                 .preEmphasis = settings.preEmphasis,
                 .hamming = true,
                 .resample = true,
                 .displayPoints = request.rows,
                 .maxHz = maxHz,
                 .rateHz = request.rateHz}),
      totalSamples_(request.totalSamples) {}

double ColumnLevels::Compute(double start, std::span<double> levels) {
  buffer_.Load(reader_, start, totalSamples_);
  PowerSpectrumDb(buffer_.samples(), spectrum_, levels);
  double highest = kLowestLevel;
  for (const double v : levels) highest = std::max(highest, v);
  return highest;
}

ColumnFormants::ColumnFormants(const SampleSource& samples, const SpectrogramRequest& request,
                               const SpectrogramSettings& settings)
    : reader_(samples),
      framer_(LpcFrameLength(request.rateHz, settings.lpcOrder), true, settings.preEmphasis),
      buffer_(LpcFrameLength(request.rateHz, settings.lpcOrder), kColumnMargin),
      batch_(settings.lpcOrder, request.rateHz),
      totalSamples_(request.totalSamples) {}

void ColumnFormants::Add(double start) {
  buffer_.Load(reader_, start, totalSamples_);
  batch_.Add(framer_.Frame(buffer_.samples()), std::cerr);
}

bool ColumnFormants::Find(std::span<FormantColumn> columns) {
  return batch_.Find(
      [&](std::size_t column, const FormantList& candidates) {
        columns[column] = InWholeHz(SelectFormants(candidates));
      },
      errors_);
}

FormantColumn InWholeHz(const SelectedFormants& selected) {
  FormantColumn column;
  column.fill(kNoFormantHz);
  std::size_t kept = 0;
  for (const Formant& formant : selected.kept()) {
    const std::int64_t hz = Truncate(formant.frequencyHz);
    if (hz >= 0 && hz < kNoFormantHz) column[kept++] = static_cast<std::uint16_t>(hz);
  }
  return column;
}

}  // namespace cantorix
