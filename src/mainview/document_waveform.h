// document_waveform.h - the waveform pyramid of a document, made when it is first asked for and
// again after its samples changed. One per document serves all its windows; ends before the
// document does.
#pragma once

#include <optional>

#include "document/document.h"
#include "mainview/waveform_pyramid.h"

namespace cantorix {

class DocumentWaveform : public DocumentObserver {
 public:
  explicit DocumentWaveform(CSonadexDoc& document);
  ~DocumentWaveform() override;
  DocumentWaveform(const DocumentWaveform&) = delete;
  DocumentWaveform& operator=(const DocumentWaveform&) = delete;

  // Of the samples as they are now. Throws FileError.
  const WaveformPyramid& Pyramid();

  void DocumentChanged(DocumentChanges changes, const DocumentObserver* by) override;

 private:
  CSonadexDoc& document_;
  std::optional<WaveformPyramid> pyramid_;
};

}  // namespace cantorix
