// open_documents.cpp
#include "desktop/open_documents.h"

#include <algorithm>
#include <filesystem>

#include "app/application.h"
#include "platform/file_error.h"
#include "platform/prompts.h"

namespace cantorix {

CSonadexDoc& OpenDocuments::New() {
  documents_.push_back(std::make_unique<CSonadexDoc>(application_.host));
  return *documents_.back();
}

CSonadexDoc* OpenDocuments::Open(const std::string& path) {
  if (CSonadexDoc* const open = Find(path)) return open;
  auto document = std::make_unique<CSonadexDoc>(application_.host);
  if (!document->OnOpenDocument(path)) {
    Report(path, document->openFailure);
    return nullptr;
  }
  application_.recentFiles.Add(path);
  documents_.push_back(std::move(document));
  return documents_.back().get();
}

void OpenDocuments::Close(CSonadexDoc& document) {
  std::erase_if(documents_, [&](const auto& open) { return open.get() == &document; });
}

std::vector<CSonadexDoc*> OpenDocuments::All() const {
  std::vector<CSonadexDoc*> all;
  for (const auto& document : documents_) all.push_back(document.get());
  return all;
}

CSonadexDoc* OpenDocuments::Find(const std::string& path) const {
  for (const auto& document : documents_) {
    std::error_code missing;
    if (!document->pathName().empty() &&
        std::filesystem::equivalent(document->pathName(), path, missing)) {
      return document.get();
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
