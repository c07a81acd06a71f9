// main_view_painter.cpp - three passes: background, data, overlay.
#include "desktop/paint/main_view_painter.h"

#include <algorithm>
#include <cmath>

#include "desktop/paint/label_painter.h"
#include "desktop/paint/legend.h"
#include "desktop/paint/picture_axis.h"
#include "desktop/paint/picture_text.h"
#include "desktop/paint/readout_painter.h"
#include "desktop/paint/selection_painter.h"
#include "desktop/paint/signal_strips.h"
#include "desktop/paint/window_strips.h"
#include "desktop/paint/words.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_moves.h"
#include "mainview/readout_texts.h"
#include "mainview/time_axis.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

// Everything a pass needs, worked out once: panes, axes and their ticks.
struct Scene {
  CSonadexView& view;
  const PaintStyle& style;
  const DisplaySettings& display;
  QRectF client, audio, intensity, pitch, timeStrip, readouts;
  AxisScale time;
  AxisSpan amplitude, levels, hertz;
  std::vector<AxisTick> timeTicks;
  bool levelsOverAudio = false;
  bool hasLevels = false;

  // Tiers and panes end where the time axis begins, however far they are scrolled.
  QRectF ScrolledArea() const {
    return {client.topLeft(), QPointF(client.right(), timeStrip.top())};
  }
  // Below the tiers.
  double PanesTop() const { return view.layout.audio.top; }
  // Where a label's line and the cursor end.
  double DataBottom() const {
    const double lowest = std::max({audio.bottom(), intensity.bottom(), pitch.bottom()});
    return std::min(lowest, timeStrip.top());
  }
};

// A pane, a pixel less at its ends, so that neighbours do not touch.
QRectF PaneOf(const PixelRect& rect) {
  if (rect.bottom <= rect.top) return {};
  return ToRectF(rect).adjusted(0.0, 2.0, 0.0, -2.0);
}

Scene SceneOf(const MainViewPicture& picture, const PaintStyle& style) {
  CSonadexView& view = picture.view;
  const ViewLayout& layout = view.layout;
  const DocumentSettings& settings = view.document().settings;
  Scene scene{view, style, settings.display, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}};
  scene.client = QRectF(0.0, 0.0, layout.client.width, layout.client.height);
  scene.audio = PaneOf(layout.audio);
  scene.intensity = PaneOf(layout.intensity);
  scene.pitch = PaneOf(layout.pitch);
  scene.timeStrip = ToRectF(layout.timeAxis);
  scene.readouts = ToRectF(layout.readouts);
  scene.time = TimeAxisOf(view.channel(), layout.axisWidth());
  scene.hasLevels = settings.display.drawIntensity != 0 && view.channel().intensity.IntensityValid;
  scene.levelsOverAudio = scene.hasLevels && scene.intensity.isEmpty() && !scene.audio.isEmpty();
  return scene;
}

// What background and data need beyond the places.
Scene SceneWithAxes(const MainViewPicture& picture, const PaintStyle& style) {
  Scene scene = SceneOf(picture, style);
  const CSonadexDoc& document = picture.view.document();
  const QRectF& levelPane = scene.levelsOverAudio ? scene.audio : scene.intensity;
  scene.amplitude = AmplitudeSpan(document.channel(), picture.waveform, scene.audio);
  scene.levels = IntensitySpan(document.channel().intensity, levelPane);
  scene.hertz = DisplayedPitch(document.settings.pitch, scene.pitch);
  if (document.loaded) scene.timeTicks = BottomTicks(scene.time, scene.display.timeBase, style);
  return scene;
}

void DrawValuePane(QPainter& painter, const Scene& scene, const QRectF& pane, const AxisSpan& span,
                   bool withAxis) {
  if (pane.isEmpty()) return;
  DrawPane(painter, pane, scene.style.pane);
  const auto ticks = ValueTicks(pane, span.low, span.high, scene.style);
  if (scene.display.drawGrids != 0) {
    if (withAxis) DrawValueGrid(painter, pane, span, ticks, scene.style.grid);
    DrawVerticalGrid(painter, pane, scene.time, scene.timeTicks, scene.style.grid);
  }
  if (withAxis) DrawValueAxis(painter, pane, span, ticks, kLeftMargin, scene.style);
  DrawFrame(painter, pane, scene.style);
}

const Tier& TierOf(const Scene& scene, int index) {
  return scene.view.channel().tiers[static_cast<std::size_t>(index)];
}

void DrawTierStrips(QPainter& painter, const Scene& scene) {
  for (int i = 0; i < kTierCount; ++i) {
    const PixelRect& strip = scene.view.layout.tier(i);
    if (strip.bottom <= strip.top) continue;
    const bool isCurrent = scene.view.labelEntry.enabled && CurrentTier(scene.view) == i;
    DrawTierStrip(painter, TierOf(scene, i), strip, isCurrent, scene.style);
  }
}

