// drawings_test.cpp - every picture of a second of speech, shape by shape, as somebody has approved
// it; and no text of any picture is clipped by its edges or covers another one, at any size and
// resolution.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "desktop/paint/drawing_recorder.h"
#include "desktop/paint/empty_panes.h"
#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/paint_fixture.h"
#include "desktop/paint/pitch_painter.h"
#include "desktop/paint/spectrogram_image.h"
#include "desktop/paint/spectrogram_painter.h"
#include "desktop/paint/spectrum_painter.h"
#include "mainview/label_entry_state.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

// Draws a scene whose view is laid out in `size`.
using Paint = std::function<void(QPainter&, AnalysedRecording&, PixelSize)>;

void Draw(QPainter& painter, AnalysedRecording& analysed, const PaintStyle& style) {
  PaintMainView(painter, {analysed.recording.view, analysed.waveform.Pyramid()}, style);
}

// The marker, and dashed the pointer of a window that does not track.
void MainView(QPainter& painter, AnalysedRecording& analysed, PixelSize) {
  CSonadexView& view = analysed.recording.view;
  view.SetMarker();
  view.channel().cursor.ms = 640.0;
  view.otherPointerMs = 800.0;
  Draw(painter, analysed, StyleOf(PaletteKind::kLight));
}

void IntensityPane(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  DisplaySettings& display = analysed.recording.document.settings.display;
  display.intensityInOwnPane = 1;
  display.timeBase = 1;
  analysed.recording.view.LayOut(size);
  SelectSamples(analysed.recording, 2000.0, 4000.0);
  Draw(painter, analysed, StyleOf(PaletteKind::kDark));
}

// Fewer samples than pixels, and a label under the mouse.
void Zoomed(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  CSonadexView& view = analysed.recording.view;
  view.channel().visibleStart.samples = 2180.0;
  view.channel().visibleEnd.samples = 2230.5;
  view.LayOut(size);
  view.labelEntry.currentTier = view.labelEntry.pressedLabel = 0;
  view.labelEntry.label = LabelOf(201.0, "dragged");
  view.labelEntry.label.flag = 1;
  view.press.held = view.press.draggedLabel = view.press.moved = true;
  Draw(painter, analysed, StyleOf(PaletteKind::kLight));
}

// More samples and entries of the tracks than pixels; the marker at the very beginning.
void ZoomedOut(QPainter& painter, AnalysedRecording& analysed, PixelSize) {
  CChannel& channel = analysed.recording.channel();
  channel.totalLength *= 20.0;
  channel.totalDurationMs *= 20.0;
  channel.ShowWholeFile();
  channel.tiers[0].labels[1].timeMs *= 20.0;
  analysed.recording.view.SetMarker();
  Draw(painter, analysed, BlackOnWhite());
}

// Wide numbers on the time axis: hours in milliseconds, zoomed in.
void FarOut(QPainter& painter, AnalysedRecording& analysed, PixelSize) {
  CChannel& channel = analysed.recording.channel();
  channel.totalLength *= 36000.0;
  channel.totalDurationMs *= 36000.0;
  channel.visibleStart.samples = 396'899'000.0;
  channel.visibleEnd.samples = 396'899'300.0;
  Draw(painter, analysed, BlackOnWhite());
}

void DrawSpectrum(QPainter& painter, AnalysedRecording& analysed, PixelSize size,
                  const PaintStyle& style) {
  CFFTLPCView view(analysed.recording.document);
  ASSERT_TRUE(view.AnalyseSpectrum({.position = 4000.0, .selection = {}}, 400));
  PaintSpectrum(painter, {view, size, 1234.5}, style);
}

void SpectrumWindow(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  DrawSpectrum(painter, analysed, size, StyleOf(PaletteKind::kDark));
}

void LightSpectrum(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  DrawSpectrum(painter, analysed, size, StyleOf(PaletteKind::kLight));
}

void PrintedSpectrum(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  DrawSpectrum(painter, analysed, size, BlackOnWhite());
}

