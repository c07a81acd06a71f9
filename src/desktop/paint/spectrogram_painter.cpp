// spectrogram_painter.cpp - the image stretched over the plot, dots of formants, then the cursor.
#include "desktop/paint/spectrogram_painter.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "analysisview/spectrogram_log.h"
#include "desktop/paint/formant_marks.h"
#include "desktop/paint/label_painter.h"
#include "desktop/paint/legend.h"
#include "desktop/paint/picture_axis.h"
#include "desktop/paint/picture_text.h"
#include "desktop/paint/words.h"

namespace cantorix {
namespace {

constexpr double kLeastDotGap = 6.0;  // pixels between the columns whose formants are drawn

const Spectrogram& LevelsOf(const SpectrogramPicture& picture) {
  return picture.view.spectrogram();
}

AxisSpan FrequencySpan(const SpectrogramPicture& picture, const QRectF& pane) {
  const Spectrogram& spectrogram = LevelsOf(picture);
  const double top = spectrogram.computed() ? spectrogram.maxHz
                                            : picture.view.document().settings.spectrogram.rangeHz;
  return ValueSpan(pane, 0.0, std::max(top, 1.0));
}

// Where the computed stretch lies, which may be another one than is shown.
void DrawLevels(QPainter& painter, const QRectF& pane, const AxisScale& time,
                const SpectrogramPicture& picture) {
  painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
  const SampleRange& computed = LevelsOf(picture).range;
  if (picture.view.AxisSamples() == computed) return painter.drawImage(pane, picture.image);
  const double msPerSample = picture.view.document().channel().msPerSample();
  const double left = time.X(computed.start * msPerSample);
  const double right = time.X(computed.end * msPerSample);
  painter.save();
  painter.setClipRect(pane, Qt::IntersectClip);
  painter.drawImage(QRectF(left, pane.top(), right - left, pane.height()), picture.image);
  painter.restore();
}

// On light and on dark levels alike: the grid is a translucent grey.
QColor GridColor() { return {128, 128, 128, 110}; }

void DrawGrids(QPainter& painter, const QRectF& pane, const AxisScale& time, const AxisSpan& hertz,
               const SpectrogramSettings& settings, const std::vector<AxisTick>& timeTicks) {
  if (settings.addFrequencyGrid != 0) {
    DrawValueGrid(painter, pane, hertz, GridEvery(hertz, settings.frequencyGridHz), GridColor());
  }
  if (settings.addTimeGrid != 0) {
    DrawVerticalGrid(painter, pane, time, TimeGrid(time, settings.timeGridMs, timeTicks),
                     GridColor());
  }
}

// The formants of every column, or of every so many when columns are closer than a dot.
void DrawFormantDots(QPainter& painter, const QRectF& pane, const AxisScale& time,
                     const AxisSpan& hertz, const SpectrogramPicture& picture,
                     const PaintStyle& style) {
  const Spectrogram& spectrogram = LevelsOf(picture);
  const double msPerSample = picture.view.document().channel().msPerSample();
  const double gap =
      pane.width() / static_cast<double>(std::max<std::int64_t>(spectrogram.columns, 1));
  const auto step = static_cast<std::size_t>(std::max(std::ceil(kLeastDotGap / gap), 1.0));
  painter.save();
  painter.setClipRect(pane, Qt::IntersectClip);
  FormantPlaces places;
  for (std::size_t c = 0; c < spectrogram.formants.size(); c += step) {
    const double x = time.X(spectrogram.StartOf(static_cast<std::int64_t>(c)) * msPerSample);
    for (std::size_t i = 0; i < kFormants; ++i) {
      const std::uint16_t hz = spectrogram.formants[c][i];
      if (hz == kNoFormantHz || hz == kSilentHz) continue;
      if (hz > hertz.high) {
        DrawFormantAbove(painter, x, pane.top(), i, style);
      } else {
        places[i].emplace_back(x, YOf(pane, hertz, hz));
      }
    }
  }
  DrawFormantMarks(painter, places, style);
  painter.restore();
}

QString CursorLine(const SpectrogramPicture& picture, const PaintStyle& style) {
  if (!picture.cursor) return {};
  const CSonadexDoc& document = picture.view.document();
  const Spectrogram& spectrogram = LevelsOf(picture);
  QString line = TrOn(style, "Cursor %1    %2 Hz")
                     .arg(ShownTime(picture.cursor->ms, document.settings.display.timeBase))
                     .arg(picture.cursor->hz, 0, 'f', 1);
  if (const auto level = LevelAt(spectrogram, document.channel().msPerSample(), picture.cursor->ms,
                                 picture.cursor->hz)) {
    line += QStringLiteral("    %1 dB").arg(*level, 0, 'f', 1);
  }
  const std::int64_t column =
      ColumnAt(spectrogram, document.channel().msPerSample(), picture.cursor->ms);
  if (column < 0 || static_cast<std::size_t>(column) >= spectrogram.formants.size()) return line;
  const FormantColumn& formants = spectrogram.formants[static_cast<std::size_t>(column)];
  if (formants[0] == kSilentHz) return line;
  for (std::size_t i = 0; i < kFormants; ++i) {
    line += QStringLiteral("    F%1 %2")
                .arg(i + 1)
                .arg(QString::fromStdString(ShownFormantText(formants[i], spectrogram.maxHz)));
  }
  return line;
}

QString SelectionLine(const SpectrogramPicture& picture, const PaintStyle& style) {
  if (!picture.selection) return {};
  const std::int32_t base = picture.view.document().settings.display.timeBase;
  const AxisSelection& selection = *picture.selection;
  return TrOn(style, "Selection %1 to %2    Duration %3")
      .arg(ShownTime(selection.start, base), ShownTime(selection.end, base),
           ShownTime(selection.end - selection.start, base));
}

}  // namespace

WindowLayout SpectrogramLayout(PixelSize client, const CSonadexDoc& document) {
  const SpectrogramSettings& settings = document.settings.spectrogram;
  return LayOutWindow(
      client,
      {.labelsHeight = settings.drawLabels != 0 ? HeightOfTiers(document.channel().tiers) : 0,
       .audio = settings.drawAudio != 0,
       .intensity = settings.drawIntensity != 0,
       .readoutLines = client.width >= kOneLineWidth ? 1 : 2});
}

AxisScale SpectrogramTimes(const SpectrogramPicture& picture) {
  const CSonadexDoc& document = picture.view.document();
  const double msPerSample = document.channel().msPerSample();
  const SampleRange range = picture.view.AxisSamples();
  return SpectrogramLayout(picture.client, document)
      .HorizontalAxis(range.start * msPerSample, range.end * msPerSample);
}

void PaintSpectrogram(QPainter& painter, const SpectrogramPicture& picture,
                      const PaintStyle& style) {
  PaintSpectrogramData(painter, picture, style);
  PaintSpectrogramOverlay(painter, picture, style);
}

void PaintSpectrogramData(QPainter& painter, const SpectrogramPicture& picture,
                          const PaintStyle& style) {
  const CSonadexDoc& document = picture.view.document();
  const WindowLayout layout = SpectrogramLayout(picture.client, document);
  const QRectF pane = ToRectF(layout.plot);
  painter.fillRect(QRectF(0.0, 0.0, picture.client.width, picture.client.height), style.background);
  if (pane.isEmpty()) return;
  const AxisScale time = SpectrogramTimes(picture);
  const AxisSpan hertz = FrequencySpan(picture, pane);
  const std::int32_t timeBase = document.settings.display.timeBase;
  const SpectrogramSettings& settings = document.settings.spectrogram;
  const double grid = settings.addFrequencyGrid != 0 ? settings.frequencyGridHz : 0.0;
  DrawPane(painter, pane, style.pane);
  if (!picture.image.isNull()) {
    DrawLevels(painter, pane, time, picture);
  }
  const auto timeTicks = BottomTicks(time, timeBase, style);
  DrawGrids(painter, pane, time, hertz, settings, timeTicks);
  if (settings.displayFormants != 0) {
    DrawFormantDots(painter, pane, time, hertz, picture, style);
    if (!LevelsOf(picture).formants.empty()) {
      DrawLegend(painter, LegendLine(layout.plot), FormantLegend(), style);
    }
  }
  DrawValueUnit(painter, layout.plot, QStringLiteral("Hz"), style);
  DrawFrame(painter, pane, style);
  DrawValueAxis(painter, pane, hertz, ValueTicks(pane, hertz.low, hertz.high, style, grid),
                kPlotLeft, style);
  DrawBottomAxis(painter, ToRectF(layout.bottomAxis), time, timeTicks, TimeUnit(timeBase), style);
  DrawWindowStrips(painter, layout, time, document, picture.waveform, style);
}

void PaintSpectrogramOverlay(QPainter& painter, const SpectrogramPicture& picture,
                             const PaintStyle& style) {
  const WindowLayout layout = SpectrogramLayout(picture.client, picture.view.document());
  const AxisScale time = SpectrogramTimes(picture);
  if (picture.selection) DrawWindowSelection(painter, layout, time, *picture.selection, style);
  if (picture.cursor) {
    const QRectF pane = ToRectF(layout.plot);
    DrawWindowCursor(painter, layout, time, picture.cursor->ms, style);
    DrawWindowCursorRow(painter, layout,
                        YOf(pane, FrequencySpan(picture, pane), picture.cursor->hz), style);
  }
  DrawReadoutLines(painter, layout, {CursorLine(picture, style), SelectionLine(picture, style)},
                   style);
}

}  // namespace cantorix
