// legend.cpp - samples and texts from left to right, ending at the right edge.
#include "desktop/paint/legend.h"

#include <cmath>

#include "desktop/paint/formant_marks.h"
#include "desktop/paint/picture_text.h"

namespace cantorix {
namespace {

constexpr double kLineSample = 15.0;  // pixels
constexpr double kMarkSample = 2.0 * kFormantMarkReach;
constexpr double kTextGap = 3.0;
constexpr double kEntryGap = 10.0;

bool IsFormant(const LegendEntry& entry) { return entry.mark == LegendEntry::Mark::kFormant; }

double SampleWidth(const LegendEntry& entry) {
  return IsFormant(entry) ? kMarkSample : kLineSample;
}

void DrawSample(QPainter& painter, const QRectF& box, const LegendEntry& entry,
                const PaintStyle& style) {
  const double y = std::floor(box.center().y()) + 0.5;
  if (IsFormant(entry)) {
    FormantPlaces places;
    places[entry.formant].emplace_back(box.center().x(), y);
    return DrawFormantMarks(painter, places, style);
  }
  QPen pen(entry.color, entry.width, Qt::SolidLine, Qt::FlatCap);
  if (entry.mark == LegendEntry::Mark::kDashes) {
    pen.setDashPattern({6.0 / entry.width, 3.0 / entry.width});
  }
  painter.setPen(pen);
  painter.drawLine(QLineF(box.left(), y, box.right(), y));
}

}  // namespace

void DrawLegend(QPainter& painter, const QRectF& line, const std::vector<LegendEntry>& entries,
                const PaintStyle& style, const QColor& plate) {
  const QFont font = Resized(style.font, style.font.pixelSize() - 1);
  double width = kEntryGap * (static_cast<double>(entries.size()) - 1.0);
  for (const LegendEntry& entry : entries) {
    width += SampleWidth(entry) + kTextGap + std::ceil(TextSize(font, entry.text).width());
  }
  if (width > line.width()) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  double left = std::floor(line.right() - width);
  if (plate.alpha() > 0) {
    painter.fillRect(QRectF(left, line.top(), width, line.height()).adjusted(-3, 0, 3, 0), plate);
  }
  for (const LegendEntry& entry : entries) {
    const QRectF sample(left, line.top(), SampleWidth(entry), line.height());
    DrawSample(painter, sample, entry, style);
    const double textWidth = std::ceil(TextSize(font, entry.text).width());
    painter.setPen(style.text);
    painter.setFont(font);
    painter.drawText(QRectF(sample.right() + kTextGap, line.top(), textWidth, line.height()),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                     entry.text);
    left = sample.right() + kTextGap + textWidth + kEntryGap;
  }
  painter.restore();
}

std::vector<LegendEntry> FormantLegend() {
  std::vector<LegendEntry> entries;
  for (std::size_t i = 0; i < kFormants; ++i) {
    entries.push_back({.mark = LegendEntry::Mark::kFormant,
                       .text = QStringLiteral("F%1").arg(i + 1),
                       .color = {},
                       .formant = i});
  }
  return entries;
}

}  // namespace cantorix
