// document.h - one open recording: its channels, its copy of the settings, where its samples are.
// Opening is open_pipeline.h, the formats are native_file.h and wav_file.h.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "document/channel.h"
#include "document/document_host.h"
#include "document/document_observer.h"
#include "document/label_import_options.h"
#include "document/sample_edit.h"
#include "document/sample_pieces.h"
#include "document/sample_store.h"
#include "document/window_links.h"
#include "platform/generic_parameters.h"

namespace cantorix {

struct DocumentSettings;
class LocalSettings;

inline constexpr int kChannelSlots = 20;

// Why a recording could not be opened.
struct OpenFailure {
  std::string reason;      // one sentence with its full stop; empty: the open did not fail
  bool shown = false;      // the user has already been told
  bool cancelled = false;  // the user gave the open up
};

// A file that holds what the document does, while that is saved nowhere else. Letting go of one
// leaves its file where it is.
class UnsavedFile {
 public:
  virtual ~UnsavedFile() = default;
  virtual void Delete() noexcept = 0;
};

class CSonadexDoc {
 public:
  // Fills the settings with the defaults and overlays them from the configuration file.
  explicit CSonadexDoc(DocumentHost& host);
  // Writes the configuration file (unless told not to) and deletes the temporary files.
  ~CSonadexDoc();
  CSonadexDoc(const CSonadexDoc&) = delete;
  CSonadexDoc& operator=(const CSonadexDoc&) = delete;

  // Opens `path` by its content. False, with the reason in openFailure, when it could not be read;
  // the document must then be discarded.
  bool OnOpenDocument(const std::string& path);

  DocumentHost& host() { return host_; }
  CChannel& channel() { return channels[0]; }
  const CChannel& channel() const { return channels[0]; }

  // The samples of channel 0, from its memory block or from the disk store.
  const SampleSource& Samples() const;
  // Gives channel 0 its samples, dropping an earlier block and store.
  void HoldInMemory(SampleBlock block);
  void HoldOnDisk(std::unique_ptr<SampleStore> store);
  // The same where they stand in the recording's file; nothing can change them then.
  void HoldInFile(std::unique_ptr<SampleSource> samples);
  // The same for a recording that belongs in memory: until it is taken there (sample_loader.h)
  // nothing but RemoveSamples can change them.
  void HoldInPieces(std::unique_ptr<SampleSource> whole);
  bool samplesInPieces() const { return pieces_ != nullptr; }
  // Takes the samples [first, end) out of channel 0, whose samples are not on disk.
  void RemoveSamples(std::int64_t first, std::int64_t end);
  bool samplesOnDisk() const { return store_ != nullptr || fileSamples_ != nullptr; }
  SampleStore* store() { return store_.get(); }  // null but while the samples are in one

  const std::string& title() const { return title_; }
  // What windows show: the title or, of a channel read out of several, "speech.wav::Channel2".
  const std::string& shownName() const {
    return extractedChannel && pathIsForeign ? channelSuffixedName : title_;
  }
  const std::string& pathName() const { return pathName_; }
  // The title becomes the file name of `path`.
  void SetPathName(const std::string& path);
  bool isModified() const { return modified_; }
  // Tells the observers when it changes.
  void SetModified(bool modified);
  // The same for one who tells them kTitle together with other changes: true when it has to.
  bool MarkModified();
  // Kept until the document is unmodified: saved, or given up by the user. Then it is deleted, and
  // so it is when another one comes.
  void KeepUntilSaved(std::unique_ptr<UnsavedFile> file);

  // Where the samples can be read again, as they were before what is told as edits since.
  const SampleOrigin& origin() const { return origin_; }
  void SetOrigin(SampleOrigin origin);
  // Null: nobody follows.
  void FollowSamples(SampleEditListener* listener) { sampleListener_ = listener; }
  void TellSampleEdit(const SampleEdit& edit);

  // Observers are told in the order in which they came; each must go before it ends.
  void Attach(DocumentObserver& observer);
  void Detach(DocumentObserver& observer);
  // Tells all but `by`.
  void Notify(DocumentChanges changes, const DocumentObserver* by = nullptr);

 private:
  std::unique_ptr<DocumentSettings> ownSettings_;
  std::unique_ptr<LocalSettings> ownLocal_;

 public:
  std::array<CChannel, kChannelSlots> channels;
  std::int32_t channelCount = 1;
  bool loaded = false;
  OpenFailure openFailure;
  std::string formatName;  // of the file that was read: "WAV"
  std::string codingName;  // of its samples: "Signed 16 bit PCM"; empty: not said
  int fileChannels = 1;    // of which one was read:
  int fileChannel = 1;     // this, counted from 1
  std::optional<int>
      wantedChannel;  // of a file of several, counted from 1; none: the user is asked
  bool newRecording = false;
  bool foreignSource = false;
  bool pathIsForeign = false;  // a foreign reader read pathName(): never saved over
  bool hasSelection = false;
  std::int32_t memoryLimitMinutes = 5;
  std::string channelSuffixedName;  // "speech.wav::Channel2"
  bool extractedChannel = false;    // channelSuffixedName is set
  double savedRateHz = 0.0;         // as read from the file
  double savedLength = 0.0;         // samples
  double savedDurationMs = 0.0;
  GenericParameters genericRead;  // preset before each generic read
  // Behind a reference, as most of the program does not depend on every setting.
  DocumentSettings& settings;
  LocalSettings& localSettings;  // which of them stay out of the configuration file
  bool rateHintsClosed = false;  // the user wants none beside this recording
  WindowLinks windowLinks;
  LabelImportOptions labelImport;  // the next import begins with them
  LabelFileOptions labelFiles;
  bool writesConfiguration = true;  // false once the configuration was reverted while it was open

 private:
  void HoldNothing();

  DocumentHost& host_;
  std::unique_ptr<SampleStore> store_;
  std::unique_ptr<SampleSource> fileSamples_;
  std::unique_ptr<SamplePieces> pieces_;
  std::unique_ptr<SampleSource> memorySource_;
  std::string title_ = "Untitled";
  std::string pathName_;
  bool modified_ = false;
  std::unique_ptr<UnsavedFile> unsavedFile_;
  std::vector<DocumentObserver*> observers_;
  SampleOrigin origin_;
  SampleEditListener* sampleListener_ = nullptr;
};

}  // namespace cantorix
