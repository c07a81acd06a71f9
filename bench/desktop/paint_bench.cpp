// paint_bench.cpp - pictures of a window of 1920 x 1080: the main view of a 10-hour recording in a
// disk store at several zooms, all its windows together, and the cursor dragged over a spectrogram.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <cmath>
#include <memory>

#include "desktop/paint/cached_picture.h"
#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/pitch_painter.h"
#include "desktop/paint/spectrogram_image.h"
#include "desktop/paint/spectrogram_painter.h"
#include "desktop/quiet_host.h"
#include "mainview/document_waveform.h"

namespace {

using namespace cantorix;

constexpr PixelSize kClient{1920, 1080};
constexpr double kRateHz = 16000.0;

// A second of a swelling buzz, over and over.
std::unique_ptr<SampleStore> StoreOf(QuietHost& host, std::int64_t seconds) {
  std::vector<std::int16_t> second(static_cast<std::size_t>(kRateHz));
  for (std::size_t i = 0; i < second.size(); ++i) {
    const double t = static_cast<double>(i) / kRateHz;
    second[i] = static_cast<std::int16_t>(12000.0 * std::sin(6.283 * t) * std::sin(754.0 * t));
  }
  auto store = std::make_unique<SampleStore>(host.host.programDirectory, host.host.storeCounter);
  for (std::int64_t i = 0; i < seconds; ++i) store->Append(second);
  return store;
}

struct Recording {
  explicit Recording(std::int64_t seconds)
      : document(host.host), waveform(document), view(document, host.Services()) {
    document.HoldOnDisk(StoreOf(host, seconds));
    CChannel& channel = document.channel();
    channel.sampleRateHz = kRateHz;
    channel.totalLength = static_cast<double>(document.Samples().length());
    channel.totalDurationMs = static_cast<double>(seconds) * 1000.0;
    channel.ShowWholeFile();
    document.loaded = true;
    AddTracks(static_cast<std::size_t>(seconds * 100));
    view.Begin(kClient);
  }

  // An entry every 10 ms.
  void AddTracks(std::size_t entries) {
    CChannel& channel = document.channel();
    const auto length = static_cast<std::int64_t>(channel.totalLength);
    std::vector<double> levels(entries);
    view.pitch.PitchTrack.assign(entries + 5, 0.0);
    for (std::size_t i = 0; i < entries; ++i) {
      levels[i] = 50.0 + 20.0 * std::sin(static_cast<double>(i) * 0.06);
      view.pitch.PitchTrack[i] = i % 100 < 40 ? 0.0 : 120.0 + static_cast<double>(i % 70);
    }
    view.pitch.PitchFrameCount = static_cast<double>(entries);
    view.pitch.PitchValid = true;
    view.pitch.range = channel.intensity.range = {0.0, channel.totalLength};
    channel.intensity.IntensityTrack = LevelTrack(std::move(levels), 160.0, 320.0, length);
    channel.intensity.IntensityValid = true;
    channel.intensity.IntensityMin = 30.0;
    channel.intensity.IntensityMax = 70.0;
  }

