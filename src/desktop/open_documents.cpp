// open_documents.cpp
#include "desktop/open_documents.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "app/application.h"
#include "platform/file_error.h"
#include "platform/prompts.h"

namespace cantorix {

CSonadexDoc& OpenDocuments::New() { return Keep(std::make_unique<CSonadexDoc>(application_.host)); }

CSonadexDoc* OpenDocuments::Open(const std::string& path) {
  if (CSonadexDoc* const open = Find(path)) return open;
  auto document = std::make_unique<CSonadexDoc>(application_.host);
  if (!document->OnOpenDocument(path)) {
    Report(path, document->openFailure);
    return nullptr;
  }
  application_.recentFiles.Add(path);
  return &Keep(std::move(document));
}

CSonadexDoc& OpenDocuments::Keep(std::unique_ptr<CSonadexDoc> document) {
  auto waveform = std::make_unique<DocumentWaveform>(*document);
  entries_.push_back({std::move(document), std::move(waveform)});
  return *entries_.back().document;
}

DocumentWaveform& OpenDocuments::WaveformOf(const CSonadexDoc& document) {
  const auto entry = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& open) {
    return open.document.get() == &document;
  });
  if (entry == entries_.end()) throw std::logic_error("a document that is not open");
  return *entry->waveform;
}

void OpenDocuments::Close(CSonadexDoc& document) {
  std::erase_if(entries_, [&](const Entry& open) { return open.document.get() == &document; });
}

std::vector<CSonadexDoc*> OpenDocuments::All() const {
  std::vector<CSonadexDoc*> all;
  for (const Entry& entry : entries_) all.push_back(entry.document.get());
  return all;
}

CSonadexDoc* OpenDocuments::Find(const std::string& path) const {
  for (CSonadexDoc* const document : All()) {
    std::error_code missing;
    if (!document->pathName().empty() &&
        std::filesystem::equivalent(document->pathName(), path, missing)) {
      return document;
    }
  }
  return nullptr;
}

void OpenDocuments::Report(const std::string& path, const OpenFailure& failure) {
  std::error_code unreadable;
  if (!std::filesystem::exists(path, unreadable)) application_.recentFiles.Remove(path);
  if (failure.shown || failure.cancelled) return;
  application_.prompts().Message(CouldNotBeOpened(path, failure.reason));
}

}  // namespace cantorix
