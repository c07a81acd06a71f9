// corpus_run.cpp - workers over the recordings, and their rows in turn.
#include "batch/corpus_run.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <new>
#include <thread>
#include <utility>

#include "batch/console_progress.h"
#include "batch/corpus_output.h"
#include "measure/corpus_file.h"
#include "platform/abandon.h"
#include "platform/numbers.h"
#include "settings/field_table.h"
#include "settings/field_text.h"

namespace cantorix::batch {
namespace {

using Clock = std::chrono::steady_clock;

// Results that wait for an earlier recording; more than this and the workers wait too.
constexpr std::size_t kMaxWaiting = 64;

// FNV-1a: not to keep secrets, to notice another corpus.
class Fingerprint {
 public:
  void Add(std::string_view text) {
    for (const char c : text) {
      sum_ = (sum_ ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    }
    sum_ = (sum_ ^ 0xFFU) * 1099511628211ULL;  // no byte of UTF-8: the end of a text
  }
  std::string Text() const { return std::to_string(sum_); }

 private:
  std::uint64_t sum_ = 14695981039346656037ULL;
};

std::string PlanOf(const CorpusList& list, const std::vector<CorpusPart>& parts, const Run& run) {
  Fingerprint plan;
  for (const CorpusEntry& entry : list.entries) {
    plan.Add(entry.path);
    plan.Add(entry.leading);
  }
  for (const CorpusPart& part : parts) plan.Add(part.name + part.header);
  for (const Field& field : Fields()) plan.Add(FieldText(run.settings, field));
  const Request& request = run.request;
  plan.Add(request.corpus.labelEnding + (request.exact ? " exact" : "") +
           (request.usualLpcOrder ? " auto" : "") + std::to_string(request.channel.value_or(0)));
  return plan.Text();
}

// The tables of the work, and that of what failed.
std::vector<CorpusPart> PartsOf(const CorpusWork& work, const CorpusList& list) {
  std::vector<CorpusPart> parts;
  for (const CorpusTable table : work.tables) {
    parts.push_back({std::string(NameOf(table)), CorpusHeader(table, list.columns, work.points)});
  }
  parts.push_back({"failed", "recording\treason\n"});
  return parts;
}

class CorpusQueue {
 public:
  CorpusQueue(const Run& run, const CorpusList& list, CorpusWork work, CorpusOutput& output)
      : run_(run),
        list_(list),
        work_(std::move(work)),
        opening_{run.settings, run.programDirectory, run.request.channel, run.request.generic},
        output_(output),
        first_(output.done()),
        next_(output.done()) {}

  // How many failed; throws what ended the run.
  std::size_t Work() {
    {
      std::vector<std::jthread> workers;
      for (int i = 1; i < run_.request.jobs; ++i) workers.emplace_back([this] { Loop(); });
      Loop();
    }
    if (failure_) std::rethrow_exception(failure_);
    return failed_;
  }

 private:
  void Loop() noexcept {
    try {
      for (std::size_t index = 0; Take(index);) {
        ConsoleProgress progress(quiet_, "", run_.interrupted);
        Give(index, MeasureCorpusFile(list_.entries[index], work_, opening_, progress));
      }
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (!failure_) failure_ = std::current_exception();
      changed_.notify_all();
    }
  }

  // The next recording, once few enough wait for an earlier one. False at the end.
  bool Take(std::size_t& index) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return failure_ || next_ - output_.done() < kMaxWaiting; });
    if (run_.interrupted) throw Abandoned(AbandonReason::kCancelled);
    if (failure_ || next_ >= list_.entries.size()) return false;
    index = next_++;
    return true;
  }

  void Give(std::size_t index, CorpusResult result) {
    const std::lock_guard lock(mutex_);
    waiting_.emplace(index, std::move(result));
    for (auto it = waiting_.begin(); it != waiting_.end() && it->first == output_.done();) {
      Put(it->first, it->second);
      it = waiting_.erase(it);
    }
    changed_.notify_all();
  }

  void Put(std::size_t index, CorpusResult& result) {
    const CorpusEntry& entry = list_.entries[index];
    std::vector<std::string> rows = std::move(result.rows);
    rows.resize(work_.tables.size());
    const std::string name = entry.leading.substr(0, entry.leading.find('\t'));
    rows.push_back(result.failure.empty() ? "" : name + '\t' + result.failure + '\n');
    if (!result.failure.empty()) ++failed_;
    output_.Append(rows);
    Show(entry.path);
  }

  void Show(const std::string& path) {
    if (!run_.console.showsProgress()) return;
    const double seconds = std::chrono::duration<double>(Clock::now() - begun_).count();
    const auto total = static_cast<double>(list_.entries.size());
    const auto done = static_cast<double>(output_.done());
    const double rate = (done - static_cast<double>(first_)) / seconds;
    const std::string text = std::to_string(output_.done()) + '/' +
                             std::to_string(list_.entries.size()) + ", " + FormatOneDecimal(rate) +
                             " a second, " + FormatOneDecimal((total - done) / rate / 60.0) +
                             " min left:";
    run_.console.ShowProgress(path, text, done / total);
  }

  const Run& run_;
  const CorpusList& list_;
  CorpusWork work_;
  CorpusOpening opening_;
  CorpusOutput& output_;
  Console quiet_{false};  // of the single recordings
  std::mutex mutex_;      // of all that follows and of the output
  std::condition_variable changed_;
  std::size_t first_;
  std::size_t next_;
  std::map<std::size_t, CorpusResult> waiting_;
  std::size_t failed_ = 0;
  std::exception_ptr failure_;
  Clock::time_point begun_ = Clock::now();
};

}  // namespace

Outcome WorkOnCorpus(const Run& run) {
  using Start = CorpusOutput::Start;
  const Request& request = run.request;
  CorpusWork work{CorpusTablesOf(request.corpus.tables), request.corpus.points, request.exact,
                  request.corpus.labelEnding, request};
  const CorpusList list = ReadCorpus(request.files, request.corpus.column);
  const auto parts = PartsOf(work, list);
  const Start fresh = request.force ? Start::kAgain : Start::kNew;
  CorpusOutput output(request.output, parts, PlanOf(list, parts, run),
                      request.corpus.resume ? Start::kResumed : fresh);
  if (output.finished()) return Outcome::kDone;
  CorpusQueue queue(run, list, std::move(work), output);
  std::size_t failed = 0;
  try {
    failed = queue.Work();
  } catch (const Abandoned&) {
    output.Note();
    run.console.ClearProgress();
    run.console.Report({}, "interrupted, " + std::to_string(output.done()) + " of the " +
                               std::to_string(list.entries.size()) +
                               " recordings are done; --resume goes on");
    return Outcome::kFailed;
  }
  output.Finish();
  run.console.ClearProgress();
  if (failed == 0) return Outcome::kDone;
  run.console.Report(
      {}, std::to_string(failed) + " recordings failed, see " + request.output + "/failed.tsv");
  return Outcome::kFailed;
}

}  // namespace cantorix::batch
