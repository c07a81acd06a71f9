// document.cpp - life of a document and the place of its samples.
#include "document/document.h"

#include <new>
#include <utility>

#include "document/open_pipeline.h"
#include "document/sample_splice.h"
#include "settings/config_file.h"
#include "settings/local_settings.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

// The samples of a channel's memory block, whatever block it holds at the moment.
class ChannelSource : public SampleSource {
 public:
  explicit ChannelSource(const CChannel& channel) : channel_(channel) {}
  std::int64_t length() const override { return channel_.samples.size(); }
  std::span<const std::int16_t> View(std::int64_t start, std::int64_t count,
                                     std::vector<std::int16_t>&) const override {
    return channel_.samples.samples().subspan(static_cast<std::size_t>(start),
                                              static_cast<std::size_t>(count));
  }

 private:
  const CChannel& channel_;
};

// The settings of a new document: the defaults, or all that a valid configuration file holds. The
// file's application block is read at start-up only.
DocumentSettings NewDocumentSettings(const std::string& programDirectory) {
  Settings stored{{}, DefaultDocumentSettings()};
  DecodeRecord(ReadConfiguration(ConfigPath(programDirectory)), stored);
  return std::move(stored.document);
}

}  // namespace

CSonadexDoc::CSonadexDoc(DocumentHost& host)
    : ownSettings_(std::make_unique<DocumentSettings>(NewDocumentSettings(host.programDirectory))),
      ownLocal_(std::make_unique<LocalSettings>()),
      settings(*ownSettings_),
      localSettings(*ownLocal_),
      host_(host),
      memorySource_(std::make_unique<ChannelSource>(channels[0])) {
  memoryLimitMinutes = host.application.memoryMinutes;
  channel().sampleRateHz = settings.referenceRateHz;
  for (std::size_t i = 0; i < settings.tierNames.size(); ++i) {
    channel().tiers[i].name = settings.tierNames[i];
  }
}

CSonadexDoc::~CSonadexDoc() {
  if (!host_.documentsWriteConfiguration || !writesConfiguration) return;
  try {
    // Kept: the last document closed decides what the file holds, and a failed write is not
    // reported.
    WriteConfiguration(ConfigPath(host_.programDirectory),
                       {host_.application, localSettings.ForFile(settings)});
  } catch (const std::bad_alloc&) {
    // Without memory for the record the file stays as it is, and the program goes on.
  }
}

bool CSonadexDoc::OnOpenDocument(const std::string& path) {
  return OpenRecording(*this, path, StandardReaders());
}

const SampleSource& CSonadexDoc::Samples() const {
  if (fileSamples_) return *fileSamples_;
  if (pieces_) return *pieces_;
  return store_ ? static_cast<const SampleSource&>(*store_) : *memorySource_;
}

void CSonadexDoc::HoldNothing() {
  channel().samples = SampleBlock();
  store_.reset();
  fileSamples_.reset();
  pieces_.reset();
}

void CSonadexDoc::HoldInMemory(SampleBlock block) {
  HoldNothing();
  channel().samples = std::move(block);
}

void CSonadexDoc::HoldOnDisk(std::unique_ptr<SampleStore> store) {
  HoldNothing();
  store_ = std::move(store);
}

void CSonadexDoc::HoldInFile(std::unique_ptr<SampleSource> samples) {
  HoldNothing();
  fileSamples_ = std::move(samples);
}

void CSonadexDoc::HoldInPieces(std::unique_ptr<SampleSource> whole) {
  auto pieces = std::make_unique<SamplePieces>(std::move(whole));
  HoldNothing();
  pieces_ = std::move(pieces);
}

void CSonadexDoc::RemoveSamples(std::int64_t first, std::int64_t end) {
  if (pieces_) return pieces_->Remove(first, end);
  cantorix::RemoveSamples(channel().samples, first, end);
}

void CSonadexDoc::SetPathName(const std::string& path) {
  pathName_ = path;
  title_ = path.substr(path.rfind('/') + 1);
  Notify(DocumentChange::kTitle);
}

void CSonadexDoc::SetModified(bool modified) {
  if (modified_ == modified) return;
  modified_ = modified;
  if (!modified) KeepUntilSaved(nullptr);
  Notify(DocumentChange::kTitle);
}

void CSonadexDoc::KeepUntilSaved(std::unique_ptr<UnsavedFile> file) {
  if (unsavedFile_) unsavedFile_->Delete();
  unsavedFile_ = std::move(file);
}

bool CSonadexDoc::MarkModified() { return !std::exchange(modified_, true); }

void CSonadexDoc::SetOrigin(SampleOrigin origin) {
  origin_ = std::move(origin);
  if (sampleListener_ != nullptr) sampleListener_->OriginChanged();
}

void CSonadexDoc::TellSampleEdit(const SampleEdit& edit) {
  if (sampleListener_ != nullptr) sampleListener_->SamplesEdited(edit);
}

void CSonadexDoc::Attach(DocumentObserver& observer) { observers_.push_back(&observer); }

void CSonadexDoc::Detach(DocumentObserver& observer) { std::erase(observers_, &observer); }

void CSonadexDoc::Notify(DocumentChanges changes, const DocumentObserver* by) {
  for (DocumentObserver* const observer : observers_) {
    if (observer != by) observer->DocumentChanged(changes, by);
  }
}

}  // namespace cantorix
