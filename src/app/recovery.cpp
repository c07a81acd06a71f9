// recovery.cpp - the question about a journal, and the way from its origin to what was there.
#include "app/recovery.h"

#include <limits>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "app/unsaved_recordings.h"
#include "audio/recording_file.h"
#include "journal/work_restoring.h"
#include "mainview/commands.h"
#include "mainview/recording_placement.h"
#include "platform/abandon.h"
#include "platform/claimed_file.h"
#include "platform/file_error.h"
#include "platform/host_services.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

using OriginKind = SampleOrigin::Kind;

std::string QuestionAbout(const JournalledWork& work) {
  const std::uint32_t changes = work.committed.changes;
  return "The work on ' " + work.header.title + " ' from " + DateOf(work.committed.stamp) +
         " was not saved: " + std::to_string(changes) + (changes == 1 ? " change" : " changes") +
         ".\nWould you like to restore it ?";
}

void DeleteRecordingOf(const JournalledWork& work) {
  if (work.header.origin.kind != OriginKind::kRecording) return;
  try {
    RecordingFile::Reopen(work.header.origin.path)->Remove();
  } catch (const FileError&) {
    // It is gone already, or is none.
  }
}

// Whether the document holds the origin now; else why not.
std::string OpenOrigin(const DocumentHeader& header, CSonadexDoc& document) {
  switch (header.origin.kind) {
    case OriginKind::kNone:
      return {};
    case OriginKind::kRecording:
      try {
        HoldRecording(document, RecordingFile::Reopen(header.origin.path));
        return {};
      } catch (const FileError& error) {
        return CouldNotBeOpened(header.origin.path, error.what());
      }
    case OriginKind::kFile:
      break;
  }
  if (header.channel > 0) document.wantedChannel = header.channel;
  if (document.OnOpenDocument(header.origin.path)) return {};
  return CouldNotBeOpened(header.origin.path, document.openFailure.reason);
}

// As long as it lives, samples go to memory or to the disk store as they did before.
class PlaceAsBefore {
 public:
  PlaceAsBefore(CSonadexDoc& document, bool onDisk)
      : document_(document),
        limitMinutes_(std::exchange(document.memoryLimitMinutes,
                                    onDisk ? 0 : std::numeric_limits<std::int32_t>::max())) {}
  ~PlaceAsBefore() { document_.memoryLimitMinutes = limitMinutes_; }
  PlaceAsBefore(const PlaceAsBefore&) = delete;
  PlaceAsBefore& operator=(const PlaceAsBefore&) = delete;

 private:
  CSonadexDoc& document_;
  std::int32_t limitMinutes_;
};

void NameDocument(const DocumentHeader& header, CSonadexDoc& document) {
  if (!header.path.empty()) {
    // The file of that name is not what is restored.
    document.pathIsForeign = true;
    document.SetPathName(header.path);
  }
  document.SetModified(true);
}

// Without the samples: on those of the file as it is now, or over silence.
bool RestoreWithoutSamples(const JournalledWork& work, const std::string& obstacle,
                           CSonadexDoc& document, DocumentJournal& journal, Prompts& prompts) {
  std::int64_t count = 0;
  double rateHz = 0.0;
  const bool fits =
      document.loaded && !ChangesSamples(work) && HasPossibleFields(work.state, count, rateHz) &&
      count == document.Samples().length() && rateHz == document.channel().sampleRateHz;
  if (fits) {
    RestoreLabels(work, document);
    journal.BeginAnew();
    prompts.Message(obstacle + "\nThe labels are restored, on the samples that it has now.");
    return true;
  }
  if (!RestoreOverSilence(work, document)) {
    prompts.Message(obstacle + "\nNothing could be restored.");
    return false;
  }
  journal.BeginWithSamples();
  prompts.Message(obstacle + "\nThe labels are restored, over silence.");
  return true;
}

bool Restore(LeftWork& left, CSonadexDoc& document, DocumentJournal& journal, Prompts& prompts) {
  const PlaceAsBefore place(document, left.work.header.onDisk);
  std::string obstacle = OpenOrigin(left.work.header, document);
  if (document.openFailure.cancelled) return false;
  if (obstacle.empty()) obstacle = ObstacleTo(left.work, document);
  if (obstacle.empty()) {
    Redo(left.work, left.journal, document);
    NameDocument(left.work.header, document);
    journal.GoOn(std::move(left.journal), left.work.committed.bytes);
  } else {
    if (!RestoreWithoutSamples(left.work, obstacle, document, journal, prompts)) return false;
    // In the journal of its own stands everything that could be restored.
    NameDocument(left.work.header, document);
    if (journal.WriteAll()) DeleteClaimed(left.journal);
  }
  return true;
}

}  // namespace

JournalPlace PlaceOfJournals(const Application& application) {
  return {[&application] { return application.temporaryDirectory; }, LocalTimeStamp};
}

OfferedWork OfferLeftWork(Application& application) {
  OfferedWork offered;
  for (File& file : OpenLeftJournals(application.temporaryDirectory, kDocumentJournals)) {
    std::optional<JournalledWork> work;
    try {
      work = ReadWork(file);
    } catch (const FileError& error) {
      application.prompts().Message(CouldNotBeOpened(file.path(), error.what()));
      continue;
    }
    if (!work) continue;
    const Answer answer = application.prompts().Ask(QuestionAbout(*work), Buttons::kYesNoCancel);
    if (answer == Answer::kYes) {
      offered.wanted.push_back({std::move(file), std::move(*work)});
    } else if (answer == Answer::kNo) {
      DeleteRecordingOf(*work);
      DeleteClaimed(file);
    } else if (work->header.origin.kind == OriginKind::kRecording) {
      offered.recordingsForLater.push_back(work->header.origin.path);
    }
  }
  return offered;
}

bool RestoreWork(Application& application, LeftWork left, CSonadexDoc& document,
                 DocumentJournal& journal) {
  try {
    return Restore(left, document, journal, application.prompts());
  } catch (const FileError& error) {
    application.prompts().Message(CouldNotBeOpened(left.work.header.title, error.what()));
  } catch (const Abandoned& abandoned) {
    if (abandoned.reason() == AbandonReason::kOutOfMemory) SayOutOfMemory(application.prompts());
  } catch (const std::bad_alloc&) {
    SayOutOfMemory(application.prompts());
  }
  return false;
}

}  // namespace cantorix
