// intensity_bench.cpp - levels of a long recording in memory, and single look-ups in the track.
#include "analysis/intensity.h"

#include <benchmark/benchmark.h>

#include "analysis/test_signals.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr double kRateHz = 44100.0;

// Argument: minutes.
void Levels(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(60.0 * kRateHz * static_cast<double>(state.range(0)));
  const auto samples = testing::Noise(count, 20000);
  NoProgress none;
  for (auto _ : state) {
    const auto result = ComputeIntensity(SpanSource(samples), {0.0, static_cast<double>(count)},
                                         kRateHz, {20.0, 10.0, 0}, none);
    benchmark::DoNotOptimize(result.IntensityMax);
  }
}
BENCHMARK(Levels)->Arg(10)->Arg(60)->Unit(benchmark::kMillisecond);

void LookUp(benchmark::State& state) {
  const auto samples = testing::Noise(1000000, 20000);
  NoProgress none;
  const auto result =
      ComputeIntensity(SpanSource(samples), {0.0, 1000000.0}, kRateHz, {20.0, 10.0, 0}, none);
  std::int64_t k = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(result.IntensityTrack[k]);
    k = (k + 7919) % result.IntensityTrack.size();
  }
}
BENCHMARK(LookUp);

}  // namespace
}  // namespace cantorix
