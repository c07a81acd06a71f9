// readout_strip.cpp
#include "desktop/windows/readout_strip.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace cantorix {
namespace {

constexpr int kMargin = 6;   // pixels around the strip
constexpr int kGap = 14;     // between two pairs
constexpr int kNameGap = 4;  // between a name and its value
constexpr int kLineGap = 3;  // between two lines
constexpr auto kWidestValue = "000000.0";

QString NameOf(const WindowReadout& readout) { return QString::fromStdString(readout.label); }
QString ValueOf(const WindowReadout& readout) { return QString::fromStdString(readout.value); }

}  // namespace

ReadoutStrip::ReadoutStrip(QWidget* parent) : QWidget(parent) {
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  setAccessibleName(QStringLiteral("Readouts"));
}

void ReadoutStrip::Show(std::vector<WindowReadout> readouts) {
  const bool resized = readouts.size() != readouts_.size();
  readouts_ = std::move(readouts);
  setAccessibleDescription(Text());
  if (resized) updateGeometry();
  update();
}

QString ReadoutStrip::Text() const {
  QStringList pairs;
  for (const WindowReadout& readout : readouts_) {
    pairs << NameOf(readout) + ' ' + ValueOf(readout);
  }
  return pairs.join('\t');
}

int ReadoutStrip::CellWidth() const {
  const QFontMetrics metrics(font());
  int name = 0;
  for (const WindowReadout& readout : readouts_) {
    name = std::max(name, metrics.horizontalAdvance(NameOf(readout)));
  }
  return name + kNameGap + metrics.horizontalAdvance(QLatin1String(kWidestValue));
}

int ReadoutStrip::ColumnsIn(int width) const {
  return std::max((width - 2 * kMargin + kGap) / (CellWidth() + kGap), 1);
}

int ReadoutStrip::heightForWidth(int width) const {
  const int columns = ColumnsIn(width);
  const int lines = std::max((static_cast<int>(readouts_.size()) + columns - 1) / columns, 1);
  return lines * (QFontMetrics(font()).height() + kLineGap) - kLineGap + 2 * kMargin;
}

QSize ReadoutStrip::sizeHint() const { return {500, heightForWidth(500)}; }

QSize ReadoutStrip::minimumSizeHint() const {
  return {CellWidth() + 2 * kMargin, QFontMetrics(font()).height() + 2 * kMargin};
}

void ReadoutStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QFontMetrics metrics(font());
  const int columns = ColumnsIn(width());
  const int cell = CellWidth();
  for (std::size_t i = 0; i < readouts_.size(); ++i) {
    const int column = static_cast<int>(i) % columns;
    const int line = static_cast<int>(i) / columns;
    const QRect box(kMargin + column * (cell + kGap),
                    kMargin + line * (metrics.height() + kLineGap), cell, metrics.height());
    const QString name = NameOf(readouts_[i]);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, name);
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    painter.setFont(strong);
    painter.drawText(box.adjusted(metrics.horizontalAdvance(name) + kNameGap, 0, kGap, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, ValueOf(readouts_[i]));
    painter.setFont(font());
  }
}

void ReadoutStrip::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(QStringLiteral("Copy Readouts"),
                 [this] { QGuiApplication::clipboard()->setText(Text()); });
  menu.exec(event->globalPos());
}

}  // namespace cantorix
