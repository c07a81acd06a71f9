// file_queue.cpp - threads over the files, and the order of their output.
#include "batch/file_queue.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <set>
#include <utility>

#include "batch/own_output.h"
#include "batch/run.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

// Results that wait for an earlier file; more than this and the workers wait too.
constexpr std::size_t kMaxFinished = 64;

// The words for whatever left a file's work by an exception.
std::string ReasonOf(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const Abandoned& abandoned) {
    const bool cancelled = abandoned.reason() == AbandonReason::kCancelled;
    return cancelled ? "cancelled" : "There is not enough memory.";
  } catch (const std::bad_alloc&) {
    return "There is not enough memory.";
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace

std::vector<std::string> OutputPaths(const Request& request, const std::string& suffix) {
  std::vector<std::string> paths(request.files.size());
  if (request.output.empty() || IsStream(request.output)) return paths;
  OwnRecordings recordings(request);
  const std::filesystem::path output = request.output;
  if (request.files.size() == 1 && !std::filesystem::is_directory(output)) {
    paths[0] = request.output;
    recordings.RequireNone(paths[0]);
    return paths;
  }
  std::filesystem::create_directories(output);
  std::set<std::string> taken;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const std::filesystem::path file = request.files[i];
    paths[i] = (output / file.stem()).string() + suffix;
    if (!taken.insert(paths[i]).second) {
      throw WrongUsage("two of the files would both be written to " + paths[i]);
    }
    recordings.RequireNone(paths[i]);
  }
  return paths;
}

FileQueue::FileQueue(const Run& run, Measure measure, std::vector<std::string> outputs,
                     const OutputStream& stream)
    : run_(run),
      measure_(std::move(measure)),
      outputs_(std::move(outputs)),
      jobs_(run.request, std::min(run.request.jobs, static_cast<int>(outputs_.size()))),
      namesFile_(measure_.namesFiles && outputs_.size() > 1 && outputs_.front().empty()),
      stream_(stream),
      streamSink_(stream.descriptor(), run.interrupted),
      table_(streamSink_, namesFile_ && !measure_.header.empty() ? "file\t" + measure_.header
                                                                 : measure_.header) {}

Outcome FileQueue::Work() {
  jobs_.Run([this] { WorkerLoop(); });
  if (failure_) std::rethrow_exception(failure_);
  const auto& files = run_.request.files;
  if (ended_ == files.size()) return worst_;
  if (files.size() == 1) {
    run_.console.Report(files[0], "interrupted");
  } else {
    run_.console.Report({}, "interrupted, " + std::to_string(ended_) + " of the " +
                                std::to_string(files.size()) + " files are done");
  }
  return std::max(worst_, Outcome::kFailed);
}

void FileQueue::WorkerLoop() noexcept {
  try {
    while (!run_.interrupted && !stopped_) {
      const std::size_t index = next_++;
      if (index >= outputs_.size()) return;
      WorkOnNext(index);
      run_.console.FileDone();
    }
  } catch (...) {
    Stop(std::current_exception());
  }
}

void FileQueue::WorkOnNext(std::size_t index) {
  if (outputs_[index].empty()) return WorkIntoSpool(index);
  const Ending ending = WorkIntoFile(index);
  const std::lock_guard lock(turnMutex_);
  End(ending);
}

void FileQueue::End(const Ending& ending) {
  if (!ending) return;
  ++ended_;
  worst_ = std::max(worst_, *ending);
}

void FileQueue::Stop(std::exception_ptr failure) {
  const std::lock_guard lock(turnMutex_);
  if (!failure_) failure_ = std::move(failure);
  stopped_ = true;
  turnChanged_.notify_all();
}

FileQueue::Ending FileQueue::WorkIntoFile(std::size_t index) {
  try {
    FileSink file(outputs_[index]);
    HeaderedSink table(file, measure_.header);
    const Ending ending = WorkOn(index, table);
    if (ending != Outcome::kDone) return ending;
    if (run_.interrupted) return {};
    table.Finish();
    return Outcome::kDone;
  } catch (const FileError& error) {
    if (run_.interrupted) return {};
    run_.console.Report({}, CouldNotBeSaved(outputs_[index], error.what()));
    return Outcome::kFailed;
  }
}

void FileQueue::WorkIntoSpool(std::size_t index) {
  Result result;
  result.ending = WorkOn(index, result.spool);
  std::unique_lock lock(turnMutex_);
  finished_.emplace(index, std::move(result));
  PourFinished();
  turnChanged_.notify_all();
  turnChanged_.wait(lock,
                    [&] { return stopped_ || turn_ > index || finished_.size() < kMaxFinished; });
}

void FileQueue::PourFinished() {
  for (auto it = finished_.begin(); it != finished_.end() && it->first == turn_; ++turn_) {
    Result& result = it->second;
    End(result.ending == Outcome::kDone ? Pour(result.spool) : result.ending);
    it = finished_.erase(it);
  }
}

FileQueue::Ending FileQueue::Pour(SpoolSink& spool) {
  try {
    run_.console.ClearProgress();
    spool.PourInto(table_);
    table_.Finish();
    return Outcome::kDone;
  } catch (const Abandoned&) {
    return {};
  } catch (const FileError& error) {
    run_.console.Report(stream_.name(), error.what());
    return Outcome::kFailed;
  }
}

FileQueue::Ending FileQueue::WorkOn(std::size_t index, TextSink& sink) {
  const std::string& file = run_.request.files[index];
  try {
    if (OpenAndWrite(index, sink)) return Outcome::kDone;
  } catch (const WrongUsage& refusal) {
    run_.console.Report(file, refusal.what());
    return Outcome::kRefused;
  } catch (...) {
    if (!run_.interrupted) run_.console.Report(file, ReasonOf(std::current_exception()));
  }
  // What fails after an interrupt fails because of it.
  return run_.interrupted ? Ending() : Outcome::kFailed;
}

bool FileQueue::OpenAndWrite(std::size_t index, TextSink& sink) {
  Session session(run_, run_.request.files[index], jobs_.workers());
  try {
    return session.Open() && measure_.write(session, namesFile_, sink);
  } catch (const Abandoned& abandoned) {
    // Its line is out already.
    if (abandoned.reason() == AbandonReason::kFailed) return false;
    throw;
  }
}

}  // namespace cantorix::batch
