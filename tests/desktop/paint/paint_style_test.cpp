// paint_style_test.cpp - colours that can be told apart in both palettes.
#include "desktop/paint/paint_style.h"

#include <gtest/gtest.h>

namespace cantorix {
namespace {

TEST(PaintStyle, TextsAndCurvesStandOutOfEveryPalette) {
  struct Row {
    const char* name;
    PaintStyle style;
  };
  const Row rows[] = {{"light", StyleOf(PaletteKind::kLight)},
                      {"dark", StyleOf(PaletteKind::kDark)},
                      {"black on white", BlackOnWhite()}};
  for (const Row& row : rows) {
    const PaintStyle& s = row.style;
    for (const QColor& text : {s.text, s.muted}) {
      for (const QColor& behind : {s.background, s.pane, s.tier, s.readoutField}) {
        EXPECT_GE(ContrastRatio(text, behind), 4.5) << row.name << ' ' << text.name().toStdString();
      }
    }
    // Written in their colour in captions and on the inner axis.
    for (const QColor& curve : {s.waveform, s.intensity, s.pitch, s.spectrumFft, s.spectrumLpc}) {
      EXPECT_GE(ContrastRatio(curve, s.pane), 4.5) << row.name << ' ' << curve.name().toStdString();
    }
    EXPECT_GE(ContrastRatio(s.cursor, s.pane), 3.0) << row.name;
    EXPECT_GE(ContrastRatio(s.played, s.pane), 3.0) << row.name;
    EXPECT_GE(ContrastRatio(s.labelLine, s.pane), 3.0) << row.name;
    EXPECT_GE(ContrastRatio(s.axis, s.background), 2.5) << row.name;
    EXPECT_LT(ContrastRatio(s.grid, s.pane), 1.6) << row.name << ": a grid must not compete";
  }
}

TEST(PaintStyle, ContrastIsThatOfTheLuminances) {
  EXPECT_NEAR(ContrastRatio(Qt::white, Qt::black), 21.0, 1e-9);
  EXPECT_NEAR(ContrastRatio(QColor(10, 10, 10), Qt::black), 1.0607, 1e-4);
  EXPECT_NEAR(ContrastRatio(Qt::black, QColor(0x77, 0x77, 0x77)), 4.6895, 1e-3);
}

TEST(PaintStyle, LegibleColoursKeepTheirHueWhereTheyCan) {
  const QColor dark(0x16, 0x18, 0x1d);
  EXPECT_EQ(Legible(QColor(255, 200, 0), dark), QColor(255, 200, 0)) << "needs no change";
  const QColor blue = Legible(QColor(0, 0, 128), dark);
  EXPECT_GE(ContrastRatio(blue, dark), 4.5);
  EXPECT_GT(blue.blue(), blue.red());
  for (const QColor background : {QColor(Qt::black), QColor(Qt::white), QColor(119, 119, 119)}) {
    EXPECT_GE(ContrastRatio(Legible(background, background), background), 4.4);
  }
}

}  // namespace
}  // namespace cantorix
