// settings.cpp - the defaults that follow from the reference rate.
#include "settings/settings.h"

#include "platform/numbers.h"

namespace cantorix {
namespace {

// 4 coefficients and one for each kHz of the rate, rounded down to an even number.
std::int32_t DefaultLpcOrder(double rateHz) {
  return (4 - TruncateToInt32(rateHz * 0.5 * 0.001 * -2.0)) / 2 * 2;
}

}  // namespace

DocumentSettings DefaultDocumentSettings(double referenceRateHz) {
  DocumentSettings settings;
  const std::int32_t rate = TruncateToInt32(referenceRateHz);
  settings.referenceRateHz = referenceRateHz;
  settings.fftLpc.windowMs = TruncateToInt32(256000.0 / referenceRateHz);
  settings.fftLpc.rangeHz = rate / 2000 * 1000;
  settings.fftLpc.lpcOrder = DefaultLpcOrder(referenceRateHz);
  settings.spectrogram.rangeHz = rate / 2 / 1000 * 1000;
  settings.spectrogram.lpcOrder = DefaultLpcOrder(referenceRateHz);
  return settings;
}

}  // namespace cantorix
