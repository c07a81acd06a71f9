// local_settings.cpp - the fields of a strip, one by one.
#include "settings/local_settings.h"

#include <array>
#include <span>

namespace cantorix {
namespace {

template <typename S>
using Members = std::span<std::int32_t S::*const>;

constexpr std::array kOfSpectrogram{&SpectrogramSettings::points, &SpectrogramSettings::sizeIndex,
                                    &SpectrogramSettings::lpcOrder, &SpectrogramSettings::rangeHz,
                                    &SpectrogramSettings::dynamicRangeDb};
constexpr std::array kOfSpectrum{&FftLpcSettings::points, &FftLpcSettings::sizeIndex,
                                 &FftLpcSettings::lpcOrder, &FftLpcSettings::rangeHz};

template <typename S>
void TakeChanges(std::optional<S>& kept, const S& before, const S& after, Members<S> fields) {
  if (!kept) return;
  for (const auto field : fields) {
    if (before.*field != after.*field) (*kept).*field = after.*field;
  }
}

template <typename S>
void Restore(const std::optional<S>& kept, S& settings, Members<S> fields) {
  if (!kept) return;
  for (const auto field : fields) settings.*field = (*kept).*field;
}

}  // namespace

void LocalSettings::Begin(const SpectrogramSettings& now) {
  if (!spectrogram_) spectrogram_ = now;
}

void LocalSettings::Begin(const FftLpcSettings& now) {
  if (!fftLpc_) fftLpc_ = now;
}

void LocalSettings::Confirm(const SpectrogramSettings& before, const SpectrogramSettings& after) {
  TakeChanges<SpectrogramSettings>(spectrogram_, before, after, kOfSpectrogram);
}

void LocalSettings::Confirm(const FftLpcSettings& before, const FftLpcSettings& after) {
  TakeChanges<FftLpcSettings>(fftLpc_, before, after, kOfSpectrum);
}

DocumentSettings LocalSettings::ForFile(DocumentSettings settings) const {
  Restore<SpectrogramSettings>(spectrogram_, settings.spectrogram, kOfSpectrogram);
  Restore<FftLpcSettings>(fftLpc_, settings.fftLpc, kOfSpectrum);
  return settings;
}

}  // namespace cantorix
