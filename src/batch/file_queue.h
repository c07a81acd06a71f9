// file_queue.h - works on the files of a run, several at a time, and writes their results in the
// order in which the files were named.
#pragma once

#include <atomic>
#include <condition_variable>
#include <exception>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "batch/jobs.h"
#include "batch/outcome.h"
#include "batch/session.h"
#include "batch/stream_place.h"
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
// Empty texts mean the stream that they share. Throws WrongUsage when two files would meet, or when
// one is a recording of the run.
std::vector<std::string> OutputPaths(const Request& request, const std::string& suffix);

class FileQueue {
 public:
  // `stream` takes the results that have no file of their own.
  FileQueue(const Run& run, Measure measure, std::vector<std::string> outputs,
            const OutputStream& stream);
  // Works through all files. After an interrupt that left a file without its result, one line says
  // so and the outcome is kFailed.
  Outcome Work();

 private:
  // How the work on a file ended; nothing when an interrupt ended it.
  using Ending = std::optional<Outcome>;
  struct Result {
    SpoolSink spool;
    Ending ending;
  };

  void WorkerLoop() noexcept;
  void WorkOnNext(std::size_t index);
  Ending WorkOn(std::size_t index, TextSink& sink);
  Ending WorkIntoFile(std::size_t index);
  void WorkIntoSpool(std::size_t index);
  // Writes the results whose turn has come to the stream; with the lock held.
  void PourFinished();
  Ending Pour(SpoolSink& spool);
  bool OpenAndWrite(std::size_t index, TextSink& sink);
  // Counts a file that is finished with.
  void End(const Ending& ending);
  void Stop(std::exception_ptr failure);

  const Run& run_;
  Measure measure_;
  std::vector<std::string> outputs_;
  Jobs jobs_;
  bool namesFile_;  // in every row of a table that several files share
  const OutputStream& stream_;
  StreamSink streamSink_;
  HeaderedSink table_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<bool> stopped_ = false;  // by a failure that ends the whole run
  std::mutex turnMutex_;               // of all that follows
  std::condition_variable turnChanged_;
  std::map<std::size_t, Result> finished_;  // and not yet written
  std::size_t turn_ = 0;                    // the file whose result goes to the stream next
  std::size_t ended_ = 0;                   // files that no interrupt kept from their end
  Outcome worst_ = Outcome::kDone;
  std::exception_ptr failure_;
};

}  // namespace cantorix::batch
