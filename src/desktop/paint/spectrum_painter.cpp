// spectrum_painter.cpp - background with axes, the two curves, then the cursor.
#include "desktop/paint/spectrum_painter.h"

#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "analysisview/fft_lpc_log.h"
#include "desktop/paint/label_painter.h"
#include "desktop/paint/legend.h"
#include "desktop/paint/picture_axis.h"
#include "desktop/paint/picture_text.h"
#include "desktop/paint/window_strips.h"
#include "desktop/paint/words.h"

namespace cantorix {
namespace {

constexpr std::int32_t kReadoutLines = 3;
constexpr double kFftWidth = 1.2;  // pixels
constexpr double kLpcWidth = 2.0;

QString Text(const std::string& text) { return QString::fromStdString(text); }
QString OneDecimal(double value) { return QString::number(value, 'f', 1); }

// A curve over the display points; what is not finite interrupts it.
void DrawCurve(QPainter& painter, const QRectF& pane, const AxisScale& axis, const AxisSpan& levels,
               std::span<const double> values) {
  QPolygonF run;
  const double step = axis.high / static_cast<double>(values.size());
  for (std::size_t i = 0; i <= values.size(); ++i) {
    const bool inUse = i < values.size() && std::isfinite(values[i]);
    if (inUse) {
      run << QPointF(axis.X(static_cast<double>(i) * step), YOf(pane, levels, values[i]));
    } else {
      painter.drawPolyline(run);
      run.clear();
    }
  }
}

// A formant's line, its bandwidth as a bar at the top, its name in a box beside the line.
void DrawFormant(QPainter& painter, const QRectF& pane, const AxisScale& axis,
                 const Formant& formant, const QRectF& name, const QString& text) {
  const QColor color = painter.pen().color();
  const double x = axis.X(formant.frequencyHz);
  const double half = axis.X(formant.bandwidthHz / 2.0) - axis.X(0.0);
  painter.setPen(QPen(color, 1.0, Qt::DashLine));
  painter.drawLine(QLineF(x, pane.top(), x, pane.bottom()));
  painter.setPen(QPen(color, 3.0, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(QLineF(std::max(x - half, pane.left()), pane.top() + 2.0,
                          std::min(x + half, pane.right()), pane.top() + 2.0));
  painter.setPen(color);
  painter.drawText(name, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

// Names stand at the top, a line lower where they would touch the one before.
void DrawFormants(QPainter& painter, const QRectF& pane, const AxisScale& axis,
                  const FormantValues& formants, const PaintStyle& style) {
  const QFont font = Resized(style.font, style.font.pixelSize() - 1);
  painter.setFont(font);
  double free = pane.left();
  int line = 0;
  for (std::size_t i = 0; i < kFormants; ++i) {
    const Formant formant{formants.frequencyHz[i], formants.bandwidthHz[i]};
    if (!(formant.frequencyHz > 0.0) || formant.frequencyHz > axis.high) continue;
    const QString text = QStringLiteral("F%1").arg(i + 1);
    const QSizeF size = TextSize(font, text);
    const double left =
        std::min(axis.X(formant.frequencyHz) + 3.0, pane.right() - size.width() - 1.0);
    line = left < free ? line + 1 : 0;
    const QRectF name(left, pane.top() + 5.0 + line * size.height(), size.width() + 1.0,
                      size.height());
    painter.setPen(style.hasColor ? Legible(style.formants[i], style.pane) : style.text);
    DrawFormant(painter, pane, axis, formant, name, text);
    free = name.right();
  }
}

// A formant above the picture has an arrow.
QString FormantsLine(const FormantValues& formants, double maxHz, const PaintStyle& style) {
  QStringList parts;
  for (std::size_t i = 0; i < kFormants; ++i) {
    if (!(formants.frequencyHz[i] > 0.0)) continue;
    const char* const place = formants.frequencyHz[i] > maxHz ? "\u2191 " : "";
    parts << QStringLiteral("F%1 %2%3 Hz (%4)")
                 .arg(i + 1)
                 .arg(QString::fromUtf8(place), OneDecimal(formants.frequencyHz[i]),
                      OneDecimal(formants.bandwidthHz[i]));
  }
  if (parts.isEmpty()) return TrOn(style, "No formants");
  return parts.join(QStringLiteral("    "));
}

QString SettingsLine(const FftLpcTexts& texts, const PaintStyle& style) {
  return TrOn(style, "FFT %1 points    Window %2 ms    Step %3 ms    LPC %4    Rate %5 Hz")
      .arg(Text(texts.points), Text(texts.windowMs), Text(texts.stepMs), Text(texts.lpcOrder),
           Text(texts.rateHz));
}

QString CursorLine(const SpectrumPicture& picture, const PaintStyle& style) {
  if (!picture.cursorHz) return {};
  const Spectrum& spectrum = picture.view.spectrum();
  const double hz = *picture.cursorHz;
  return TrOn(style, "Cursor %1 Hz    FFT %2 dB    LPC %3 dB")
      .arg(OneDecimal(hz), OneDecimal(DisplayValueAt(spectrum.fftDb, hz, spectrum.maxHz)),
           OneDecimal(DisplayValueAt(spectrum.lpcDb, hz, spectrum.maxHz)));
}

void DrawGrids(QPainter& painter, const QRectF& pane, const AxisScale& axis, const AxisSpan& levels,
               const FftLpcSettings& settings, const PaintStyle& style) {
  if (settings.addFrequencyGrid != 0) {
    DrawVerticalGrid(painter, pane, axis, GridEvery(axis.Span(), settings.frequencyGridHz),
                     style.grid);
  }
  if (settings.addPowerGrid != 0) {
    DrawValueGrid(painter, pane, levels, GridEvery(levels, settings.powerGridDb), style.grid);
  }
}

void DrawCurves(QPainter& painter, const QRectF& pane, const AxisScale& axis,
                const AxisSpan& levels, const SpectrumPicture& picture, const PaintStyle& style) {
  const Spectrum& spectrum = picture.view.spectrum();
  painter.save();
  painter.setClipRect(pane, Qt::IntersectClip);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(style.spectrumFft, kFftWidth));
  DrawCurve(painter, pane, axis, levels, spectrum.fftDb);
  if (picture.view.document().settings.fftLpc.drawLpc != 0) {
    painter.setPen(
        QPen(style.spectrumLpc, kLpcWidth, style.hasColor ? Qt::SolidLine : Qt::DashLine));
    DrawCurve(painter, pane, axis, levels, spectrum.lpcDb);
    DrawFormants(painter, pane, axis, spectrum.formants, style);
  }
  painter.restore();
}

void DrawCurvesLegend(QPainter& painter, const PixelRect& plot, const PaintStyle& style) {
  using Mark = LegendEntry::Mark;
  DrawLegend(painter, LegendLine(plot),
             {{.mark = style.hasColor ? Mark::kLine : Mark::kDashes,
               .text = QStringLiteral("LPC"),
               .color = style.spectrumLpc,
               .width = kLpcWidth},
              {.mark = Mark::kLine,
               .text = QStringLiteral("FFT"),
               .color = style.spectrumFft,
               .width = kFftWidth}},
             style);
}

}  // namespace

WindowLayout SpectrumLayout(PixelSize client) {
  return LayOutWindow(client, {.readoutLines = kReadoutLines});
}

AxisScale SpectrumAxis(const SpectrumPicture& picture) {
  const double top = picture.view.computed() ? picture.view.spectrum().maxHz
                                             : picture.view.document().settings.fftLpc.rangeHz;
  return SpectrumLayout(picture.client).HorizontalAxis(0.0, std::max(top, 1.0));
}

AxisSpan SpectrumLevels(const SpectrumPicture& picture) {
  const QRectF pane = ToRectF(SpectrumLayout(picture.client).plot);
  return ValueSpan(pane, 0.0, picture.view.TopLevelDb());
}

void PaintSpectrum(QPainter& painter, const SpectrumPicture& picture, const PaintStyle& style) {
  PaintSpectrumData(painter, picture, style);
  PaintSpectrumOverlay(painter, picture, style);
}

void PaintSpectrumData(QPainter& painter, const SpectrumPicture& picture, const PaintStyle& style) {
  const WindowLayout layout = SpectrumLayout(picture.client);
  const QRectF pane = ToRectF(layout.plot);
  painter.fillRect(QRectF(0.0, 0.0, picture.client.width, picture.client.height), style.background);
  if (pane.isEmpty()) return;
  const AxisScale axis = SpectrumAxis(picture);
  const AxisSpan levels = SpectrumLevels(picture);
  DrawPane(painter, pane, style.pane);
  DrawGrids(painter, pane, axis, levels, picture.view.document().settings.fftLpc, style);
  if (picture.view.computed()) {
    DrawCurves(painter, pane, axis, levels, picture, style);
    const bool hasBoth = picture.view.document().settings.fftLpc.drawLpc != 0;
    if (hasBoth) DrawCurvesLegend(painter, layout.plot, style);
  }
  DrawValueUnit(painter, layout.plot, QStringLiteral("dB"), style);
  DrawFrame(painter, pane, style);
  const FftLpcSettings& settings = picture.view.settings();
  const double grid = settings.addPowerGrid != 0 ? settings.powerGridDb : 0.0;
  DrawValueAxis(painter, pane, levels, ValueTicks(pane, levels.low, levels.high, style, grid),
                kPlotLeft, style);
  DrawBottomAxis(painter, ToRectF(layout.bottomAxis), axis, BottomTicks(axis, 0, style),
                 QStringLiteral("Hz"), style);
}

void PaintSpectrumOverlay(QPainter& painter, const SpectrumPicture& picture,
                          const PaintStyle& style) {
  const WindowLayout layout = SpectrumLayout(picture.client);
  if (picture.cursorHz) {
    DrawWindowCursor(painter, layout, SpectrumAxis(picture), *picture.cursorHz, style);
  }
  if (!picture.view.computed()) return DrawReadoutLines(painter, layout, {}, style);
  DrawReadoutLines(
      painter, layout,
      {CursorLine(picture, style),
       FormantsLine(picture.view.spectrum().formants, picture.view.spectrum().maxHz, style),
       SettingsLine(picture.view.texts(), style)},
      style);
}

}  // namespace cantorix
