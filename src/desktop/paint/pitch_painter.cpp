// pitch_painter.cpp - background with axes, the track with its gaps, then the cursor.
#include "desktop/paint/pitch_painter.h"

#include <algorithm>

#include "desktop/paint/label_painter.h"
#include "desktop/paint/picture_axis.h"
#include "desktop/paint/signal_strips.h"
#include "desktop/paint/words.h"
#include "mainview/track_lookup.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

QString ReadoutLine(const PitchPicture& picture, const PaintStyle& style) {
  if (!picture.cursorMs) return {};
  const CChannel& channel = picture.document.channel();
  const double ms = *picture.cursorMs;
  return TrOn(style, "Cursor %1    Pitch %2 Hz    Intensity %3 dB")
      .arg(ShownTime(ms, picture.document.settings.display.timeBase))
      .arg(PitchAt(picture.pitch, channel, ms), 0, 'f', 1)
      .arg(IntensityAt(channel.intensity, channel, ms), 0, 'f', 1);
}

QString SelectionLine(const PitchPicture& picture, const PaintStyle& style) {
  if (!picture.selection) return {};
  const std::int32_t base = picture.document.settings.display.timeBase;
  const AxisSelection& selection = *picture.selection;
  return TrOn(style, "Selection %1 to %2    Average pitch %3 Hz")
      .arg(ShownTime(selection.start, base), ShownTime(selection.end, base))
      .arg(AveragePitch(picture.pitch, picture.document.channel(), selection.start, selection.end),
           0, 'f', 1);
}

}  // namespace

WindowLayout PitchLayout(const PitchPicture& picture) {
  const PitchSettings& settings = picture.document.settings.pitch;
  const Tiers& tiers = picture.document.channel().tiers;
  return LayOutWindow(picture.client,
                      {.labelsHeight = settings.addLabels != 0 ? HeightOfTiers(tiers) : 0,
                       .audio = settings.addAudio != 0,
                       .intensity = settings.addIntensity != 0,
                       .readoutLines = picture.client.width >= kOneLineWidth ? 1 : 2});
}

AxisScale PitchTimes(const PitchPicture& picture) {
  return PitchLayout(picture).HorizontalAxis(picture.startMs, picture.endMs);
}

void PaintPitch(QPainter& painter, const PitchPicture& picture, const PaintStyle& style) {
  PaintPitchData(painter, picture, style);
  PaintPitchOverlay(painter, picture, style);
}

void PaintPitchData(QPainter& painter, const PitchPicture& picture, const PaintStyle& style) {
  const WindowLayout layout = PitchLayout(picture);
  const QRectF pane = ToRectF(layout.plot);
  painter.fillRect(QRectF(0.0, 0.0, picture.client.width, picture.client.height), style.background);
  if (pane.isEmpty()) return;
  const DocumentSettings& settings = picture.document.settings;
  const std::int32_t timeBase = settings.display.timeBase;
  const AxisScale time = PitchTimes(picture);
  const AxisSpan hertz = DisplayedPitch(settings.pitch, pane);
  const auto timeTicks = BottomTicks(time, timeBase, style);
  const double grid = settings.pitch.addFrequencyGrid != 0 ? settings.pitch.frequencyGridHz : 0.0;
  DrawPane(painter, pane, style.pane);
  DrawValueGrid(painter, pane, hertz, GridEvery(hertz, grid), style.grid);
  if (settings.pitch.addTimeGrid != 0) {
    DrawVerticalGrid(painter, pane, time, TimeGrid(time, settings.pitch.timeGridMs, timeTicks),
                     style.grid);
  }
  DrawPitch(painter, {pane, time}, hertz, picture.pitch, picture.document.channel().msPerSample(),
            style);
  DrawValueUnit(painter, layout.plot, QStringLiteral("Hz"), style);
  DrawFrame(painter, pane, style);
  DrawValueAxis(painter, pane, hertz, ValueTicks(pane, hertz.low, hertz.high, style, grid),
                kPlotLeft, style);
  DrawBottomAxis(painter, ToRectF(layout.bottomAxis), time, timeTicks, TimeUnit(timeBase), style);
  DrawWindowStrips(painter, layout, time, picture.document, picture.waveform, style);
}

void PaintPitchOverlay(QPainter& painter, const PitchPicture& picture, const PaintStyle& style) {
  const WindowLayout layout = PitchLayout(picture);
  const AxisScale time = PitchTimes(picture);
  if (picture.selection) DrawWindowSelection(painter, layout, time, *picture.selection, style);
  if (picture.cursorMs) DrawWindowCursor(painter, layout, time, *picture.cursorMs, style);
  DrawReadoutLines(painter, layout, {ReadoutLine(picture, style), SelectionLine(picture, style)},
                   style);
}

}  // namespace cantorix
