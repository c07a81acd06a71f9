// fft_lpc_view.h - the FFT/LPC window of a document: its settings checked, its spectrum held.
// Relies on the document's samples and settings and on the prompts of its host. Draws nothing.
#pragma once

#include <optional>
#include <string>

#include "analysis/sample_range.h"
#include "analysis/spectrum.h"
#include "document/document.h"
#include "settings/settings.h"

namespace cantorix {

// What the spectrum is taken of.
struct SpectrumPlace {
  double position = 0.0;                 // sample where the frame starts
  std::optional<SampleRange> selection;  // instead: the average over these samples
};

// The settings that the window names beside its spectrum, as whole numbers.
struct FftLpcTexts {
  std::string points, lpcOrder, rateHz, windowMs, stepMs;
};

class CFFTLPCView {
 public:
  explicit CFFTLPCView(CSonadexDoc& document) : document_(document) {}

  // Analyses with the settings of the document into `displayPoints` points. Returns false, after a
  // message and with the earlier results kept, when a setting does not fit the sampling rate or the
  // sample buffer cannot be had; the same without a message for an FFT size that no dialog offers,
  // a rate without meaning and no display points. Leaves by Abandoned when the user cancels or
  // memory runs out on the way, by FileError when the samples cannot be read; nothing is computed
  // then.
  bool AnalyseSpectrum(const SpectrumPlace& place, int displayPoints);

  bool computed() const { return computed_; }
  const Spectrum& spectrum() const { return spectrum_; }  // empty unless computed
  const FftLpcTexts& texts() const { return texts_; }
  // The settings of the last analysis.
  const FftLpcSettings& settings() const { return settings_; }
  const CSonadexDoc& document() const { return document_; }

 private:
  bool SettingsFit(const FftLpcSettings& settings, double rateHz) const;
  bool BufferFits() const;
  void KeepSettings(const FftLpcSettings& settings, double rateHz);
  Spectrum Analyse(const SpectrumPlace& place, int displayPoints) const;

  CSonadexDoc& document_;
  FftLpcSettings settings_;
  FftLpcTexts texts_;
  Spectrum spectrum_;
  bool computed_ = false;
};

}  // namespace cantorix
