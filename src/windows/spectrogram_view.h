// spectrogram_view.h - the spectrogram window of a document: its levels and formants held.
// Relies on the document's samples and settings and on the prompts of its host. Draws nothing.
#pragma once

#include <cstdint>

#include "analysis/sample_range.h"
#include "analysis/spectrogram.h"
#include "document/document.h"

namespace cantorix {

// Size of the picture; a formant track alone needs no levels, but the rows decide what is silent.
struct SpectrogramSize {
  std::int64_t columns = 0;
  int rows = 0;
  bool keepLevels = true;
};

class CSpectrogramView {
 public:
  explicit CSpectrogramView(CSonadexDoc& document) : document_(document) {}

  // Computes the picture of `range` (samples) with the settings of the document; an earlier one is
  // dropped first. Returns false when there is nothing to compute: no columns or rows, or a
  // sampling rate without meaning. Leaves by Abandoned when the user cancels, when memory runs out
  // and, after a message, when a column's formants cannot be found; by FileError when the samples
  // cannot be read. Nothing is computed then.
  bool ComputeSpectrogram(const SampleRange& range, const SpectrogramSize& size);

  bool computed() const { return spectrogram_.computed(); }
  const Spectrogram& spectrogram() const { return spectrogram_; }  // empty unless computed
  const CSonadexDoc& document() const { return document_; }

 private:
  CSonadexDoc& document_;
  Spectrogram spectrogram_;
};

}  // namespace cantorix
