// corpus_run.cpp - workers over the recordings, and their rows in turn.
#include "batch/corpus_run.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <new>
#include <optional>
#include <utility>

#include "batch/console_progress.h"
#include "batch/corpus_output.h"
#include "batch/jobs.h"
#include "measure/corpus_file.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
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

void AddEntry(const CorpusEntry& entry, Fingerprint& plan) {
  plan.Add(entry.path);
  plan.Add(entry.leading);
}

struct Plan {
  std::string entries;  // as one word; another for another list
  std::string whole;    // with the options
  std::size_t count = 0;
};

// Reads the whole list once: nothing is begun for one that has a fault.
Plan PlanOf(const std::vector<CorpusPart>& parts, const Run& run) {
  const Request& request = run.request;
  Fingerprint sum;
  Plan plan;
  CorpusReader reader(request.files, request.corpus.column);
  for (auto entry = reader.Next(); entry; entry = reader.Next()) {
    AddEntry(*entry, sum);
    ++plan.count;
  }
  plan.entries = sum.Text();
  for (const CorpusPart& part : parts) sum.Add(part.name + part.header);
  for (const Field& field : Fields()) sum.Add(FieldText(run.settings, field));
  sum.Add(request.corpus.labelEnding + (request.exact ? " exact" : "") +
          (request.usualLpcOrder ? " auto" : "") + std::to_string(request.channel.value_or(0)));
  plan.whole = sum.Text();
  return plan;
}

// The tables of the work, and that of what failed.
std::vector<CorpusPart> PartsOf(const CorpusWork& work, const std::vector<std::string>& columns) {
  std::vector<CorpusPart> parts;
  for (const CorpusTable table : work.tables) {
    parts.push_back({std::string(NameOf(table)), CorpusHeader(table, columns, work.points)});
  }
  parts.push_back({"failed", "recording\treason\n"});
  return parts;
}

class CorpusQueue {
 public:
  CorpusQueue(const Run& run, Plan plan, CorpusWork work, CorpusOutput& output)
      : run_(run),
        plan_(std::move(plan)),
        reader_(run.request.files, run.request.corpus.column),
        work_(std::move(work)),
        jobs_(run.request, run.request.jobs),
        opening_{run.settings, run.programDirectory, run.request.channel, run.request.generic,
                 &jobs_.workers()},
        output_(output),
        first_(output.done()) {
    while (next_ < first_ && ReadEntry()) ++next_;
  }

  // How many failed; throws what ended the run.
  std::size_t Work() {
    jobs_.Run([this] { Loop(); });
    if (failure_) std::rethrow_exception(failure_);
    return failed_;
  }

 private:
  struct Finished {
    CorpusEntry entry;
    CorpusResult result;
  };

  void Loop() noexcept {
    try {
      std::size_t index = 0;
      while (const auto entry = Take(index)) {
        ConsoleProgress progress(quiet_, "", run_.interrupted);
        Give(index, {*entry, MeasureCorpusFile(*entry, work_, opening_, progress)});
      }
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (!failure_) failure_ = std::current_exception();
      changed_.notify_all();
    }
  }

  // The next recording, once few enough wait for an earlier one. None at the end.
  std::optional<CorpusEntry> Take(std::size_t& index) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return failure_ || next_ - output_.done() < kMaxWaiting; });
    if (run_.interrupted) throw Abandoned(AbandonReason::kCancelled);
    if (failure_ || next_ >= plan_.count) return std::nullopt;
    auto entry = ReadEntry();
    index = next_++;
    const bool same = entry && (next_ < plan_.count || read_.Text() == plan_.entries);
    if (!same) throw FileError("The list of recordings changed while they were measured.");
    return entry;
  }

  std::optional<CorpusEntry> ReadEntry() {
    auto entry = reader_.Next();
    if (entry) AddEntry(*entry, read_);
    return entry;
  }

  void Give(std::size_t index, Finished finished) {
    const std::lock_guard lock(mutex_);
    waiting_.emplace(index, std::move(finished));
    for (auto it = waiting_.begin(); it != waiting_.end() && it->first == output_.done();) {
      Put(it->second);
      it = waiting_.erase(it);
    }
    changed_.notify_all();
  }

  void Put(Finished& finished) {
    const auto& [entry, result] = finished;
    std::vector<std::string> rows = std::move(finished.result.rows);
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
    const auto total = static_cast<double>(plan_.count);
    const auto done = static_cast<double>(output_.done());
    const double rate = (done - static_cast<double>(first_)) / seconds;
    const std::string text = std::to_string(output_.done()) + '/' + std::to_string(plan_.count) +
                             ", " + FormatOneDecimal(rate) + " a second, " +
                             FormatOneDecimal((total - done) / rate / 60.0) + " min left:";
    run_.console.ShowProgress(path, text, done / total);
  }

  const Run& run_;
  Plan plan_;
  CorpusReader reader_;
  CorpusWork work_;
  Jobs jobs_;
  CorpusOpening opening_;
  CorpusOutput& output_;
  Console quiet_{false};  // of the single recordings
  std::mutex mutex_;      // of all that follows and of the output
  std::condition_variable changed_;
  std::size_t first_;
  std::size_t next_ = 0;
  Fingerprint read_;
  std::map<std::size_t, Finished> waiting_;
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
  const CorpusReader list(request.files, request.corpus.column);
  const auto parts = PartsOf(work, list.columns());
  const Plan plan = PlanOf(parts, run);
  const Start fresh = request.force ? Start::kAgain : Start::kNew;
  CorpusOutput output(request.output, parts, plan.whole,
                      request.corpus.resume ? Start::kResumed : fresh);
  if (output.finished()) return Outcome::kDone;
  CorpusQueue queue(run, plan, std::move(work), output);
  std::size_t failed = 0;
  try {
    failed = queue.Work();
  } catch (const Abandoned&) {
    output.Note();
    run.console.ClearProgress();
    run.console.Report({}, "interrupted, " + std::to_string(output.done()) + " of the " +
                               std::to_string(plan.count) +
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
