// fft_bench.cpp - one transform beside the plain loop and beside FFTW's measured plan, in place on
// separate real and imaginary arrays and, for FFTW, also on interleaved ones.
#include "analysis/fft.h"

#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <algorithm>
#include <bit>
#include <random>
#include <vector>

#include "analysis/plain_fft.h"

namespace cantorix {
namespace {

struct Data {
  explicit Data(std::size_t n) : re(n), im(n) {
    std::mt19937 random(1);
    std::normal_distribution<double> normal;
    for (double& x : re) x = normal(random);
    for (double& x : im) x = normal(random);
  }
  std::vector<double> re, im;
};

int Log2(const benchmark::State& state) {
  return std::countr_zero(static_cast<unsigned>(state.range(0)));
}

// Repeated transforms of their own output grow beyond all numbers, so every turn starts afresh;
// all variants pay for the copy.
template <typename Transform>
void Run(benchmark::State& state, Data& data, Transform transform) {
  const Data fresh(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    std::copy(fresh.re.begin(), fresh.re.end(), data.re.begin());
    std::copy(fresh.im.begin(), fresh.im.end(), data.im.begin());
    transform();
    benchmark::ClobberMemory();
  }
}

void BM_Copy(benchmark::State& state) {
  Data data(static_cast<std::size_t>(state.range(0)));
  Run(state, data, [] {});
}

void BM_Plan(benchmark::State& state) {
  const FftPlan plan(Log2(state));
  Data data(plan.size());
  Run(state, data, [&] { plan.Transform(data.re, data.im); });
}

void BM_PlainLoop(benchmark::State& state) {
  const int m = Log2(state);
  Data data(static_cast<std::size_t>(state.range(0)));
  Run(state, data, [&] { testing::PlainFft(data.re, data.im, m); });
}

void BM_FftwSplit(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  Data data(static_cast<std::size_t>(n));
  fftw_iodim shape{n, 1, 1};
  const fftw_plan plan =
      fftw_plan_guru_split_dft(1, &shape, 0, nullptr, data.re.data(), data.im.data(),
                               data.re.data(), data.im.data(), FFTW_MEASURE);
  if (plan == nullptr) {
    state.SkipWithError("no plan for separate arrays");
    return;
  }
  Run(state, data, [plan] { fftw_execute(plan); });
  fftw_destroy_plan(plan);
}

void BM_FftwInterleaved(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const auto bytes = sizeof(fftw_complex) * static_cast<std::size_t>(n);
  auto* data = static_cast<fftw_complex*>(fftw_malloc(bytes));
  auto* fresh = static_cast<fftw_complex*>(fftw_malloc(bytes));
  const fftw_plan plan = fftw_plan_dft_1d(n, data, data, FFTW_FORWARD, FFTW_MEASURE);
  const Data source(static_cast<std::size_t>(n));
  for (std::size_t i = 0; i < source.re.size(); ++i) {
    fresh[i][0] = source.re[i];
    fresh[i][1] = source.im[i];
  }
  for (auto _ : state) {
    std::copy(&fresh[0][0], &fresh[0][0] + 2 * n, &data[0][0]);
    fftw_execute(plan);
    benchmark::ClobberMemory();
  }
  fftw_destroy_plan(plan);
  fftw_free(data);
  fftw_free(fresh);
}

BENCHMARK(BM_Copy)->Arg(256)->Arg(1024)->Arg(4096);
BENCHMARK(BM_Plan)->Arg(256)->Arg(1024)->Arg(4096);
BENCHMARK(BM_FftwSplit)->Arg(256)->Arg(1024)->Arg(4096);
BENCHMARK(BM_FftwInterleaved)->Arg(256)->Arg(1024)->Arg(4096);
BENCHMARK(BM_PlainLoop)->Arg(256)->Arg(1024)->Arg(4096);

}  // namespace
}  // namespace cantorix
