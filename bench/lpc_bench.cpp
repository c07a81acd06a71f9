// lpc_bench.cpp - the cost of one formant column and of its parts on real speech, and a survey of
// the factor routine: 200,000 frames of speech, how many fail, and the worst residual of a root.
#include "analysis/lpc.h"

#include <benchmark/benchmark.h>

#include <iostream>
#include <vector>

#include "analysis/formants.h"
#include "analysis/framer.h"
#include "analysis/lpc_envelope.h"
#include "analysis/polynomial_factors.h"
#include "analysis/polynomial_twin.h"
#include "analysis/power_spectrum.h"
#include "analysis/test_signals.h"

namespace cantorix {
namespace {

constexpr double kPreEmphasis = 0.98;

// The spoken words at `rateHz`, by interpolation between the samples of every second or third one.
std::vector<double> SpeechAt(double rateHz) {
  const int decimation = static_cast<int>(48000.0 / rateHz);
  const testing::Samples speech = testing::Speech(decimation);
  const double step = 48000.0 / decimation / rateHz;
  std::vector<double> x;
  for (double t = 0.0; t + 1.0 < static_cast<double>(speech.size()); t += step) {
    const auto i = static_cast<std::size_t>(t);
    const double fraction = t - static_cast<double>(i);
    x.push_back(speech[i] * (1.0 - fraction) + speech[i + 1] * fraction);
  }
  return x;
}

Framer FramerFor(double rateHz, int order) {
  return {static_cast<std::size_t>(rateHz * 0.001) * static_cast<std::size_t>(order), true,
          kPreEmphasis};
}

// Runs `measure` over frames of real speech, order 14 at 11025 Hz, one after the other.
template <typename Measure>
void OverFrames(benchmark::State& state, Measure measure) {
  const std::vector<double> x = SpeechAt(11025.0);
  if (x.empty()) {
    state.SkipWithError("no recordings of alsa-utils");
    return;
  }
  std::size_t t = 0;
  for (auto _ : state) {
    measure(std::span(x).subspan(t));
    t += 37;
    if (t + 600 > x.size()) t = 0;
  }
}

void BM_Autocorrelation(benchmark::State& state) {
  Framer framer = FramerFor(11025.0, 14);
  std::array<double, 15> r;
  OverFrames(state, [&](std::span<const double> x) {
    Autocorrelate(framer.Frame(x), r);
    benchmark::DoNotOptimize(r);
  });
}

void BM_Prediction(benchmark::State& state) {
  Framer framer = FramerFor(11025.0, 14);
  LpcResult lpc;
  OverFrames(state, [&](std::span<const double> x) {
    LpcAnalyse(framer.Frame(x), 14, lpc, std::cerr);
    benchmark::DoNotOptimize(lpc);
  });
}

void BM_Formants(benchmark::State& state) {
  Framer framer = FramerFor(11025.0, 14);
  LpcResult lpc;
  OverFrames(state, [&](std::span<const double> x) {
    LpcAnalyse(framer.Frame(x), 14, lpc, std::cerr);
    benchmark::DoNotOptimize(FindFormants(lpc, 11025.0, std::cerr));
  });
}

void BM_Envelope(benchmark::State& state) {
  Framer framer = FramerFor(11025.0, 14);
  LpcEnvelopePlan plan(400, 5000.0, 11025.0);
  std::vector<double> envelope(400);
  LpcResult lpc;
  OverFrames(state, [&](std::span<const double> x) {
    LpcAnalyse(framer.Frame(x), 14, lpc, std::cerr);
    LpcEnvelopeDb(lpc, plan, envelope);
    benchmark::ClobberMemory();
  });
}

// What a tracked spectrogram does for a column of 256 points and 400 rows.
void BM_SpectrogramColumn(benchmark::State& state) {
  Framer framer = FramerFor(11025.0, 14);
  PowerSpectrumPlan plan({.points = 256,
                          .preEmphasis = kPreEmphasis,
                          .hamming = true,
                          .resample = true,
                          .displayPoints = 400,
                          .maxHz = 5000.0,
                          .rateHz = 11025.0});
  std::vector<double> levels(400);
  LpcResult lpc;
  OverFrames(state, [&](std::span<const double> x) {
    PowerSpectrumDb(x, plan, levels);
    LpcAnalyse(framer.Frame(x), 14, lpc, std::cerr);
    benchmark::DoNotOptimize(FindFormants(lpc, 11025.0, std::cerr));
  });
}

struct Survey {
  double frames = 0, silent = 0, failed = 0, worstResidual = 0;
};

void SurveyFrames(std::span<const double> x, double rateHz, int order, int count, Survey& survey) {
  Framer framer = FramerFor(rateHz, order);
  const double hop = static_cast<double>(x.size() - framer.inputSize()) / count;
  FactorList list;
  LpcResult lpc;
  for (int i = 0; i < count; ++i) {
    const auto frame = framer.Frame(x.subspan(static_cast<std::size_t>(i * hop)));
    LpcAnalyse(frame, order, lpc, std::cerr);
    survey.frames += 1;
    survey.silent += lpc.valid ? 0 : 1;
    if (!lpc.valid) continue;
    survey.failed += FactorPolynomial(lpc.polynomial(), list) ? 0 : 1;
    survey.worstResidual =
        std::max(survey.worstResidual, testing::WorstResidual(lpc.polynomial(), list.quadratics()));
  }
}

void BM_SurveyOfSpeech(benchmark::State& state) {
  Survey survey;
  for (auto _ : state) {
    survey = {};
    for (const double rateHz : {11025.0, 16000.0}) {
      const std::vector<double> x = SpeechAt(rateHz);
      if (x.empty()) {
        state.SkipWithError("no recordings of alsa-utils");
        return;
      }
      for (int order = 8; order <= 24; ++order) SurveyFrames(x, rateHz, order, 5900, survey);
    }
  }
  state.counters["frames"] = survey.frames;
  state.counters["silent"] = survey.silent;
  state.counters["failed"] = survey.failed;
  state.counters["worst"] = survey.worstResidual;
}

BENCHMARK(BM_Autocorrelation);
BENCHMARK(BM_Prediction);
BENCHMARK(BM_Formants);
BENCHMARK(BM_Envelope);
BENCHMARK(BM_SpectrogramColumn);
BENCHMARK(BM_SurveyOfSpeech)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace
}  // namespace cantorix
