// document_waveform.cpp - the pyramid dropped when the samples change.
#include "mainview/document_waveform.h"

namespace cantorix {

DocumentWaveform::DocumentWaveform(CSonadexDoc& document) : document_(document) {
  document_.Attach(*this);
}

DocumentWaveform::~DocumentWaveform() { document_.Detach(*this); }

const WaveformPyramid& DocumentWaveform::Pyramid() {
  if (!pyramid_) pyramid_.emplace(document_.Samples());
  return *pyramid_;
}

void DocumentWaveform::DocumentChanged(DocumentChanges changes, const DocumentObserver*) {
  if (changes.Has(DocumentChange::kSamples)) pyramid_.reset();
}

}  // namespace cantorix
