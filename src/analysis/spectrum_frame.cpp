// spectrum_frame.cpp - the lengths of the two frames, and the envelope turned over.
#include "analysis/spectrum_frame.h"

#include <algorithm>
#include <new>

#include "analysis/spectrum_limits.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr std::size_t kZerosBehind = 10;  // the transform's input has them to read

std::size_t AppliedWindow(const SpectrumFrameOptions& options) {
  const std::int64_t samples = Truncate(options.windowMs * options.rateHz * 0.001 + 0.5);
  return static_cast<std::size_t>(std::clamp<std::int64_t>(samples, 0, options.points));
}

// Kept: the number of coefficients is the length of the frame in ms as well.
std::size_t LpcFrameLength(const SpectrumFrameOptions& options) {
  const std::int64_t length = Truncate(options.rateHz * 0.001 * options.lpcOrder);
  if (length > kLongestLpcFrame) throw std::bad_alloc();
  return static_cast<std::size_t>(std::max<std::int64_t>(length, 0));
}

struct Extremes {
  double least, most;
};

// A level equal to a start value counts, one beyond it does not.
Extremes EnvelopeExtremes(std::span<const double> envelopeDb) {
  Extremes found{1000.0, -1000.0};
  for (const double v : envelopeDb) {
    if (v <= found.least) found.least = v;
    if (v >= found.most) found.most = v;
  }
  return found;
}

}  // namespace

double OrientEnvelope(std::span<double> envelopeDb) {
  const double most = EnvelopeExtremes(envelopeDb).most;
  for (double& v : envelopeDb) v = most - v;
  const Extremes turned = EnvelopeExtremes(envelopeDb);
  for (double& v : envelopeDb) v -= turned.least;
  return turned.most - turned.least;
}

SpectrumFrameAnalyser::SpectrumFrameAnalyser(const SampleSource& samples,
                                             const SpectrumFrameOptions& options,
                                             std::ostream& errors)
    : options_(options),
      errors_(errors),
      reader_(samples),
      appliedWindow_(AppliedWindow(options)),
      spectrum_({.points = options.points,
                 .preEmphasis = options.preEmphasis,
                 .hamming = true,
                 .resample = true,
                 .displayPoints = options.displayPoints,
                 .maxHz = options.maxHz,
                 .rateHz = options.rateHz}),
      framer_(LpcFrameLength(options), true, options.preEmphasis),
      envelope_(options.displayPoints, options.maxHz, options.rateHz),
      fftInput_(static_cast<std::size_t>(options.points) + kZerosBehind),
      lpcInput_(framer_.inputSize()) {}

void SpectrumFrameAnalyser::FrameFft(double start, std::span<double> fftDb) {
  // The zeros behind the applied window are never written, so the step at its edge goes through
  // the pre-emphasis.
  reader_.Read(Truncate(start), std::span(fftInput_).first(appliedWindow_));
  PowerSpectrumDb(fftInput_, spectrum_, fftDb);
}

double SpectrumFrameAnalyser::FrameLpc(double start, std::span<double> envelopeDb,
                                       FormantValues& formants) {
  reader_.Read(Truncate(start), lpcInput_);
  LpcAnalyse(framer_.Frame(lpcInput_), options_.lpcOrder, lpc_, errors_);
  LpcEnvelopeDb(lpc_, envelope_, envelopeDb);

  formants = {};
  if (const auto candidates = FindFormants(lpc_, options_.rateHz, errors_)) {
    const SelectedFormants selected = SelectFormants(*candidates);
    for (std::size_t i = 0; i < selected.count; ++i) {
      formants.frequencyHz[i] = selected.formants[i].frequencyHz;
      formants.bandwidthHz[i] = selected.formants[i].bandwidthHz;
    }
  }
  return OrientEnvelope(envelopeDb.first(envelope_.displayPoints()));
}

}  // namespace cantorix