  QuietHost host;
  CSonadexDoc document;
  DocumentWaveform waveform;
  CSonadexView view;
};

Recording& TenHours() {
  static Recording recording(36000);
  return recording;
}

QImage Screen() { return {kClient.width, kClient.height, QImage::Format_RGB32}; }

void PyramidOfTenHours(benchmark::State& state) {
  const SampleSource& samples = TenHours().document.Samples();
  for (auto _ : state) benchmark::DoNotOptimize(WaveformPyramid(samples).Whole());
}
BENCHMARK(PyramidOfTenHours)->Unit(benchmark::kMillisecond);

// Background, data and overlay of a stretch of so many milliseconds from the middle.
void RepaintTenHours(benchmark::State& state) {
  Recording& recording = TenHours();
  CChannel& channel = recording.document.channel();
  const double length = static_cast<double>(state.range(0)) * 0.001 * kRateHz;
  channel.visibleStart.samples = (channel.totalLength - length) / 2.0;
  channel.visibleEnd.samples = channel.visibleStart.samples + length;
  QImage screen = Screen();
  const PaintStyle style = StyleOf(PaletteKind::kLight);
  const MainViewPicture picture{recording.view, recording.waveform.Pyramid()};
  for (auto _ : state) {
    QPainter painter(&screen);
    PaintMainView(painter, picture, style);
  }
}
BENCHMARK(RepaintTenHours)
    ->Arg(36'000'000)
    ->Arg(3'600'000)
    ->Arg(600'000)
    ->Arg(60'000)
    ->Arg(10'000)
    ->Arg(1'000)
    ->Arg(50)
    ->Unit(benchmark::kMillisecond);

// The windows of one recording at the sizes that they have side by side, without the pictures that
// are kept of them: main view, spectrogram with formants, pitch. Of the same stretch again and
// again, or (1) of another one each time.
void RepaintGroup(benchmark::State& state) {
  Recording& recording = TenHours();
  CSonadexView& view = recording.view;
  CChannel& channel = recording.document.channel();
  const double length = static_cast<double>(state.range(0)) * 0.00099 * kRateHz;
  const double step = state.range(1) == 0 ? 0.0 : length * 1e-5;
  channel.visibleStart.samples = (channel.totalLength - length) / 2.0;
  channel.visibleEnd.samples = channel.visibleStart.samples + length;
  view.LayOut({1910, 386});
  Recording short_(4);
  CSpectrogramView spectrogram(short_.document);
  short_.document.settings.spectrogram.displayFormants = 1;
  spectrogram.ComputeSpectrogram({0.0, 64000.0}, {1860, 220, true});
  const QImage levels = SpectrogramImage(spectrogram.spectrogram(), 35.0, ColorMap::kGrey);
  QImage screen = Screen();
  const PaintStyle style = StyleOf(PaletteKind::kLight);
  for (auto _ : state) {
    for (TimePoint* const end : {&channel.visibleStart, &channel.visibleEnd}) {
      end->samples += step;
      end->ms = end->samples * channel.msPerSample();
    }
    QPainter painter(&screen);
    PaintMainView(painter, {view, recording.waveform.Pyramid()}, style);
    PaintSpectrogram(painter, {spectrogram, levels, nullptr, {1910, 270}, SpectrogramCursor{}, {}},
                     style);
    PaintPitch(painter,
               {.document = recording.document,
                .pitch = view.pitch,
                .waveform = nullptr,
                .client = {1910, 180},
                .startMs = channel.visibleStart.ms,
                .endMs = channel.visibleEnd.ms,
                .cursorMs = {},
                .selection = {}},
               style);
  }
  view.LayOut(kClient);
}
BENCHMARK(RepaintGroup)
    ->ArgsProduct({{36'000'000, 600'000, 60'000, 30'000, 7'000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

void DragOverMainView(benchmark::State& state) {
  Recording& recording = TenHours();
  recording.document.channel().ShowWholeFile();
  QImage screen = Screen();
  const PaintStyle style = StyleOf(PaletteKind::kLight);
  const MainViewPicture picture{recording.view, recording.waveform.Pyramid()};
  CachedPicture cache;
  recording.view.SetMarker();
  double ms = 0.0;
  for (auto _ : state) {
    recording.document.channel().cursor.ms = ms += 10000.0;
    QPainter painter(&screen);
    cache.Draw(painter, kClient, [&](QPainter& data) {
      PaintMainViewBackground(data, picture, style);
      PaintMainViewData(data, picture, style);
    });
    PaintMainViewOverlay(painter, picture, style);
  }
}
BENCHMARK(DragOverMainView)->Unit(benchmark::kMillisecond);

void DragOverSpectrogram(benchmark::State& state) {
  Recording recording(4);
  const PixelRect plot = SpectrogramLayout(kClient, recording.document).plot;
  CSpectrogramView view(recording.document);
  view.ComputeSpectrogram({0.0, recording.document.channel().totalLength},
                          {plot.right - plot.left, plot.bottom - plot.top, true});
  const QImage levels = SpectrogramImage(view.spectrogram(), 35.0, ColorMap::kGrey);
  const PaintStyle style = StyleOf(PaletteKind::kLight);
  SpectrogramPicture picture{view, levels, nullptr, kClient, SpectrogramCursor{}, {}};
  QImage screen = Screen();
  CachedPicture cache;
  double ms = 0.0;
  for (auto _ : state) {
    ms += 1.0;
    picture.cursor = SpectrogramCursor{ms, 1000.0};
    QPainter painter(&screen);
    cache.Draw(painter, kClient,
               [&](QPainter& data) { PaintSpectrogramData(data, picture, style); });
    PaintSpectrogramOverlay(painter, picture, style);
  }
}
BENCHMARK(DragOverSpectrogram)->Unit(benchmark::kMillisecond);

// Other colours for levels that are there.
void RecolourSpectrogram(benchmark::State& state) {
  Recording recording(4);
  CSpectrogramView view(recording.document);
  view.ComputeSpectrogram({0.0, recording.document.channel().totalLength}, {1860, 1000, true});
  for (auto _ : state) {
    benchmark::DoNotOptimize(SpectrogramImage(view.spectrogram(), 35.0, ColorMap::kEmber));
  }
}
BENCHMARK(RecolourSpectrogram)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