void SpectrogramWindow(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  CSonadexDoc& document = analysed.recording.document;
  SpectrogramSettings& settings = document.settings.spectrogram;
  settings.drawAudio = settings.drawIntensity = settings.drawLabels = 1;
  CSpectrogramView view(document);
  ASSERT_TRUE(view.ComputeSpectrogram({0.0, document.channel().totalLength}, {300, 80, true}));
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

// What is computed ends before the cursor, and has no formants.
void PartOfASpectrogram(QPainter& painter, AnalysedRecording& analysed, PixelSize size) {
  CSonadexDoc& document = analysed.recording.document;
  SpectrogramSettings& settings = document.settings.spectrogram;
  settings.trackFormants = 0;
  settings.addFrequencyGrid = settings.addTimeGrid = 1;
  CSpectrogramView view(document);
  ASSERT_TRUE(view.ComputeSpectrogram({0.0, 4000.0}, {300, 80, true}));
  const QImage levels = SpectrogramImage(view.spectrogram(), 35.0, ColorMap::kGrey);
  PaintSpectrogram(painter, {view, levels, nullptr, size, SpectrogramCursor{500.0, 1234.5}, {}},
                   StyleOf(PaletteKind::kLight));
}

void EmptyPanes(QPainter& painter, AnalysedRecording& analysed, PixelSize) {
  CSonadexView& view = analysed.recording.view;
  view.pitch = {};
  for (Tier& tier : view.channel().tiers) tier.inUse = false;
  view.labelEntry.enabled = true;
  DrawEmptyPanes(painter, view, StyleOf(PaletteKind::kLight));
}

struct DrawingRow {
  const char* name;
  Paint paint;
  PixelSize size{900, 600};     // as it was approved
  std::size_t leastTexts = 15;  // that the picture is known by
};

class Drawings : public testing::TestWithParam<DrawingRow> {
 protected:
  static Drawing Recorded(PixelSize size, double ratio = 1.0) {
    AnalysedRecording analysed(Vowels(), size);
    DrawingRecorder recorder(QSize(size.width, size.height), ratio);
    QPainter painter(&recorder);
    GetParam().paint(painter, analysed, size);
    painter.end();
    return std::move(recorder.drawing);
  }
};

TEST_P(Drawings, AreAsApproved) {
  ExpectText(std::string("desktop/expected/") + GetParam().name + ".txt",
             Recorded(GetParam().size).shapes.toStdString());
}

TEST_P(Drawings, KeepTextsInsideAndApart) {
  for (const PixelSize size : {PixelSize{1000, 600}, PixelSize{1920, 1080}, PixelSize{660, 420}}) {
    for (const double ratio : {1.0, 2.0}) {
      const std::string where = std::to_string(size.width) + " x" + std::to_string(ratio) + ": ";
      const QRectF inside = QRectF(0.0, 0.0, size.width, size.height);
      const auto texts = Recorded(size, ratio).texts;
      EXPECT_GE(texts.size(), GetParam().leastTexts) << where;
      for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_TRUE(inside.contains(texts[i].box)) << where << texts[i].text;
        for (std::size_t k = 0; k < i; ++k) {
          const QRectF common = texts[i].box.adjusted(0.6, 1.5, -0.6, -1.5) &
                                texts[k].box.adjusted(0.6, 1.5, -0.6, -1.5);
          EXPECT_TRUE(common.isEmpty()) << where << texts[i].text << " / " << texts[k].text;
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, Drawings,
    testing::Values(DrawingRow{"MainView", MainView},
                    DrawingRow{"IntensityPane", IntensityPane, {1200, 600}},
                    DrawingRow{"Zoomed", Zoomed}, DrawingRow{"ZoomedOut", ZoomedOut},
                    DrawingRow{"FarOut", FarOut}, DrawingRow{"Spectrum", SpectrumWindow},
                    DrawingRow{"PrintedSpectrum", PrintedSpectrum},
                    DrawingRow{"LightSpectrum", LightSpectrum},
                    DrawingRow{"Spectrogram", SpectrogramWindow}, DrawingRow{"Pitch", PitchWindow},
                    DrawingRow{"PartOfASpectrogram", PartOfASpectrogram},
                    DrawingRow{"EmptyPanes", EmptyPanes, {900, 600}, 2}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace cantorix
