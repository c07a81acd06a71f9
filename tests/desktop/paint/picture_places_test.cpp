// picture_places_test.cpp - what is measured stands where the axes say it is. Tones are in
// analysis_windows_test.cpp.
#include <gtest/gtest.h>

#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/paint_fixture.h"
#include "desktop/paint/spectrogram_image.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

constexpr PixelSize kClient{900, 600};

TEST(MainViewPicture, AnImpulseStandsAtItsTime) {
  for (const double ratio : {1.0, 2.0}) {
    Samples samples(11025, 0);
    samples[6000] = 20000;
    ViewWorld world;
    ViewedRecording recording(world, samples, kFixtureRateHz);
    DocumentWaveform waveform(recording.document);
    recording.view.LayOut(kClient);
    const auto paint = [&](QPainter& painter, const PaintStyle& style) {
      PaintMainView(painter, {recording.view, waveform.Pyramid()}, style);
    };
    const QImage image = Painted(kClient, paint, ratio);
    const PixelRect& pane = recording.view.layout.audio;
    const int row = static_cast<int>((pane.top + (pane.bottom - pane.top) * 0.25) * ratio);
    const double expected =
        TimeAxisOf(recording.channel(), pane.right - pane.left).X(6000.0 / kFixtureRateHz * 1000.0);
    int found = -1;
    for (int x = static_cast<int>(pane.left * ratio); x < pane.right * ratio; ++x) {
      if (image.pixelColor(x, row) == StyleOf(PaletteKind::kLight).waveform) found = x;
    }
    EXPECT_NEAR(found / ratio, expected, 1.0) << ratio;
  }
}

TEST(SpectrogramImage, IsMadeOfTheLevelsWithZeroHzAtTheBottom) {
  Spectrogram spectrogram;
  spectrogram.outcome = SpectrogramOutcome::kComputed;
  spectrogram.columns = 2;
  spectrogram.rows = 3;
  spectrogram.levels = std::make_unique<double[]>(6);
  for (int i = 0; i < 6; ++i) spectrogram.levels[static_cast<std::size_t>(i)] = i * 10.0;
  const QImage image = SpectrogramImage(spectrogram, 50.0, ColorMap::kGrey);
  const ColorTable table = MakeColorTable(ColorMap::kGrey);
  ASSERT_EQ(image.size(), QSize(2, 3));
  EXPECT_EQ(image.pixel(0, 2), table[0]);
  EXPECT_EQ(image.pixel(0, 0), table[ColorIndex(20.0, 50.0)]);
  EXPECT_EQ(image.pixel(1, 0), table[255]);
}

}  // namespace
}  // namespace cantorix
