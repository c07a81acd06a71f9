// picture_places_test.cpp - what is measured stands where the axes say it is.
#include <gtest/gtest.h>

#include <functional>

#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/paint_fixture.h"
#include "desktop/paint/spectrogram_image.h"
#include "desktop/paint/spectrogram_painter.h"
#include "desktop/paint/spectrum_painter.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

constexpr PixelSize kClient{900, 600};

int Darkness(const QImage& image, int x, int y) { return 255 - qGray(image.pixel(x, y)); }

// The x or y in [first, last) with the most of something.
int Most(int first, int last, const std::function<double(int)>& value) {
  int best = first;
  for (int i = first; i < last; ++i) {
    if (value(i) > value(best)) best = i;
  }
  return best;
}

class PictureOfTone : public testing::TestWithParam<double> {};

TEST_P(PictureOfTone, IsALineAtItsRowOfTheSpectrogramFromItsOnset) {
  const double hz = GetParam();
  ViewWorld world;
  ViewedRecording recording(world, ToneFrom(500.0, hz, 1000.0), kFixtureRateHz);
  SpectrogramSettings& settings = recording.document.settings.spectrogram;
  settings.points = 512;
  settings.sizeIndex = 5;
  settings.displayFormants = settings.trackFormants = 0;
  settings.addFrequencyGrid = settings.addTimeGrid = 0;
  const WindowLayout layout = SpectrogramLayout(kClient, recording.document);
  const PixelRect& plot = layout.plot;
  CSpectrogramView view(recording.document);
  ASSERT_TRUE(view.ComputeSpectrogram({0.0, recording.channel().totalLength},
                                      {plot.right - plot.left, plot.bottom - plot.top, true}));
  const QImage levels =
      SpectrogramImage(view.spectrogram(), settings.dynamicRangeDb, ColorMap::kGrey);
  const SpectrogramPicture picture{view, levels, nullptr, kClient, {}, {}};
  const QImage image = Painted(kClient, [&](QPainter& painter, const PaintStyle& style) {
    PaintSpectrogram(painter, picture, style);
  });

  const int column = plot.left + (plot.right - plot.left) * 3 / 4;
  double weight = 0.0, sum = 0.0;
  for (int y = plot.top + 40; y < plot.bottom - 1; ++y) {
    const double darkness = Darkness(image, column, y);
    if (darkness < 200.0) continue;
    weight += darkness;
    sum += darkness * (y + 0.5);
  }
  ASSERT_GT(weight, 0.0);
  const double topHz = view.spectrogram().maxHz;
  const double rowHz = topHz / (plot.bottom - plot.top);
  EXPECT_NEAR((plot.bottom - sum / weight) * rowHz, hz, 2.0 * rowHz);

  const int row = static_cast<int>(sum / weight);
  const int onset = Most(plot.left + 1, plot.right - 1, [&](int x) {
    return Darkness(image, x + 1, row) > 20 && Darkness(image, x - 1, row) <= 20 ? 1.0 : 0.0;
  });
  // A frame shows a tone as soon as it reaches it: up to its own length earlier.
  const double frameMs = 512.0 / kFixtureRateHz * 1000.0;
  const double onsetMs = SpectrogramTimes(picture).ValueAt(onset);
  EXPECT_GE(onsetMs, 500.0 - frameMs - 3.0);
  EXPECT_LE(onsetMs, 500.0 + 3.0);
}

TEST_P(PictureOfTone, HasItsPeakAtItsColumnOfTheSpectrum) {
  const double hz = GetParam();
  ViewWorld world;
  ViewedRecording recording(world, ToneFrom(0.0, hz, 500.0), kFixtureRateHz);
  FftLpcSettings& settings = recording.document.settings.fftLpc;
  settings.points = 1024;
  settings.windowMs = 80;
  settings.drawLpc = 0;
  const WindowLayout layout = SpectrumLayout(kClient);
  CFFTLPCView view(recording.document);
  ASSERT_TRUE(view.AnalyseSpectrum({.position = 1000.0, .selection = {}},
                                   layout.plot.right - layout.plot.left));
  const SpectrumPicture picture{view, kClient, {}};
  const QImage image = Painted(kClient, [&](QPainter& painter, const PaintStyle& style) {
    PaintSpectrum(painter, picture, style);
  });

  // The topmost point of the curve; the caption in the corner is of another colour.
  const auto height = [&](int x) {
    for (int y = layout.plot.top + 1; y < layout.plot.bottom; ++y) {
      const QColor pixel = image.pixelColor(x, y);
      if (pixel.blue() - pixel.red() > 60) return static_cast<double>(layout.plot.bottom - y);
    }
    return 0.0;
  };
  const int peak = Most(layout.plot.left + 1, layout.plot.right - 1, height);
  ASSERT_GT(height(peak), 0.0);
  EXPECT_NEAR(SpectrumAxis(picture).ValueAt(peak), hz, kFixtureRateHz / 1024.0 + 6.0);
}

INSTANTIATE_TEST_SUITE_P(All, PictureOfTone, testing::Values(437.5, 1000.0, 2503.0, 4100.0));

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
