// local_settings.h - which settings a document took for its own recording alone, from a strip or a
// hint, and what the configuration file holds in their place: what fits 44.1 kHz would mislead in
// the next recording. These settings are points, LPC order, frequency range and dynamic range.
#pragma once

#include <optional>

#include "settings/settings.h"

namespace cantorix {

class LocalSettings {
 public:
  // Before a group takes values for this document: `now` is what goes on standing for the file.
  void Begin(const SpectrogramSettings& now);
  void Begin(const FftLpcSettings& now);
  // A dialog has turned `before` into `after`: what it changed is the file's, too.
  void Confirm(const SpectrogramSettings& before, const SpectrogramSettings& after);
  void Confirm(const FftLpcSettings& before, const FftLpcSettings& after);

  // The settings of the document as the file is to hold them.
  DocumentSettings ForFile(DocumentSettings settings) const;

 private:
  std::optional<SpectrogramSettings> spectrogram_;
  std::optional<FftLpcSettings> fftLpc_;
};

}  // namespace cantorix
