// paint_style.cpp - the two palettes and the black and white of prints.
#include "desktop/paint/paint_style.h"

#include <cmath>

namespace cantorix {
namespace {

constexpr int kFontPixels = 11;

QFont PictureFont() {
  QFont font;
  font.setPixelSize(kFontPixels);
  return font;
}

PaintStyle Light() {
  PaintStyle style;
  style.background = QColor(0xf3, 0xf4, 0xf7);
  style.pane = QColor(0xff, 0xff, 0xff);
  style.frame = QColor(0xc4, 0xca, 0xd4);
  style.grid = QColor(0xe4, 0xe8, 0xee);
  style.axis = QColor(0x8a, 0x93, 0xa3);
  style.text = QColor(0x30, 0x37, 0x43);
  style.muted = QColor(0x66, 0x6e, 0x7c);
  style.waveform = QColor(0x2b, 0x5c, 0x9e);
  style.zeroLine = QColor(0xb4, 0xbe, 0xcc);
  style.intensity = QColor(0xa8, 0x4b, 0x12);
  style.pitch = QColor(0x08, 0x74, 0x56);
  style.cursor = QColor(0x1a, 0x1a, 0x1a);
  style.played = QColor(0xc2, 0x6a, 0x00);
  style.pointed = QColor(0x6b, 0x72, 0x80);
  style.selection = QColor(0x2f, 0x7d, 0xf0, 46);
  style.selectionEdge = QColor(0x2f, 0x6f, 0xd0);
  style.tier = QColor(0xfb, 0xfb, 0xf6);
  style.labelLine = QColor(0x9a, 0x8f, 0x6a);
  style.error = QColor(0xb3, 0x26, 0x1e);
  style.spectrumFft = QColor(0x2b, 0x5c, 0x9e);
  style.spectrumLpc = QColor(0xb8, 0x3a, 0x1e);
  style.readoutField = QColor(0xff, 0xff, 0xff);
  return style;
}

PaintStyle Dark() {
  PaintStyle style;
  style.background = QColor(0x1f, 0x22, 0x28);
  style.pane = QColor(0x16, 0x18, 0x1d);
  style.frame = QColor(0x3c, 0x43, 0x4f);
  style.grid = QColor(0x29, 0x2e, 0x37);
  style.axis = QColor(0x76, 0x80, 0x90);
  style.text = QColor(0xd9, 0xde, 0xe7);
  style.muted = QColor(0x98, 0xa1, 0xb0);
  style.waveform = QColor(0x78, 0xad, 0xf0);
  style.zeroLine = QColor(0x47, 0x50, 0x5e);
  style.intensity = QColor(0xf2, 0xa5, 0x62);
  style.pitch = QColor(0x5c, 0xd4, 0xa6);
  style.cursor = QColor(0xff, 0xff, 0xff);
  style.played = QColor(0xff, 0xc2, 0x33);
  style.pointed = QColor(0x9a, 0xa3, 0xb2);
  style.selection = QColor(0x5a, 0x9c, 0xff, 56);
  style.selectionEdge = QColor(0x7f, 0xb2, 0xff);
  style.tier = QColor(0x1b, 0x1e, 0x24);
  style.labelLine = QColor(0x8f, 0x86, 0x66);
  style.error = QColor(0xff, 0x8a, 0x80);
  style.spectrumFft = QColor(0x78, 0xad, 0xf0);
  style.spectrumLpc = QColor(0xff, 0x94, 0x72);
  style.readoutField = QColor(0x16, 0x18, 0x1d);
  return style;
}

double Luminance(const QColor& color) {
  const auto linear = [](double coded) {
    return coded <= 0.04045 ? coded / 12.92 : std::pow((coded + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

QColor Mixed(const QColor& from, const QColor& to, double part) {
  const auto mix = [part](int a, int b) {
    return static_cast<int>(std::lround(a + (b - a) * part));
  };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

}  // namespace

PaintStyle StyleOf(PaletteKind kind) {
  PaintStyle style = kind == PaletteKind::kDark ? Dark() : Light();
  // On a spectrogram, which is the same under both palettes; the marks have rings. Any two of them
  // differ by 29 (CIE76) or more, for colour-blind eyes, too (after Machado's matrices).
  style.formants = {QColor(0xd7, 0x19, 0x1c), QColor(0xfd, 0xb1, 0x0b), QColor(0x00, 0x6d, 0x5b),
                    QColor(0x5e, 0xc8, 0xf8), QColor(0x5e, 0x3c, 0x99)};
  style.font = PictureFont();
  return style;
}

PaintStyle StyleFor(const QPalette& palette) {
  const bool dark =
      palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
  PaintStyle style = StyleOf(dark ? PaletteKind::kDark : PaletteKind::kLight);
  style.onScreen = true;
  return style;
}

PaintStyle BlackOnWhite() {
  PaintStyle style = StyleOf(PaletteKind::kLight);
  const QColor black(0, 0, 0), white(255, 255, 255), grey(0x60, 0x60, 0x60);
  for (QColor* const color : {&style.background, &style.pane, &style.tier, &style.readoutField}) {
    *color = white;
  }
  for (QColor* const color :
       {&style.text, &style.axis, &style.frame, &style.waveform, &style.pitch, &style.cursor,
        &style.selectionEdge, &style.spectrumFft, &style.spectrumLpc, &style.intensity}) {
    *color = black;
  }
  for (QColor* const color : {&style.muted, &style.labelLine, &style.zeroLine}) *color = grey;
  style.grid = QColor(0xd0, 0xd0, 0xd0);
  style.selection = QColor(0, 0, 0, 36);
  style.formants.fill(black);
  style.hasColor = false;
  return style;
}

double ContrastRatio(const QColor& a, const QColor& b) {
  const double first = Luminance(a);
  const double second = Luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor Legible(const QColor& wanted, const QColor& background, double ratio) {
  const QColor away = ContrastRatio(Qt::white, background) > ContrastRatio(Qt::black, background)
                          ? QColor(Qt::white)
                          : QColor(Qt::black);
  constexpr int kSteps = 32;
  for (int step = 0; step < kSteps; ++step) {
    const QColor color = Mixed(wanted, away, static_cast<double>(step) / kSteps);
    if (ContrastRatio(color, background) >= ratio) return color;
  }
  return away;
}

}  // namespace cantorix
