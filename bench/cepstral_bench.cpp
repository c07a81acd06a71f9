// cepstral_bench.cpp - one cepstral frame at the default settings: as it runs, in the stated
// arithmetic throughout, and as the plain transcription; and ten minutes of speech compared frame
// by frame with the transcription (mismatches must be 0).
#include "analysis/cepstral_pitch.h"

#include <benchmark/benchmark.h>

#include "analysis/plain_cepstrum.h"

namespace cantorix {
namespace {

constexpr double kRateHz = 11025.0;
constexpr double kStep = 110.25;
constexpr CepstralOptions kDefaults{kRateHz, 50.0, 500.0, 1024, 385};

// Loops over the starts of whole frames of some speech.
class Frames {
 public:
  explicit Frames(std::size_t length) : total_(static_cast<double>(length)) {}
  double Next() {
    start_ += kStep;
    if (start_ + 400.0 > total_) start_ = 0.0;
    return start_;
  }
  double total() const { return total_; }

 private:
  double total_;
  double start_ = 0.0;
};

void RunFrames(benchmark::State& state, bool exactOnly) {
  const auto speech = testing::Speech(4);
  const SpanSource source(speech);
  SampleWindow samples(source, 0);
  CepstralWorkspace workspace(kDefaults);
  if (exactOnly) workspace.UseExactOnly();
  Frames frames(speech.size());
  for (auto _ : state) {
    benchmark::DoNotOptimize(CepstralPitch(samples, frames.Next(), frames.total(), workspace));
  }
  state.counters["exact %"] = 100.0 * static_cast<double>(workspace.exactFrames()) /
                              static_cast<double>(state.iterations());
}

void BM_Frame(benchmark::State& state) { RunFrames(state, false); }
void BM_FrameExact(benchmark::State& state) { RunFrames(state, true); }

void BM_FramePlain(benchmark::State& state) {
  const auto speech = testing::Speech(4);
  testing::PlainCepstrum plain(kDefaults);
  Frames frames(speech.size());
  for (auto _ : state) benchmark::DoNotOptimize(plain.Pitch(speech, frames.Next(), frames.total()));
}

// Speech at several scales, so that the bytes and the numbers differ all the time.
testing::Samples TenMinutes() {
  const auto speech = testing::Speech(4);
  testing::Samples samples;
  for (int gain = 100; samples.size() < static_cast<std::size_t>(600 * kRateHz); gain -= 1) {
    for (const std::int16_t x : speech) {
      samples.push_back(static_cast<std::int16_t>(x * gain / 100));
    }
  }
  return samples;
}

void BM_TenMinutesAgainstPlain(benchmark::State& state) {
  const auto speech = TenMinutes();
  const auto total = static_cast<double>(speech.size());
  const SpanSource source(speech);
  double mismatches = 0;
  double frames = 0;
  double exact = 0;
  for (auto _ : state) {
    SampleWindow samples(source, 0);
    CepstralWorkspace workspace(kDefaults);
    testing::PlainCepstrum plain(kDefaults);
    for (int i = 0; i * kStep < total; ++i) {
      const double t = i * kStep;
      frames += 1;
      mismatches += CepstralPitch(samples, t, total, workspace) != plain.Pitch(speech, t, total);
    }
    exact += static_cast<double>(workspace.exactFrames());
  }
  state.counters["frames"] = frames;
  state.counters["mismatches"] = mismatches;
  state.counters["exact"] = exact;
}

BENCHMARK(BM_Frame);
BENCHMARK(BM_FrameExact);
BENCHMARK(BM_FramePlain);
BENCHMARK(BM_TenMinutesAgainstPlain)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace
}  // namespace cantorix
