// verb_convert.cpp - saving under another name or in another format; the ending of it chooses.
#include <optional>

#include "batch/option_texts.h"
#include "batch/program_directory.h"
#include "batch/stream_place.h"
#include "batch/verbs.h"
#include "document/native_file.h"
#include "document/wav_file.h"
#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

Durability Save(Session& session, const std::string& path, bool asWave) {
  CSonadexDoc& document = session.document();
  const CChannel& channel = document.channel();
  const Request& request = session.request();
  const bool whole = !request.fromMs && !request.toMs;
  if (asWave) {
    return ExportWave(document, path, whole ? std::nullopt : std::optional(session.Range()));
  }
  const NativeRange range{channel.PointAtTime(request.fromMs.value_or(0.0)),
                          channel.PointAtTime(request.toMs.value_or(channel.totalDurationMs))};
  return SaveNative(document, path, whole ? std::nullopt : std::optional(range));
}

// A stream gets nothing before the whole recording could be written.
void SaveOrSend(Session& session, const std::string& path) {
  const bool asWave = session.request().asWave.value_or(HasEnding(path, ".wav"));
  if (!IsStream(path)) {
    if (Save(session, path, asWave) == Durability::kPerhapsNotYet) {
      session.prompts().Say(SavedButPerhapsNotOnDisk(path));
    }
    return;
  }
  const OutputStream stream(path, session.interrupted());
  const ProgramDirectory folder("");
  const std::string whole = folder.path() + "/recording";
  Save(session, whole, asWave);
  SendFile(whole, stream, session.interrupted());
}

}  // namespace

bool Convert(Session& session) {
  const std::string& path = session.request().output;
  try {
    SaveOrSend(session, path);
  } catch (const SaveRefused& refusal) {
    session.prompts().Say(std::string("Error in save operation. ") + refusal.what());
    return false;
  } catch (const FileError& error) {
    session.prompts().Say(CouldNotBeSaved(path, error.what()));
    return false;
  }
  return true;
}

}  // namespace cantorix::batch
