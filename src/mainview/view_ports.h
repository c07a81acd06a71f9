// view_ports.h - what the main view needs from the window that shows it.
#pragma once

#include <string_view>

#include "document/label.h"

namespace cantorix {

struct PixelSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
};

class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  // The box that `text` takes when it is drawn in `font`.
  virtual PixelSize Measure(const FontDescription& font, std::string_view text) const = 0;
};

enum class MousePhase { kPress, kMove, kRelease };

// Told of what changed; draws nothing while it is told.
class ViewListener {
 public:
  virtual ~ViewListener() = default;
  // Something that is drawn has changed.
  virtual void ViewChanged() = 0;
  // Labels or tiers have changed: the label list window is brought up to date.
  virtual void LabelsChanged() = 0;
  // The user's own press, move or release in the main view, with the cursor time of its press: the
  // spectrogram window follows when all windows track the mouse.
  virtual void CursorMoved(MousePhase phase, double ms) = 0;
};

// Sound in the program as a view and its commands see it.
struct SoundState {
  bool available = false;      // sound can be recorded and played
  bool recording = false;      // into any document
  bool recordingHere = false;  // into this view's document
};

// Playback as the view sees it.
class PlaybackControl {
 public:
  virtual ~PlaybackControl() = default;
  // Ends a playback in progress at once; does nothing otherwise.
  virtual void StopPlayback() = 0;
  virtual SoundState Sound() const { return {}; }
};

}  // namespace cantorix
