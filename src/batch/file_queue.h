// file_queue.h - works on the files of a run, several at a time, and writes their results in the
// order in which the files were named.
#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "batch/session.h"
#include "batch/text_sink.h"

namespace cantorix::batch {

// A verb that measures one open file.
struct Measure {
  std::string header;  // the table's header line with its line feed; empty: none
  std::string suffix;  // of the files in an output folder: ".pitch.tsv"
  std::function<bool(Session& session, bool namesFile, TextSink& sink)> write;
  bool namesFiles = true;  // rows that several files share begin with the file's name
};

// Where each file's result goes: the request's output, or one file each in the folder it names.
// Empty texts mean standard output. Throws std::invalid_argument when two files would meet.
std::vector<std::string> OutputPaths(const Request& request, const std::string& suffix);

class FileQueue {
 public:
  FileQueue(const Run& run, Measure measure, std::vector<std::string> outputs);
  // Works through all files. True when every one succeeded.
  bool Work();

 private:
  struct Result {
    SpoolSink spool;
    bool succeeded = false;
  };

  void WorkerLoop();
  bool WorkOn(std::size_t index, TextSink& sink);
  bool WorkIntoFile(std::size_t index);
  void WorkIntoSpool(std::size_t index);
  // Writes the results whose turn has come to standard output; with the lock held.
  void PourFinished();
  void Pour(SpoolSink& spool);
  bool OpenAndWrite(std::size_t index, TextSink& sink);

  const Run& run_;
  Measure measure_;
  std::vector<std::string> outputs_;
  bool namesFile_;  // in every row of a table that several files share
  StandardOutputSink standardOutput_;
  HeaderedSink table_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<bool> allSucceeded_ = true;
  std::mutex turnMutex_;
  std::condition_variable turnChanged_;
  std::map<std::size_t, Result> finished_;  // and not yet written
  std::size_t turn_ = 0;                    // the file whose result goes to standard output next
};

}  // namespace cantorix::batch
