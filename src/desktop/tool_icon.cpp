// tool_icon.cpp - the drawings are black lines; black is replaced by the palette's text colour when
// they are painted, so that they follow a dark palette and a disabled button.
#include "desktop/tool_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <array>
#include <utility>

namespace cantorix {
namespace {

struct IconRow {
  Command command;
  const char* name;
};

constexpr std::array kIcons{
    IconRow{Command::kNew, "new"},
    IconRow{Command::kOpen, "open"},
    IconRow{Command::kSave, "save"},
    IconRow{Command::kPrint, "print"},
    IconRow{Command::kUndo, "undo"},
    IconRow{Command::kCut, "cut"},
    IconRow{Command::kCopy, "copy"},
    IconRow{Command::kPaste, "paste"},
    IconRow{Command::kZoomIn, "zoom_in"},
    IconRow{Command::kZoomOut, "zoom_out"},
    IconRow{Command::kZoomSelection, "zoom_selection"},
    IconRow{Command::kHome, "home"},
    IconRow{Command::kUnZoom, "unzoom"},
    IconRow{Command::kRecord, "record"},
    IconRow{Command::kPlayAll, "play_all"},
    IconRow{Command::kPlaySelection, "play_selection"},
    IconRow{Command::kPlayWindow, "play_window"},
    IconRow{Command::kFftLpc, "fft_lpc"},
    IconRow{Command::kSpectrogramWindow, "spectrogram"},
    IconRow{Command::kPitchAll, "pitch"},
    IconRow{Command::kIntensity, "intensity"},
    IconRow{Command::kSmooth, "smooth"},
    IconRow{Command::kSetReferenceOfAll, "reference"},
    IconRow{Command::kLabelEntryMode, "label_entry"},
    IconRow{Command::kPhoneticChart, "phonetic_chart"},
    IconRow{Command::kViewLabels, "label_list"},
    IconRow{Command::kHelpTopics, "help"},
};

QByteArray Drawing(const QString& name) {
  QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QColor ColourFor(QIcon::Mode mode) {
  const QPalette palette = QGuiApplication::palette();
  if (mode == QIcon::Disabled) return palette.color(QPalette::Disabled, QPalette::ButtonText);
  if (mode == QIcon::Selected) return palette.color(QPalette::HighlightedText);
  return palette.color(QPalette::ButtonText);
}

class DrawnIconEngine : public QIconEngine {
 public:
  explicit DrawnIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QByteArray tinted = drawing_;
    tinted.replace("#000000", ColourFor(mode).name().toLatin1());
    QSvgRenderer(tinted).render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new DrawnIconEngine(drawing_); }

 private:
  QByteArray drawing_;
};

}  // namespace

QIcon IconOf(Command command) {
  for (const IconRow& row : kIcons) {
    if (row.command == command) return DrawnIcon(QString::fromLatin1(row.name));
  }
  return {};
}

QIcon DrawnIcon(const QString& name) {
  const QByteArray drawing = Drawing(name);
  return drawing.isEmpty() ? QIcon() : QIcon(new DrawnIconEngine(drawing));
}

}  // namespace cantorix
