// autocorrelation_bench.cpp - the difference tracker on a minute of real speech, per frame of 100
// samples; counts the entries that differ from the plain method.
#include <benchmark/benchmark.h>

#include "analysis/autocorrelation_pitch.h"
#include "analysis/plain_amdf.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

// The words that the machine has, again and again.
testing::Samples LongSpeech(int decimation, std::size_t count) {
  const testing::Samples words = testing::Speech(decimation);
  testing::Samples speech;
  while (!words.empty() && speech.size() < count) {
    speech.insert(speech.end(), words.begin(), words.end());
  }
  speech.resize(count);
  return speech;
}

// Arguments: sampling rate in Hz, decimation of the 48 kHz words.
void TrackSpeech(benchmark::State& state) {
  const auto rateHz = static_cast<std::int32_t>(state.range(0));
  const auto samples =
      LongSpeech(static_cast<int>(state.range(1)), static_cast<std::size_t>(60 * rateHz));
  const auto length = static_cast<std::int64_t>(samples.size());
  std::vector<double> track(samples.size() / 100 + 1);
  NoProgress none;
  ProgressScope scope(none, "", 0.0);
  const AutoCorrelationOptions options{rateHz, 50, 500, 100, 1};
  for (auto _ : state) {
    AutoCorrelationPitch(SpanSource(samples), 0, length, options, track, scope);
    benchmark::DoNotOptimize(track.data());
  }
  const auto frames = static_cast<double>(state.iterations()) * static_cast<double>(track.size());
  const auto plain = testing::PlainTracker(samples, options).Track();
  int mismatches = 0;
  for (std::size_t f = 0; f < plain.size(); ++f) mismatches += plain[f] != track[f];
  state.counters["mismatches"] = mismatches;
  state.counters["perFrame"] =
      benchmark::Counter(frames, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(TrackSpeech)->Args({11025, 4})->Args({44100, 1})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace cantorix
