// file_queue.cpp - threads over the files, and the order of their output.
#include "batch/file_queue.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <thread>
#include <utility>

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
  if (request.output.empty()) return paths;
  const std::filesystem::path output = request.output;
  if (request.files.size() == 1 && !std::filesystem::is_directory(output)) {
    paths[0] = request.output;
    return paths;
  }
  std::filesystem::create_directories(output);
  std::set<std::string> taken;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const std::filesystem::path file = request.files[i];
    paths[i] = (output / file.stem()).string() + suffix;
    if (!taken.insert(paths[i]).second) {
      throw std::invalid_argument("two of the files would both be written to " + paths[i]);
    }
  }
  return paths;
}

FileQueue::FileQueue(const Run& run, Measure measure, std::vector<std::string> outputs)
    : run_(run),
      measure_(std::move(measure)),
      outputs_(std::move(outputs)),
      namesFile_(measure_.namesFiles && outputs_.size() > 1 && outputs_.front().empty()),
      table_(standardOutput_, namesFile_ && !measure_.header.empty() ? "file\t" + measure_.header
                                                                     : measure_.header) {}

bool FileQueue::Work() {
  const auto jobs = std::min(static_cast<std::size_t>(run_.request.jobs), outputs_.size());
  std::vector<std::jthread> workers;
  for (std::size_t i = 1; i < jobs; ++i) workers.emplace_back([this] { WorkerLoop(); });
  WorkerLoop();
  workers.clear();  // joins
  const std::size_t count = run_.request.files.size();
  if (run_.interrupted && count > 1) {
    run_.console.Report({},
                        "interrupted, not all of the " + std::to_string(count) + " files are done");
    return false;
  }
  return allSucceeded_;
}

void FileQueue::WorkerLoop() {
  while (!run_.interrupted) {
    const std::size_t index = next_++;
    if (index >= outputs_.size()) return;
    const bool intoFile = !outputs_[index].empty();
    if (!intoFile) {
      WorkIntoSpool(index);
    } else if (!WorkIntoFile(index)) {
      allSucceeded_ = false;
    }
    run_.console.FileDone();
  }
}

bool FileQueue::WorkIntoFile(std::size_t index) {
  try {
    FileSink file(outputs_[index]);
    HeaderedSink table(file, measure_.header);
    if (!WorkOn(index, table)) return false;
    table.Finish();
    return true;
  } catch (const FileError& error) {
    run_.console.Report({}, CouldNotBeSaved(outputs_[index], error.what()));
    return false;
  }
}

void FileQueue::WorkIntoSpool(std::size_t index) {
  Result result;
  result.succeeded = WorkOn(index, result.spool);
  std::unique_lock lock(turnMutex_);
  finished_.emplace(index, std::move(result));
  PourFinished();
  turnChanged_.notify_all();
  turnChanged_.wait(lock, [&] { return turn_ > index || finished_.size() < kMaxFinished; });
}

void FileQueue::PourFinished() {
  for (auto it = finished_.begin(); it != finished_.end() && it->first == turn_; ++turn_) {
    if (it->second.succeeded) {
      Pour(it->second.spool);
    } else {
      allSucceeded_ = false;
    }
    it = finished_.erase(it);
  }
}

void FileQueue::Pour(SpoolSink& spool) {
  try {
    run_.console.ClearProgress();
    spool.PourInto(table_);
    table_.Finish();
  } catch (const FileError& error) {
    run_.console.Report("standard output", error.what());
    allSucceeded_ = false;
  }
}

bool FileQueue::WorkOn(std::size_t index, TextSink& sink) {
  try {
    return OpenAndWrite(index, sink);
  } catch (...) {
    run_.console.Report(run_.request.files[index], ReasonOf(std::current_exception()));
    return false;
  }
}

bool FileQueue::OpenAndWrite(std::size_t index, TextSink& sink) {
  Session session(run_, run_.request.files[index]);
  try {
    return session.Open() && measure_.write(session, namesFile_, sink);
  } catch (const Abandoned& abandoned) {
    // Its line is out already.
    if (abandoned.reason() == AbandonReason::kFailed) return false;
    throw;
  }
}

}  // namespace cantorix::batch
