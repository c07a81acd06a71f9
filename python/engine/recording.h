// recording.h - one open recording for Python: the document with the host around it, worked on by
// one thread at a time and never with the lock of the interpreter held.
#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "document/document.h"
#include "host.h"
#include "measure/analyses.h"
#include "measure/kept_prompts.h"
#include "measure/stretch.h"
#include "platform/host_services.h"
#include "platform/leftovers.h"
#include "settings/settings.h"

namespace cantorix::python {

// The folder for the disk stores of all recordings that are open, made with the first of them and
// gone with the last.
class TemporaryHome {
 public:
  // Throws FileError.
  std::shared_ptr<const PrivateFolder> Folder();

 private:
  std::mutex mutex_;
  std::weak_ptr<const PrivateFolder> folder_;
};

struct OpenOptions {
  std::optional<int> channel;  // counted from 1
  std::optional<GenericParameters> generic;
  Settings settings;
};

// A measurement or another piece of work, with what was asked for it.
struct Job {
  MeasureOptions options;
  std::optional<Settings> settings;  // else those that the recording was opened with
  const py::object* progress = nullptr;
};

class Recording {
 public:
  Recording(std::shared_ptr<const PrivateFolder> home, OpenOptions options);

  // With the lock of the interpreter held. Throws FileError, WrongUsage, std::bad_alloc, and
  // what an interrupt or the callback raises.
  void Open(const std::string& path, const py::object& progress);
  // Takes over the samples. Throws WrongUsage for a rate or a number of samples that no recording
  // can have.
  void Adopt(SampleBlock samples, double rateHz);

  // Does `work` on the document without the lock of the interpreter, under the job's settings;
  // remarks become warnings. Throws what work throws, WrongUsage for a stretch outside the
  // recording, FileError when the file has changed since it was opened.
  void Run(const Job& job, const std::function<void(CSonadexDoc&)>& work);
  // The same for what measures nothing.
  void Work(const std::function<void(CSonadexDoc&)>& work) { Run({}, work); }

  // For what does not change while the recording is open.
  const CSonadexDoc& document() const { return *document_; }
  const Settings& settings() const { return settings_; }
  // A sentence for the user; within Run.
  void Say(const std::string& text) { prompts_.Message(text); }
  // The file has been written by this recording itself.
  void StampFile() { stamp_ = StampOf(path_); }
  const std::string& path() const { return path_; }

 private:
  struct Stamp {
    std::uintmax_t bytes = 0;
    std::uint64_t inode = 0;
    std::int64_t changedNs = 0;
    bool operator==(const Stamp&) const = default;
  };
  static std::optional<Stamp> StampOf(const std::string& path);
  void RequireUnchanged() const;
  void OpenUnlocked();
  void RunUnlocked(const Job& job, const std::function<void(CSonadexDoc&)>& work);

  std::shared_ptr<const PrivateFolder> home_;
  Settings settings_;
  std::string path_;  // empty: made of samples
  std::optional<Stamp> stamp_;
  KeptPrompts prompts_;
  PolledProgress progress_;
  HostMemoryProbe memory_;
  DocumentHost host_;
  std::unique_ptr<CSonadexDoc> document_;
  std::mutex mutex_;
  std::atomic<std::thread::id> worker_{};
};

}  // namespace cantorix::python
