// recording.cpp - opening, and running work on the document.
#include "recording.h"

#include <sys/stat.h>

#include <limits>
#include <new>
#include <stdexcept>

#include "document/foreign_recording.h"
#include "document/native_layout.h"
#include "measure/no_result.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix::python {
namespace {

constexpr std::int64_t kNanoseconds = 1'000'000'000;

// Says which thread works, for the length of a scope.
class WorkerMark {
 public:
  explicit WorkerMark(std::atomic<std::thread::id>& worker) : worker_(worker) {
    worker_ = std::this_thread::get_id();
  }
  ~WorkerMark() { worker_ = std::thread::id(); }
  WorkerMark(const WorkerMark&) = delete;
  WorkerMark& operator=(const WorkerMark&) = delete;

 private:
  std::atomic<std::thread::id>& worker_;
};

// What was said beside a result is worth a warning.
void Warn(const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    if (PyErr_WarnEx(PyExc_UserWarning, text.c_str(), 3) != 0) throw py::error_already_set();
  }
}

}  // namespace

std::shared_ptr<const PrivateFolder> TemporaryHome::Folder() {
  const std::lock_guard lock(mutex_);
  auto folder = folder_.lock();
  if (!folder) {
    folder = std::make_shared<const PrivateFolder>("cantorix-python-");
    folder_ = folder;
  }
  return folder;
}

Recording::Recording(std::shared_ptr<const PrivateFolder> home, OpenOptions options)
    : home_(std::move(home)),
      settings_(std::move(options.settings)),
      host_{.prompts = prompts_,
            .progress = progress_,
            .memory = memory_,
            .programDirectory = home_->path(),
            .application = settings_.application,
            .channelEntries = std::numeric_limits<int>::max(),
            // Measuring leaves the configuration alone.
            .documentsWriteConfiguration = false} {
  prompts_.channel = options.channel;
  prompts_.generic = options.generic;
  document_ = std::make_unique<CSonadexDoc>(host_);
  document_->settings = settings_.document;
}

void Recording::Open(const std::string& path, const py::object& progress) {
  path_ = path;
  progress_.Start(&progress);
  {
    const py::gil_scoped_release free;
    OpenUnlocked();
  }
  progress_.Finish();
  Warn(prompts_.TakeTexts());
}

void Recording::OpenUnlocked() {
  stamp_ = StampOf(path_);
  const bool opened = document_->OnOpenDocument(path_);
  if (progress_.Cancelled()) return;
  if (prompts_.refusal()) throw WrongUsage(*prompts_.refusal());
  if (!opened) {
    const OpenFailure& failure = document_->openFailure;
    if (failure.reason == "There is not enough memory.") throw std::bad_alloc();
    const std::string said = prompts_.TakeSaid();
    const bool named = said.starts_with(path_ + " ");
    throw FileError(named ? said : CouldNotBeOpened(path_, said.empty() ? failure.reason : said));
  }
  RequireUnchanged();
}

void Recording::Adopt(SampleBlock samples, double rateHz) {
  const auto length = static_cast<double>(samples.size());
  const auto impossible = native::FindImpossible(length, rateHz, length * 1000.0 / rateHz);
  if (samples.empty()) throw WrongUsage("samples must hold at least one sample");
  if (impossible) throw WrongUsage("rate must be a possible rate in Hz, above 0");
  SetForeignFields(*document_, rateHz, length);
  document_->HoldInMemory(std::move(samples));
  document_->loaded = true;
  document_->newRecording = true;
}

void Recording::Run(const Job& job, const std::function<void(CSonadexDoc&)>& work) {
  if (worker_ == std::this_thread::get_id()) {
    throw std::runtime_error("the recording is at work; its progress callback cannot ask it");
  }
  std::vector<std::string> said;
  {
    const py::gil_scoped_release free;
    const std::lock_guard lock(mutex_);
    const WorkerMark mark(worker_);
    RequireUnchanged();
    progress_.Start(job.progress);
    try {
      RunUnlocked(job, work);
    } catch (...) {
      progress_.Finish();
      prompts_.TakeTexts();
      throw;
    }
    progress_.Finish();
    said = prompts_.TakeTexts();
  }
  Warn(said);
}

void Recording::RunUnlocked(const Job& job, const std::function<void(CSonadexDoc&)>& work) {
  document_->settings = (job.settings ? *job.settings : settings_).document;
  RequireStretch(job.options, document_->channel());
  try {
    work(*document_);
  } catch (const Abandoned& abandoned) {
    if (abandoned.reason() == AbandonReason::kOutOfMemory) throw std::bad_alloc();
    const std::string said = prompts_.TakeSaid();
    throw NoResult(said.empty() ? "the measurement came to nothing" : said);
  }
}

std::optional<Recording::Stamp> Recording::StampOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  return Stamp{static_cast<std::uintmax_t>(status.st_size), status.st_ino,
               status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

void Recording::RequireUnchanged() const {
  if (!path_.empty() && StampOf(path_) != stamp_) {
    throw FileError(path_ + " was changed by another program while it was open.");
  }
}

}  // namespace cantorix::python
