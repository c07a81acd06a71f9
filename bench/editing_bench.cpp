// editing_bench.cpp - cut, paste and undo in the middle of an hour of sound held in memory.
// The counter peakRatio is the largest resident memory of the run over the bytes of the samples.
#include <benchmark/benchmark.h>

#include "mainview/editing.h"
#include "mainview/view_fixture.h"
#include "peak_memory.h"

namespace cantorix {
namespace {

constexpr double kRateHz = 16000.0;
constexpr std::int64_t kSamples = std::int64_t{60} * 60 * 16000;
constexpr double kMiddle = 30.0 * 60.0 * kRateHz;
constexpr double kMinute = 60.0 * kRateHz;

void FillWithAnHour(CSonadexDoc& document) {
  document.loaded = true;
  SampleBlock block(kSamples);
  std::uint32_t noise = 1;
  for (std::int16_t& sample : block.samples()) {
    sample = static_cast<std::int16_t>((noise = noise * 1664525U + 1013904223U) >> 16U);
  }
  CChannel& channel = document.channel();
  channel.sampleRateHz = kRateHz;
  channel.totalLength = static_cast<double>(kSamples);
  channel.totalDurationMs = channel.totalLength * 1000.0 / kRateHz;
  channel.ShowWholeFile();
  document.HoldInMemory(std::move(block));
}

// `edit` is measured, `prepare` and `finish` are not.
template <typename Prepare, typename Edit, typename Finish>
void Measure(benchmark::State& state, Prepare prepare, Edit edit, Finish finish) {
  ViewWorld world;
  ViewedRecording talk(world);
  FillWithAnHour(talk.document);
  prepare(talk);
  ForgetPeak();
  for (auto _ : state) {
    edit(talk);
    state.PauseTiming();
    finish(talk);
    state.ResumeTiming();
  }
  state.counters["peakRatio"] = PeakBytes() / static_cast<double>(kSamples * 2);
}

void SelectMinute(ViewedRecording& talk) { SelectSamples(talk, kMiddle, kMiddle + kMinute); }
void UndoAndSelectMinute(ViewedRecording& talk) {
  Undo(talk.view);
  SelectMinute(talk);
}

// The undo file is new in the first run only; the others write over it.
void CutAMinute(benchmark::State& state) {
  Measure(
      state, SelectMinute, [](ViewedRecording& talk) { CutSelection(talk.view); },
      UndoAndSelectMinute);
}
BENCHMARK(CutAMinute)->Unit(benchmark::kMillisecond)->UseRealTime();

void CutAMinuteOnce(benchmark::State& state) {
  Measure(
      state, SelectMinute, [](ViewedRecording& talk) { CutSelection(talk.view); },
      [](ViewedRecording&) {});
}
BENCHMARK(CutAMinuteOnce)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void PasteAMinute(benchmark::State& state) {
  const auto prepare = [](ViewedRecording& talk) {
    SelectMinute(talk);
    CopySelection(talk.view);
    PutCursor(talk, kMiddle);
  };
  const auto finish = [](ViewedRecording& talk) {
    Undo(talk.view);
    PutCursor(talk, kMiddle);
  };
  Measure(
      state, prepare, [](ViewedRecording& talk) { Paste(talk.view); }, finish);
}
BENCHMARK(PasteAMinute)->Unit(benchmark::kMillisecond)->UseRealTime();

void GainOfAnHour(benchmark::State& state) {
  Measure(
      state, [](ViewedRecording&) {},
      [](ViewedRecording& talk) {
        ApplyReferenceAndGain(talk.view, {50.0, 3.0});
      },
      [](ViewedRecording&) {});
}
BENCHMARK(GainOfAnHour)->Unit(benchmark::kMillisecond)->UseRealTime();

void UndoOfAMinute(benchmark::State& state) {
  const auto cut = [](ViewedRecording& talk) {
    SelectMinute(talk);
    CutSelection(talk.view);
  };
  Measure(
      state, cut, [](ViewedRecording& talk) { Undo(talk.view); }, cut);
}
BENCHMARK(UndoOfAMinute)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace cantorix
