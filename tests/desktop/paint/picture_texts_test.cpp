// picture_texts_test.cpp - no text of any picture is clipped by its edges or covers another one, at
// any size and resolution.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/paint_fixture.h"
#include "desktop/paint/pitch_painter.h"
#include "desktop/paint/spectrogram_image.h"
#include "desktop/paint/spectrogram_painter.h"
#include "desktop/paint/spectrum_painter.h"
#include "desktop/paint/text_recorder.h"
#include "document/label.h"

namespace cantorix {
namespace {

using Paint = std::function<void(QPainter&, AnalysedRecording&, PixelSize)>;

void MainView(QPainter& painter, AnalysedRecording& analysed, PixelSize) {
  CSonadexView& view = analysed.recording.view;
  view.SetMarker();
  PaintMainView(painter, {view, analysed.waveform.Pyramid()}, StyleOf(PaletteKind::kLight));
}

void MainViewWithIntensityPane(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  DisplaySettings& display = analysed.recording.document.settings.display;
  display.intensityInOwnPane = 1;
  display.timeBase = 1;
  analysed.recording.view.LayOut(size);
  MainView(painter, analysed, size);
}

// Wide numbers on the time axis: hours in milliseconds, zoomed in.
void MainViewFarOut(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  CChannel& channel = analysed.recording.channel();
  channel.totalLength *= 36000.0;
  channel.totalDurationMs *= 36000.0;
  channel.visibleStart.samples = 396'899'000.0;
  channel.visibleEnd.samples = 396'899'300.0;
  MainView(painter, analysed, size);
}

void SpectrumWindow(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  CFFTLPCView view(analysed.recording.document);
  ASSERT_TRUE(view.AnalyseSpectrum({.position = 4000.0, .selection = {}}, 400));
  PaintSpectrum(painter, {view, size, 1234.5}, StyleOf(PaletteKind::kDark));
}

void SpectrogramWindow(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  CSonadexDoc& document = analysed.recording.document;
  SpectrogramSettings& settings = document.settings.spectrogram;
  settings.drawAudio = settings.drawIntensity = settings.drawLabels = 1;
  CSpectrogramView view(document);
  ASSERT_TRUE(view.ComputeSpectrogram({0.0, document.channel().totalLength}, {100, 80, true}));
  const QImage levels = SpectrogramImage(view.spectrogram(), 35.0, ColorMap::kGrey);
  PaintSpectrogram(painter,
                   {view, levels, &analysed.waveform.Pyramid(), size,
                    SpectrogramCursor{500.0, 1234.5}, AxisSelection{100.0, 400.0}},
                   StyleOf(PaletteKind::kDark));
}

void PitchWindow(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  CSonadexView& view = analysed.recording.view;
  PitchSettings& options = view.document().settings.pitch;
  options.addAudio = options.addIntensity = options.addLabels = 1;
  PaintPitch(painter,
             {.document = view.document(),
              .pitch = view.pitch,
              .waveform = &analysed.waveform.Pyramid(),
              .client = size,
              .startMs = 0.0,
              .endMs = 1000.0,
              .cursorMs = 500.0,
              .selection = AxisSelection{100.0, 400.0}},
             StyleOf(PaletteKind::kLight));
}

struct Row {
  const char* name;
  Paint paint;
  std::size_t leastTexts;
};

class PictureTexts : public testing::TestWithParam<Row> {};

TEST_P(PictureTexts, StayInsideAndApart) {
  for (const PixelSize size : {PixelSize{1000, 600}, PixelSize{1920, 1080}, PixelSize{660, 420}}) {
    for (const double ratio : {1.0, 2.0}) {
      AnalysedRecording analysed(ToneFrom(0.0, 150.0, 1000.0), size);
      TextRecorder recorder(QSize(size.width, size.height), ratio);
      QPainter painter(&recorder);
      GetParam().paint(painter, analysed, size);
      painter.end();
      const std::string where = std::string(GetParam().name) + ' ' + std::to_string(size.width) +
                                " x" + std::to_string(ratio);
      const QRectF inside = QRectF(0.0, 0.0, size.width, size.height);
      const auto& texts = recorder.texts;
      EXPECT_GE(texts.size(), GetParam().leastTexts) << where;
      for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_TRUE(inside.contains(texts[i].box)) << where << ": " << texts[i].text;
        for (std::size_t k = 0; k < i; ++k) {
          const QRectF common = texts[i].box.adjusted(0.6, 1.5, -0.6, -1.5) &
                                texts[k].box.adjusted(0.6, 1.5, -0.6, -1.5);
          EXPECT_TRUE(common.isEmpty()) << where << ": " << texts[i].text << " / " << texts[k].text;
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, PictureTexts,
                         testing::Values(Row{"MainView", MainView, 30},
                                         Row{"IntensityPane", MainViewWithIntensityPane, 30},
                                         Row{"FarOut", MainViewFarOut, 20},
                                         Row{"Spectrum", SpectrumWindow, 15},
                                         Row{"Spectrogram", SpectrogramWindow, 15},
                                         Row{"Pitch", PitchWindow, 15}),
                         [](const auto& row) { return row.param.name; });

TEST(PictureTexts, ReadoutsAreAllThereInANarrowWindow) {
  AnalysedRecording analysed(ToneFrom(0.0, 150.0, 1000.0), {660, 420});
  TextRecorder recorder(QSize(660, 420), 1.0);
  QPainter painter(&recorder);
  PaintMainViewOverlay(painter, {analysed.recording.view, analysed.waveform.Pyramid()},
                       StyleOf(PaletteKind::kLight));
  painter.end();
  EXPECT_EQ(recorder.texts.size(), 2 * kReadoutCount);
}

}  // namespace
}  // namespace cantorix
