// level_meter_view.cpp - the bar and its scale.
#include "desktop/sound/level_meter_view.h"

#include <QPainter>
#include <algorithm>

#include "desktop/paint/paint_style.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "mainview/sound_texts.h"

namespace cantorix {
namespace {

constexpr double kLowestDb = -60.0;
constexpr int kTicksDb[] = {0, -6, -20, -40, -60};
constexpr int kThickness = 14;  // of the bar, logical pixels
constexpr int kLamp = 8;
constexpr int kScale = 26;           // room for the numbers
constexpr double kLeastRoom = 13.0;  // between two numbers
constexpr int kEnd = 7;              // half a number beyond the bar

}  // namespace

LevelMeterView::LevelMeterView(Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent), AccessiblePicture(this), orientation_(orientation) {
  setAccessibleName(Tr("Input level"));
  setSizePolicy(orientation == Qt::Horizontal ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                orientation == Qt::Horizontal ? QSizePolicy::Fixed : QSizePolicy::Expanding);
}

QSize LevelMeterView::sizeHint() const {
  return orientation_ == Qt::Horizontal ? QSize(240, kThickness + kScale - 6)
                                        : QSize(kThickness + kScale + 6, 160);
}

void LevelMeterView::Show(const std::optional<InputLevel>& level) {
  level_ = level;
  setAccessibleDescription(level ? Translated(PeakText(level->reading) + ", " +
                                              RmsText(level->reading) + ", " + ClippedText(*level))
                                 : QString());
  update();
}

QRectF LevelMeterView::Bar() const {
  if (orientation_ == Qt::Horizontal) {
    return {kEnd + 4.0, 1.0, width() - 2.0 * kEnd - 4.0 - kLamp - 4.0, kThickness};
  }
  return {1.0, kEnd + kLamp + 4.0, kThickness, height() - 2.0 * kEnd - kLamp - 4.0};
}

QRectF LevelMeterView::Part(double fromDb, double toDb) const {
  const auto part = [](double db) { return std::clamp(1.0 - db / kLowestDb, 0.0, 1.0); };
  const QRectF bar = Bar();
  const double from = part(fromDb);
  const double to = std::max(part(toDb), from);
  if (orientation_ == Qt::Horizontal) {
    return {bar.left() + bar.width() * from, bar.top(), bar.width() * (to - from), bar.height()};
  }
  return {bar.left(), bar.bottom() - bar.height() * to, bar.width(), bar.height() * (to - from)};
}

void LevelMeterView::DrawScale(QPainter& painter) {
  const PaintStyle style = StyleFor(palette());
  const QRectF bar = Bar();
  painter.setFont(style.font);
  const QPointF room = Part(kLevelMarkDb, kLevelMarkDb).topLeft() - Part(0.0, 0.0).topLeft();
  for (const int db : kTicksDb) {
    const QPointF at = Part(db, db).topLeft();
    if (db == 0 && room.manhattanLength() < kLeastRoom) continue;
    const QString text = QString::number(db);
    const bool isMark = db == static_cast<int>(kLevelMarkDb);
    painter.setPen(isMark ? style.text : style.muted);
    if (orientation_ == Qt::Horizontal) {
      painter.drawLine(QPointF(at.x(), bar.bottom()), QPointF(at.x(), bar.bottom() + 3.0));
      painter.drawText(QRectF(at.x() - 20.0, bar.bottom() + 3.0, 40.0, 14.0), Qt::AlignCenter,
                       text);
    } else {
      painter.drawLine(QPointF(bar.right(), at.y()), QPointF(bar.right() + 3.0, at.y()));
      painter.drawText(QRectF(bar.right() + 5.0, at.y() - 7.0, kScale, 14.0),
                       Qt::AlignLeft | Qt::AlignVCenter, text);
    }
  }
}

void LevelMeterView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const PaintStyle style = StyleFor(palette());
  const QRectF bar = Bar();
  painter.fillRect(bar, style.pane);
  if (level_) {
    const LevelReading& reading = level_->reading;
    QColor peak = style.waveform;
    peak.setAlpha(115);
    painter.fillRect(Part(kLowestDb, reading.peakDb), peak);
    painter.fillRect(Part(kLowestDb, reading.rmsDb), style.waveform);
    const QColor hot = style.intensity;
    if (reading.peakDb > kLevelMarkDb) painter.fillRect(Part(kLevelMarkDb, reading.peakDb), hot);
    if (reading.heldPeakDb > kLowestDb) {
      const QRectF held = Part(reading.heldPeakDb, reading.heldPeakDb);
      painter.setPen(QPen(reading.heldPeakDb > kLevelMarkDb ? hot : style.text, 2.0));
      painter.drawLine(held.topLeft(),
                       orientation_ == Qt::Horizontal ? held.bottomLeft() : held.topRight());
    }
  }
  painter.setPen(QPen(style.muted, 1.0, Qt::DotLine));
  const QRectF mark = Part(kLevelMarkDb, kLevelMarkDb);
  painter.drawLine(mark.topLeft(),
                   orientation_ == Qt::Horizontal ? mark.bottomLeft() : mark.topRight());
  const QRectF lamp = orientation_ == Qt::Horizontal
                          ? QRectF(bar.right() + 4.0, bar.top(), kLamp, bar.height())
                          : QRectF(bar.left(), bar.top() - kLamp - 4.0, bar.width(), kLamp);
  const bool clipped = level_ && level_->reading.clips > 0;
  painter.setPen(style.axis);
  painter.setBrush(clipped ? style.spectrumLpc : style.pane);
  painter.drawRect(lamp.adjusted(0.0, 0.0, -1.0, -1.0));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(bar.adjusted(0.0, 0.0, -1.0, -1.0));
  DrawScale(painter);
}

}  // namespace cantorix
