// spectrogram_bench.cpp - the picture of ten minutes of speech at 11025 Hz, its formants alone
// every 10 ms, and the parts of a column.
#include "analysis/spectrogram.h"

#include <benchmark/benchmark.h>

#include "analysis/spectrogram_column.h"
#include "analysis/test_signals.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr double kRateHz = 11025.0;

// Speech over and over again.
const testing::Samples& TenMinutes() {
  static const testing::Samples samples = [] {
    testing::Samples voice = testing::Speech(4);
    if (voice.empty()) voice = testing::Noise(50000, 5000);
    testing::Samples all;
    for (std::size_t i = 0; i < 6615000; ++i) all.push_back(voice[i % voice.size()]);
    return all;
  }();
  return samples;
}

SpectrogramRequest Request(std::int64_t columns, int rows, bool keepLevels) {
  const auto total = static_cast<double>(TenMinutes().size());
  return {{0.0, total}, total, kRateHz, columns, rows, keepLevels};
}

SpectrogramSettings Points(std::int32_t points, bool formants) {
  SpectrogramSettings settings;
  settings.points = points;
  settings.trackFormants = formants ? 1 : 0;
  return settings;
}

// Argument: with formants.
void Picture1600x600(benchmark::State& state) {
  const SpanSource source(TenMinutes());
  NoProgress none;
  for (auto _ : state) {
    auto result = ComputeSpectrogram(source, Request(1600, 600, true),
                                     Points(256, state.range(0) != 0), none);
    benchmark::DoNotOptimize(result.levels.get());
  }
}
BENCHMARK(Picture1600x600)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// Argument: rows that decide what is silent.
void FormantsEvery10Ms(benchmark::State& state) {
  const SpanSource source(TenMinutes());
  NoProgress none;
  for (auto _ : state) {
    auto result = ComputeSpectrogram(
        source, Request(60000, static_cast<int>(state.range(0)), false), Points(64, true), none);
    benchmark::DoNotOptimize(result.formants.data());
  }
}
BENCHMARK(FormantsEvery10Ms)->Arg(100)->Arg(400)->Unit(benchmark::kMillisecond);

// Argument: points.
void LevelsOfAColumn(benchmark::State& state) {
  const SpanSource source(TenMinutes());
  const auto points = static_cast<std::int32_t>(state.range(0));
  ColumnLevels column(source, Request(1600, 600, true), Points(points, false), 5000.0);
  std::vector<double> levels(600);
  double start = 0.0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(column.Compute(start, levels));
    start = start < 6e6 ? start + 4134.375 : 0.0;
  }
}
BENCHMARK(LevelsOfAColumn)->Arg(64)->Arg(256)->Arg(8192)->Unit(benchmark::kMicrosecond);

// Argument: columns at a time.
void FormantsOfColumns(benchmark::State& state) {
  const SpanSource source(TenMinutes());
  ColumnFormants columns(source, Request(1600, 600, true), Points(256, true));
  std::vector<FormantColumn> found(static_cast<std::size_t>(state.range(0)));
  double start = 0.0;
  for (auto _ : state) {
    for (std::size_t i = 0; i < found.size(); ++i) {
      columns.Add(start);
      start = start < 6e6 ? start + 110.25 : 0.0;
    }
    benchmark::DoNotOptimize(columns.Find(found));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(FormantsOfColumns)->Arg(1)->Arg(64)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace cantorix
