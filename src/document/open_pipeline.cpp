// open_pipeline.cpp - the order of an open.
#include "document/open_pipeline.h"

#include <new>

#include "document/document.h"
#include "document/sample_bytes.h"
#include "platform/abandon.h"
#include "platform/apart.h"
#include "platform/file.h"
#include "platform/file_error.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr const char* kGenericQuestion =
    "The requested file was not of any proper types recognized by the application."
    "Would you like to read it as a generic type ?";

enum class Verdict { kDeclined, kRead, kFailed };

Verdict Try(const Reader& reader, CSonadexDoc& document, const File& file) {
  const int answer = reader.read(document, file);
  if (reader.kind == ReaderKind::kPlain) {
    return answer == kNotThisFormat ? Verdict::kDeclined : Verdict::kRead;
  }
  if (answer == kRecognisedButFailed) return Verdict::kFailed;
  return answer == kWasRead ? Verdict::kRead : Verdict::kDeclined;
}

// The reader that took the file; null when all declined.
const Reader* FirstThatReads(std::span<const Reader> readers, CSonadexDoc& document,
                             const File& file) {
  for (const Reader& reader : readers) {
    const Verdict verdict = Try(reader, document, file);
    if (verdict == Verdict::kFailed) throw Abandoned(AbandonReason::kFailed);
    if (verdict == Verdict::kRead) return &reader;
  }
  return nullptr;
}

const Reader* FindReader(const ReaderTable& table, CSonadexDoc& document, const File& file) {
  const Reader* reader = FirstThatReads(table.byContent, document, file);
  if (reader != nullptr) return reader;
  if (document.host().prompts.Ask(kGenericQuestion, Buttons::kOkCancel) != Answer::kOk) {
    document.openFailure.cancelled = true;
    return nullptr;
  }
  document.genericRead = GenericParameters{};
  return FirstThatReads(table.generic, document, file);
}

void Adopt(CSonadexDoc& document, const std::string& path, const Reader& reader) {
  const CChannel& channel = document.channel();
  document.host().currentRateHz = channel.sampleRateHz;
  document.savedRateHz = channel.sampleRateHz;
  document.savedLength = channel.totalLength;
  document.savedDurationMs = channel.totalDurationMs;
  if (document.formatName.empty()) document.formatName = reader.name;
  document.newRecording = false;
  document.pathIsForeign = document.foreignSource;
  document.loaded = true;
  document.SetPathName(path);
  document.SetModified(false);
  document.SetOrigin({SampleOrigin::Kind::kFile, path});
}

OpenFailure FailureOf(const Abandoned& abandoned) {
  switch (abandoned.reason()) {
    case AbandonReason::kCancelled:
      return {"The reading was cancelled.", false, true};
    case AbandonReason::kOutOfMemory:
      return {"There is not enough memory.", false, false};
    case AbandonReason::kFailed:
      break;
  }
  return {"It was recognised but could not be read.", true, false};
}

OpenFailure Report(CSonadexDoc& document, const std::string& path, const std::exception& error) {
  document.host().prompts.Message(CouldNotBeOpened(path, error.what()));
  return {error.what(), true, false};
}

// Also when there is no memory for the words: fifteen characters need none.
void NoteNoMemory(OpenFailure& failure) noexcept {
  try {
    failure = FailureOf(Abandoned(AbandonReason::kOutOfMemory));
  } catch (const std::bad_alloc&) {
    failure.reason = "No memory left.";
  }
}

bool TryToOpen(CSonadexDoc& document, const std::string& path, const ReaderTable& table) {
  try {
    const DocumentHost& host = document.host();
    const File file = File::OpenForReading(path, {host.progress, kFileStatusText, host.opensApart});
    const Reader* reader = FindReader(table, document, file);
    if (reader != nullptr) {
      Adopt(document, path, *reader);
      return true;
    }
    document.openFailure.reason = "Its format is not known.";
  } catch (const Abandoned& abandoned) {
    document.openFailure = FailureOf(abandoned);
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    // A FileError, or a fault of a reader: either way the other documents stay alive.
    document.openFailure = Report(document, path, error);
  }
  return false;
}

}  // namespace

bool OpenRecording(CSonadexDoc& document, const std::string& path, const ReaderTable& table) {
  document.openFailure = {};
  document.formatName.clear();
  document.codingName.clear();
  document.fileChannels = document.fileChannel = 1;
  document.loaded = document.foreignSource = document.extractedChannel = false;
  try {
    if (TryToOpen(document, path, table)) return true;
  } catch (const std::bad_alloc&) {
    NoteNoMemory(document.openFailure);
  }
  document.loaded = false;
  return false;
}

}  // namespace cantorix
