// verb_convert.cpp - saving under another name or in another format; the ending of it chooses.
#include <optional>

#include "batch/verbs.h"
#include "document/native_file.h"
#include "document/wav_file.h"
#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

Durability Save(Session& session, const std::string& path) {
  CSonadexDoc& document = session.document();
  const CChannel& channel = document.channel();
  const Request& request = session.request();
  const bool whole = !request.fromMs && !request.toMs;
  if (path.ends_with(".wav")) {
    return ExportWave(document, path, whole ? std::nullopt : std::optional(session.Range()));
  }
  const NativeRange range{channel.PointAtTime(request.fromMs.value_or(0.0)),
                          channel.PointAtTime(request.toMs.value_or(channel.totalDurationMs))};
  return SaveNative(document, path, whole ? std::nullopt : std::optional(range));
}

}  // namespace

bool Convert(Session& session) {
  const std::string& path = session.request().output;
  try {
    if (Save(session, path) == Durability::kPerhapsNotYet) {
      session.prompts().Say(SavedButPerhapsNotOnDisk(path));
    }
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
