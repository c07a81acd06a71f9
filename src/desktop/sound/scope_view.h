// scope_view.h - the picture in the scope window: the running trace, the meter beside it, the same
// as text below. It draws what the desk lets it hear, of a recording or of the input alone.
#pragma once

#include <QWidget>
#include <optional>

#include "audio/trace_pacer.h"
#include "desktop/sound/scope_trace.h"
#include "mainview/sound_desk.h"

class QLabel;

namespace cantorix {

class LevelMeterView;

// The trace alone.
class ScopeCanvas : public QWidget, public SoundWatcher {
 public:
  explicit ScopeCanvas(QWidget* parent);

  void Heard(std::span<const std::int16_t> samples) override { pacer_.Take(samples); }
  // The rate of what is heard; another one begins a new trace.
  void SetRate(std::uint32_t rateHz);
  // Draws what is due at `nowMs` of a clock that never goes back.
  void Advance(double nowMs);

  const QImage& image() const { return trace_.image(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Begin();

  std::uint32_t rateHz_ = 11025;
  TracePacer pacer_{rateHz_};
  ScopeTrace trace_;
};

class CScopeView : public QWidget {
 public:
  explicit CScopeView(QWidget* parent);

  ScopeCanvas& canvas() { return *canvas_; }
  // Level, and what is heard: a recording, the input alone, or why nothing is.
  void ShowLevel(const SoundDesk& desk);

 private:
  QLabel* state_;
  ScopeCanvas* canvas_;
  LevelMeterView* meter_;
  QLabel* level_;
};

}  // namespace cantorix