// Behind the data, which nothing may hide.
void DrawCaptions(QPainter& painter, const Scene& scene) {
  const QFont font = Resized(scene.style.font, scene.style.font.pixelSize() - 1);
  const auto caption = [&](const QRectF& pane, const QString& text, const QColor& color) {
    if (!pane.isEmpty()) DrawCaption(painter, pane, text, font, color);
  };
  caption(scene.audio, TrOn(scene.style, "Audio"), scene.style.muted);
  caption(scene.intensity, TrOn(scene.style, "Intensity (dB)"), scene.style.intensity);
  caption(scene.pitch, TrOn(scene.style, "Pitch (Hz)"), scene.style.pitch);
}

// Inside the pane, off the axis at its right edge.
void DrawLevelsLegend(QPainter& painter, const Scene& scene) {
  constexpr double kAxisRoom = 44.0;
  constexpr double kLegendHeight = 15.0;
  QColor plate = scene.style.pane;
  plate.setAlpha(210);
  const QRectF line(scene.audio.left() + kAxisRoom, scene.audio.top() + 2.0,
                    scene.audio.width() - 2.0 * kAxisRoom, kLegendHeight);
  DrawLegend(painter, line,
             {{.mark = LegendEntry::Mark::kDashes,
               .text = TrOn(scene.style, "intensity (dB, right axis)"),
               .color = scene.style.intensity,
               .width = scene.style.curve}},
             scene.style, plate);
}

void DrawZeroLine(QPainter& painter, const Scene& scene) {
  if (scene.audio.isEmpty()) return;
  painter.setPen(QPen(scene.style.zeroLine, scene.style.hairline));
  const double y = YOf(scene.audio, scene.amplitude, 0.0);
  painter.drawLine(QLineF(scene.audio.left(), y, scene.audio.right(), y));
}

TierPlace PlaceOf(const Scene& scene, int tier) {
  return {scene.view.layout.tier(tier), scene.time, scene.DataBottom()};
}

int DraggedLabelOf(const CSonadexView& view, int tier) {
  const bool dragged = view.press.held && view.press.draggedLabel && view.press.moved;
  return dragged && view.labelEntry.currentTier == tier ? view.labelEntry.pressedLabel : -1;
}

// The field stands in its place.
int TypedLabelOf(const CSonadexView& view, int tier) {
  const auto& typing = view.labelEntry.typing;
  return typing && typing->tier == tier ? typing->index : -1;
}

void DrawAllLabels(QPainter& painter, const Scene& scene) {
  for (int i = 0; i < kTierCount; ++i) {
    const TierPlace place = PlaceOf(scene, i);
    if (place.strip.bottom <= place.strip.top) continue;
    DrawTierLabels(painter, TierOf(scene, i), place, TypedLabelOf(scene.view, i), scene.style);
  }
}

void DrawTexts(QPainter& painter, const Scene& scene, const QRectF& band) {
  const CChannel& channel = scene.view.channel();
  const SelectionTexts texts =
      TextsOfSelection(channel.selectionStart.ms,
                       InsideRecordingMs(channel, channel.selectionEnd.ms), scene.display.timeBase);
  DrawSelectionTexts(painter, band, scene.ScrolledArea(), texts, scene.style);
}

void DrawSelection(QPainter& painter, const Scene& scene) {
  const CChannel& channel = scene.view.channel();
  const double left = std::max(scene.time.X(channel.selectionStart.ms), scene.time.left);
  const double right = std::min(
      scene.time.X(std::min(channel.selectionEnd.ms, channel.totalDurationMs)), scene.time.right());
  if (right < left) return;
  const double top = scene.client.top();
  const QRectF band(left, top, right - left, scene.DataBottom() - top);
  painter.fillRect(band, scene.style.selection);
  painter.setPen(QPen(scene.style.selectionEdge, scene.style.hairline));
  painter.drawLine(QLineF(left, band.top(), left, band.bottom()));
  painter.drawLine(QLineF(right, band.top(), right, band.bottom()));
  DrawTexts(painter, scene, QRectF(left, scene.PanesTop(), right - left, band.bottom()));
}

// Of the label that keys and commands work on.
void DrawSelectedLabel(QPainter& painter, const Scene& scene) {
  const int index = SelectedLabel(scene.view);
  if (index < 0 || scene.view.labelEntry.typing || scene.view.press.draggedLabel) return;
  const int tier = CurrentTier(scene.view);
  const TierPlace place = PlaceOf(scene, tier);
  const Label& label = TierOf(scene, tier).labels[static_cast<std::size_t>(index)];
  if (place.strip.bottom <= place.strip.top || label.timeMs < scene.time.low ||
      label.timeMs > scene.time.high) {
    return;
  }
  DrawLabelFrame(painter, label, place, scene.style);
}

// A line through all panes; dashed for the pointer of a window that does not track.
void DrawCursor(QPainter& painter, const Scene& scene, double ms, CursorLook look) {
  const double x = scene.time.X(ms);
  if (x < scene.time.left || x > scene.time.right()) return;
  DrawCursorColumn(painter, x, scene.client.top(), scene.timeStrip.top() + 3.0, look, scene.style);
}

