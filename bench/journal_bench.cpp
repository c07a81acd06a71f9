// journal_bench.cpp - what a tick of the journals takes from the interface thread, in microseconds:
// the counters are the median and the worst of all ticks, four to a second as the desktop has them,
// with the flushing to the disk that falls among them, and the worst in the processor's time, which
// other programs do not move. TMPDIR chooses the disk.
#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <chrono>

#include "app/log_journal.h"
#include "journal/document_journal.h"
#include "mainview/label_commands.h"
#include "mainview/view_fixture.h"

namespace cantorix {
namespace {

constexpr double kRateHz = 16000.0;
constexpr int kTicks = 400;

JournalPlace PlaceIn(const TemporaryFolder& folder) {
  return {[&folder] { return folder.path() + "/"; }, [] { return std::string("20261121-143005"); }};
}

// That this thread has used.
double ProcessorUs() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

// `act` happens before each tick and is not measured.
template <typename Act, typename Tick>
void MeasureTicks(benchmark::State& state, Act act, Tick tick) {
  using Clock = std::chrono::steady_clock;
  std::vector<double> times;
  double worstOfProcessor = 0.0;
  double nowMs = 0.0;
  for (auto _ : state) {
    act();
    const double before = ProcessorUs();
    const auto began = Clock::now();
    benchmark::DoNotOptimize(tick(nowMs));
    const std::chrono::duration<double> took = Clock::now() - began;
    worstOfProcessor = std::max(worstOfProcessor, ProcessorUs() - before);
    state.SetIterationTime(took.count());
    times.push_back(took.count() * 1e6);
    nowMs += 250.0;
  }
  std::sort(times.begin(), times.end());
  state.counters["median_us"] = times[times.size() / 2];
  state.counters["worst_us"] = times.back();
  state.counters["worst_cpu_us"] = worstOfProcessor;
}

// A minute with so many labels and the journal that follows it.
struct Followed {
  explicit Followed(int labels) : talk(world, Samples(60 * 16000), kRateHz) {
    talk.document.channel().tiers[1].inUse = true;
    for (int i = 0; i < labels; ++i) {
      const double ms = 60000.0 * i / labels;
      talk.document.channel().AddLabel(1, LabelOf(ms, "label " + std::to_string(i)));
    }
    journal.emplace(talk.document, PlaceIn(folder));
  }
  void Type() { AddLabelToTier(talk.view, 1, LabelOf(29999.5 + ++typed * 0.001, "typed")); }
  ~Followed() { talk.document.SetModified(false); }

  ViewWorld world;
  ViewedRecording talk;
  TemporaryFolder folder;
  std::optional<DocumentJournal> journal;
  int typed = 0;
};

template <typename Act>
void MeasureDocument(benchmark::State& state, Followed& one, Act act) {
  MeasureTicks(state, act, [&](double nowMs) { return one.journal->Tick(nowMs); });
}

void NothingChanged(benchmark::State& state) {
  Followed one(10000);
  one.Type();
  MeasureDocument(state, one, [] {});
}

void LabelTyped(benchmark::State& state) {
  Followed one(static_cast<int>(state.range(0)));
  MeasureDocument(state, one, [&] { one.Type(); });
}

// Now the gain of all, now a second cut out of the middle, now a second put in there.
void SampleEdited(benchmark::State& state) {
  Followed one(static_cast<int>(state.range(0)));
  int turn = 0;
  MeasureDocument(state, one, [&] {
    SelectSamples(one.talk, 400000, 416000);
    if (turn % 3 == 0) CutSelection(one.talk.view);
    if (turn % 3 == 1) Paste(one.talk.view);
    if (turn % 3 == 2) ApplyReferenceAndGain(one.talk.view, {0.0, 1.0});
    ++turn;
  });
}

void MeasureLog(benchmark::State& state, int rows) {
  const LogEntry entry{
      "talk.qrv", "Pitch Entry: time, pitch, intensity", {"1000.0", "120.5", "61.2"}};
  std::optional<LogTable> log(std::in_place);
  for (std::int64_t i = 0; i < state.range(0); ++i) log->Append(entry);
  const TemporaryFolder folder;
  LogJournal journal(log, PlaceIn(folder));
  const auto act = [&] {
    for (int i = 0; i < rows; ++i) log->Append(entry);
  };
  MeasureTicks(state, act, [&](double nowMs) { return journal.Tick(nowMs); });
  log.reset();
}

void RowEntered(benchmark::State& state) { MeasureLog(state, 1); }
void ThousandRowsEntered(benchmark::State& state) { MeasureLog(state, 1000); }

void Ticks(benchmark::internal::Benchmark* one) {
  one->UseManualTime()->Iterations(kTicks)->Unit(benchmark::kMicrosecond);
}
BENCHMARK(NothingChanged)->Apply(Ticks);
BENCHMARK(LabelTyped)->Arg(10)->Arg(10000)->Apply(Ticks);
BENCHMARK(SampleEdited)->Arg(10)->Arg(10000)->Apply(Ticks);
BENCHMARK(RowEntered)->Arg(10)->Arg(100000)->Apply(Ticks);
BENCHMARK(ThousandRowsEntered)->Arg(10)->Apply(Ticks);

}  // namespace
}  // namespace cantorix
