// corpus_file.cpp - opened, labelled, measured, closed.
#include "measure/corpus_file.h"

#include <exception>
#include <filesystem>
#include <limits>
#include <new>

#include "measure/kept_prompts.h"
#include "measure/labels.h"
#include "measure/printable.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "platform/host_services.h"

namespace cantorix {
namespace {

std::string OpenReason(CSonadexDoc& document, const std::string& path, KeptPrompts& prompts) {
  if (prompts.refusal()) return prompts.refusal()->what();
  const std::string said = prompts.TakeSaid();
  return said.empty() ? CouldNotBeOpened(path, document.openFailure.reason) : said;
}

// Throws what makes the recording fail.
std::vector<std::string> RowsOf(const CorpusEntry& entry, const CorpusWork& work,
                                const CorpusOpening& opening, CSonadexDoc& document,
                                KeptPrompts& prompts) {
  document.settings = opening.settings.document;
  if (!document.OnOpenDocument(entry.path)) {
    throw FileError(OpenReason(document, entry.path, prompts));
  }
  if (!work.labelEnding.empty()) {
    const auto labels = std::filesystem::path(entry.path).replace_extension(work.labelEnding);
    AddLabelsOf(labels.string(), "", {}, document);
  }
  return CorpusRows(document, work, entry.leading, [](const std::string&) {});
}

}  // namespace

CorpusResult MeasureCorpusFile(const CorpusEntry& entry, const CorpusWork& work,
                               const CorpusOpening& opening, Progress& progress) {
  KeptPrompts prompts;
  prompts.channel = opening.channel;
  prompts.generic = opening.generic;
  const HostMemoryProbe memory;
  DocumentHost host{.prompts = prompts,
                    .progress = progress,
                    .memory = memory,
                    .programDirectory = opening.programDirectory,
                    .application = opening.settings.application,
                    .channelEntries = std::numeric_limits<int>::max(),
                    .documentsWriteConfiguration = false,
                    .samplesStayInFile = true,
                    .workers = opening.workers};
  CSonadexDoc document(host);
  CorpusResult result;
  try {
    result.rows = RowsOf(entry, work, opening, document, prompts);
    return result;
  } catch (const Abandoned& abandoned) {
    if (abandoned.reason() == AbandonReason::kOutOfMemory) throw std::bad_alloc();
    result.failure = prompts.TakeSaid();
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    result.failure = error.what();
  }
  // What fails after an interrupt fails because of it.
  if (progress.Cancelled()) throw Abandoned(AbandonReason::kCancelled);
  result.failure = Printable(result.failure);
  return result;
}

}  // namespace cantorix