// The label under the mouse, where it would be put down; its old place shows the tier.
void DrawDraggedLabel(QPainter& painter, const Scene& scene) {
  const CSonadexView& view = scene.view;
  const int index = view.labelEntry.currentTier;
  if (index < 0 || index >= kTierCount || DraggedLabelOf(view, index) < 0) return;
  const TierPlace place = PlaceOf(scene, index);
  painter.fillRect(ToRectF(place.strip), scene.style.tier);
  DrawTierLabels(painter, TierOf(scene, index), place, DraggedLabelOf(view, index), scene.style);
  DrawLabel(painter, view.labelEntry.label, place, scene.style);
  const double x = scene.time.X(view.labelEntry.label.timeMs);
  // Where it has snapped to something the line goes through everything.
  const bool snapped = view.labelEntry.snapMs.has_value();
  painter.setPen(QPen(scene.style.selectionEdge, scene.style.hairline,
                      snapped ? Qt::SolidLine : Qt::DashLine));
  painter.drawLine(QLineF(x, snapped ? 0.0 : place.strip.bottom, x, scene.DataBottom()));
}

void PaintBackground(QPainter& painter, const Scene& scene) {
  const PaintStyle& style = scene.style;
  painter.fillRect(scene.client, style.background);
  painter.save();
  painter.setClipRect(scene.ScrolledArea(), Qt::IntersectClip);
  DrawTierStrips(painter, scene);
  DrawValuePane(painter, scene, scene.audio, scene.amplitude, scene.view.document().loaded);
  DrawValuePane(painter, scene, scene.intensity, scene.levels, scene.hasLevels);
  DrawValuePane(painter, scene, scene.pitch, scene.hertz, true);
  DrawZeroLine(painter, scene);
  DrawCaptions(painter, scene);
  painter.restore();
  DrawBottomAxis(painter,
                 QRectF(QPointF(0.0, scene.timeStrip.top()),
                        QPointF(scene.client.right(), scene.timeStrip.bottom())),
                 scene.time, scene.timeTicks, TimeUnit(scene.display.timeBase), style);
}

void PaintData(QPainter& painter, const Scene& scene, const WaveformPyramid& waveform) {
  const CSonadexView& view = scene.view;
  const CChannel& channel = view.channel();
  const PaintStyle& style = scene.style;
  painter.save();
  painter.setClipRect(scene.ScrolledArea(), Qt::IntersectClip);
  if (!scene.audio.isEmpty()) {
    DrawWaveform(painter, {scene.audio, scene.time}, scene.amplitude, view.document(), waveform,
                 style);
  }
  if (scene.hasLevels) {
    const QRectF& pane = scene.levelsOverAudio ? scene.audio : scene.intensity;
    DrawIntensity(painter, {pane, scene.time}, scene.levels, channel, style);
    if (scene.levelsOverAudio) {
      DrawInnerAxis(painter, pane, scene.levels,
                    ValueTicks(pane, scene.levels.low, scene.levels.high, style), style.intensity,
                    style);
      DrawLevelsLegend(painter, scene);
    }
  }
  if (!scene.pitch.isEmpty()) {
    DrawPitch(painter, {scene.pitch, scene.time}, scene.hertz, view.pitch, channel.msPerSample(),
              style);
  }
  DrawAllLabels(painter, scene);
  painter.restore();
}

void PaintOverlay(QPainter& painter, const Scene& scene) {
  const CSonadexView& view = scene.view;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setClipRect(scene.client, Qt::IntersectClip);
  if (view.document().loaded) {
    DrawDraggedLabel(painter, scene);
    DrawSelectedLabel(painter, scene);
    if (view.selectionShown()) DrawSelection(painter, scene);
    if (view.markerSet()) DrawCursor(painter, scene, view.channel().cursor.ms, CursorLook::kSolid);
    if (view.otherPointerMs) DrawCursor(painter, scene, *view.otherPointerMs, CursorLook::kDashed);
  }
  painter.restore();
  DrawReadouts(painter, scene.readouts,
               ReadoutTexts(view.readouts, view.channel().sampleRateHz, scene.display.timeBase),
               scene.style);
}

}  // namespace

void PaintMainView(QPainter& painter, const MainViewPicture& picture, const PaintStyle& style) {
  const Scene scene = SceneWithAxes(picture, style);
  PaintBackground(painter, scene);
  PaintData(painter, scene, picture.waveform);
  PaintOverlay(painter, scene);
}

void PaintMainViewBackground(QPainter& painter, const MainViewPicture& picture,
                             const PaintStyle& style) {
  PaintBackground(painter, SceneWithAxes(picture, style));
}

void PaintMainViewData(QPainter& painter, const MainViewPicture& picture, const PaintStyle& style) {
  PaintData(painter, SceneWithAxes(picture, style), picture.waveform);
}

void PaintMainViewOverlay(QPainter& painter, const MainViewPicture& picture,
                          const PaintStyle& style) {
  PaintOverlay(painter, SceneOf(picture, style));
}

}  // namespace cantorix
