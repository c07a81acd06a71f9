// picture_places_test.cpp - what is measured stands where the axes say it is. Tones are in
// analysis_windows_test.cpp.
#include <gtest/gtest.h>

#include "desktop/paint/label_painter.h"
#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/paint_fixture.h"
#include "desktop/paint/picture_axis.h"
#include "desktop/paint/signal_strips.h"
#include "desktop/paint/spectrogram_image.h"
#include "mainview/time_axis.h"

namespace cantorix {
namespace {

constexpr PixelSize kWindowSize{900, 600};

TEST(Tiers, OfADamagedFileAreNoHigherThanCanBeCounted) {
  Tiers tiers;
  for (const auto& [word, height] : {std::pair{INT32_MAX, 100000}, {INT32_MIN, 10}, {20, 200}}) {
    for (Tier& tier : tiers) {
      tier.inUse = true;
      tier.tierWord = word;
    }
    EXPECT_EQ(HeightOfTiers(tiers), height);
  }
}

TEST(MainViewPicture, AnImpulseStandsAtItsTime) {
  for (const double ratio : {1.0, 2.0}) {
    Samples samples(11025, 0);
    samples[6000] = 20000;
    ViewWorld world;
    ViewedRecording recording(world, samples, kFixtureRateHz);
    DocumentWaveform waveform(recording.document);
    recording.view.LayOut(kWindowSize);
    const auto paint = [&](QPainter& painter, const PaintStyle& style) {
      PaintMainView(painter, {recording.view, waveform.Pyramid()}, style);
    };
    const QImage image = Painted(kWindowSize, paint, ratio);
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

// Ten milliseconds per entry; speech and pauses by turns, here and there a single voiced entry.
PitchResult TrackOf(std::size_t entries) {
  PitchResult pitch;
  pitch.PitchTrack.assign(entries + 5, 0.0);
  for (std::size_t i = 0; i < entries; ++i) {
    const auto swing = static_cast<double>(i % 97);
    if (i % 300 > 120 || i % 23 == 0) pitch.PitchTrack[i] = 150.0 + (i % 50 == 0 ? 150.0 : swing);
  }
  pitch.PitchFrameCount = static_cast<double>(entries);
  pitch.PitchValid = true;
  pitch.range = {0.0, static_cast<double>(entries)};
  return pitch;
}

// 7 s, a minute and a half, 10 minutes and 10 hours; on glass of two densities.
TEST(PitchLine, HasTwoPixelsInEveryColumnWithAVoicedEntry) {
  constexpr PixelSize kPane{1840, 150};
  for (const std::size_t entries : {300U, 700U, 9000U, 60000U, 3600000U}) {
    const PitchResult pitch = TrackOf(entries);
    const double ms = 10.0 * static_cast<double>(entries);
    const StripPlace place{{0.0, 0.0, kPane.width, kPane.height}, {0.0, ms, 0.0, kPane.width}};
    for (const int ratio : {1, 2}) {
      const QImage image = Painted(
          kPane,
          [&](QPainter& painter, const PaintStyle& style) {
            painter.fillRect(place.pane, Qt::white);
            DrawPitch(painter, place, {50.0, 500.0, kPane.height}, pitch, 10.0, style);
          },
          ratio);
      std::vector<bool> isVoiced(static_cast<std::size_t>(image.width()));
      for (std::size_t i = 0; i < entries; ++i) {
        if (pitch.PitchTrack[i] > 0.0) isVoiced[i * isVoiced.size() / entries] = true;
      }
      const int ink = qGray(StyleOf(PaletteKind::kLight).pitch.rgb());
      for (int x = 0; x < image.width(); ++x) {
        if (!isVoiced[static_cast<std::size_t>(x)]) continue;
        double pixels = 0.0;  // of ink, those that it covers in part counted as such parts
        for (int y = 0; y < image.height(); ++y) {
          const double part = (255.0 - qGray(image.pixel(x, y))) / (255.0 - ink);
          pixels += entries < 3U * 1840U || part > 0.3 ? part : 0.0;  // the band is lighter
        }
        ASSERT_GE(pixels, 1.9 * ratio) << entries << " at " << ratio << ", column " << x;
      }
    }
  }
}

// A level line of many entries is stroked in parts; the dashes must not show where these meet.
TEST(LevelLine, HasEvenDashesFromOneEndToTheOther) {
  constexpr PixelSize kPane{900, 60};
  constexpr int kEntries = 360;  // two and a half pixels apart
  ViewWorld world;
  ViewedRecording recording(world, Samples(kEntries), 1000.0);
  IntensityResult& intensity = recording.channel().intensity;
  intensity.IntensityTrack = LevelTrack(std::vector<double>(kEntries, 50.0), 1.0, 1.0, kEntries);
  intensity.IntensityValid = true;
  intensity.range = {0, kEntries};
  const StripPlace place{{0.0, 0.0, kPane.width, kPane.height}, {0.0, kEntries, 0.0, kPane.width}};
  const QImage image = Painted(kPane, [&](QPainter& painter, const PaintStyle& style) {
    painter.fillRect(place.pane, Qt::white);
    DrawIntensity(painter, place, {0.0, 100.0, kPane.height}, recording.channel(), style);
  });
  const int row = kPane.height / 2;
  std::string wanted, drawn;
  for (int x = 0; x + 5 < kPane.width; ++x) {
    wanted += x % 9 < 6 ? '-' : ' ';
    drawn += qGray(image.pixel(x, row)) < 230 ? '-' : ' ';
  }
  EXPECT_EQ(drawn, wanted);
}

// The axis of amplitudes is even around the reference and holds all samples.
TEST(AmplitudeAxis, ReachesToTheSampleFarthestFromTheReference) {
  ViewWorld world;
  Samples samples(400, 0);
  samples[7] = 1000;
  samples[9] = -3000;
  ViewedRecording recording(world, samples, 1000.0);
  DocumentWaveform waveform(recording.document);
  for (const auto& [reference, most] :
       {std::pair{0.0, 3000.0}, {500.0, 3500.0}, {-2500.0, 3500.0}}) {
    recording.channel().referenceLevel = reference;
    const AxisSpan span =
        AmplitudeSpan(recording.channel(), waveform.Pyramid(), QRectF(0, 0, 9, 9));
    EXPECT_DOUBLE_EQ(span.high, 1.05 * most) << reference;
    EXPECT_DOUBLE_EQ(span.low, -1.05 * most) << reference;
  }
}

TEST(Ticks, AreNeverFewerThanTwoNorFarApart) {
  const PaintStyle style = StyleOf(PaletteKind::kLight);
  for (const auto& [low, high] : {std::pair{50.0, 500.0},
                                  {0.0, 5000.0},
                                  {0.0, 22000.0},
                                  {-20000.0, 20000.0},
                                  {17.3, 71.9},
                                  {0.0, 90.0}}) {
    for (int pixels = 40; pixels <= 1000; pixels += 7) {
      const auto values = ValueTicks(QRectF(0, 0, 900, pixels), low, high, style);
      ASSERT_GE(values.size(), 2U) << low << " to " << high << " over " << pixels;
      const double gap = (values[1].value - values[0].value) / (high - low) * pixels;
      EXPECT_LE(gap, 60.1) << low << " to " << high << " over " << pixels;
      const auto times = BottomTicks({low, high, 40.0, 5.0 * pixels}, 0, style);
      ASSERT_GE(times.size(), 2U) << low << " to " << high << " over " << 5 * pixels;
      if (high > 9999.0) continue;  // wider texts, which need more room
      const double timeGap = (times[1].value - times[0].value) / (high - low) * 5.0 * pixels;
      EXPECT_TRUE(timeGap > 55.9 && timeGap < 150.1) << timeGap << " over " << 5 * pixels;
    }
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
