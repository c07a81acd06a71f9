// sample_edit.h - what is told of every change of a document's samples while it is made, so that
// somebody who follows can make it again from the samples the document began with.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace cantorix {

// Where a document's samples came from, and where they can be read again.
struct SampleOrigin {
  enum class Kind : std::uint8_t {
    kNone,       // a new document: no samples
    kFile,       // a recording that readers open
    kRecording,  // a file of samples that grew while it was recorded
  };
  Kind kind = Kind::kNone;
  std::string path;  // empty for kNone
};

// One change of the samples of channel 0. Positions are samples of the recording before it.
struct SampleEdit {
  enum class Kind : std::uint8_t {
    kUndoPoint,  // an edit begins that an undo can take back
    kUndo,       // the samples are again those of the last undo point
    kSplice,     // [first, end) replaced by `inserted`
    kFill,       // [first, end) set to `value`
    kGain,       // [0, end): `gainPercent` and `reference` of ApplyGain
    kSmooth,     // [0, end)
    kUnknown,    // what the samples are now cannot be told
  };
  Kind kind = Kind::kUndoPoint;
  std::int64_t first = 0;
  std::int64_t end = 0;
  std::int16_t value = 0;
  double gainPercent = 0.0;
  double reference = 0.0;
  std::span<const std::int16_t> inserted{};  // valid while it is told
};

class SampleEditListener {
 public:
  virtual ~SampleEditListener() = default;
  // Told when the change is complete. Throws nothing.
  virtual void SamplesEdited(const SampleEdit& edit) = 0;
  // The document is now what its origin holds: it was opened, saved or recorded.
  virtual void OriginChanged() = 0;
};

}  // namespace cantorix
