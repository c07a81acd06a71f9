// view_ports.h - what the main view needs from the window that shows it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "document/document_observer.h"

namespace cantorix {

struct FontDescription;
struct SampleRange;

struct PixelSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

// In client pixels; right and bottom are just outside.
struct PixelRect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;
};

class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  // The box that `text` takes when it is drawn in `font`.
  virtual PixelSize Measure(const FontDescription& font, std::string_view text) const = 0;
};

enum class MousePhase { kPress, kMove, kRelease };

// The user's own press, move or release in a main view.
struct PointerEvent {
  MousePhase phase = MousePhase::kPress;
  double ms = 0.0;  // cursor time of its press
};

// All that one thing done to a document or its view has changed.
struct ViewNotice {
  DocumentChanges changes;              // of the document; none: only the view looks different
  std::optional<PointerEvent> pointer;  // an open spectrogram follows it
  std::string said;                     // one line for the user; empty: none
};

// The window that shows a view, told once of each thing that happened. Draws nothing and throws
// nothing while it is told.
class ViewListener {
 public:
  virtual ~ViewListener() = default;
  virtual void ViewChanged(const ViewNotice& notice) = 0;
};

// Sound in the program as a view and its commands see it.
struct SoundState {
  bool recording = false;      // into any document
  bool recordingHere = false;  // into this view's document
  bool playingHere = false;    // from this view's document
};

// Sound as a view reaches it.
class SoundControl {
 public:
  virtual ~SoundControl() = default;
  // Ends a playback of the view's document at once; does nothing otherwise.
  virtual void StopPlayback() = 0;
  // Ends a recording into the view's document, which becomes that recording. False when none runs.
  virtual bool EndRecording() { return false; }
  // Records into the view's document, or plays some of its samples.
  virtual void Record() {}
  virtual void Play(const SampleRange& /*range*/) {}
  virtual SoundState Sound() const { return {}; }
};

}  // namespace cantorix
