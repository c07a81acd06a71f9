// open_documents.cpp - a path that is open already is not opened twice.
#include "desktop/open_documents.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "app/application.h"
#include "document/sample_bytes.h"
#include "platform/abandon.h"
#include "platform/apart.h"
#include "platform/file_error.h"
#include "platform/host_services.h"
#include "platform/prompts.h"

namespace cantorix {

CSonadexDoc& OpenDocuments::New() { return Keep(NewEntry()); }

CSonadexDoc* OpenDocuments::Open(const std::string& path) {
  try {
    return FindOrOpen(path);
  } catch (const Abandoned&) {
    return nullptr;
  }
}

CSonadexDoc* OpenDocuments::FindOrOpen(const std::string& path) {
  CSonadexDoc* const open = Find(path);
  // Of a file of several channels another one may be wanted.
  if (open != nullptr && !open->extractedChannel) return open;
  auto entry = NewEntry();
  if (!entry->document.OnOpenDocument(path)) {
    Report(path, entry->document.openFailure);
    return nullptr;
  }
  application_.recentFiles.Add(path);
  const std::string& name = entry->document.shownName();
  if (CSonadexDoc* const same = Find(path, &name)) return same;
  return &Keep(std::move(entry));
}

std::unique_ptr<OpenDocuments::Entry> OpenDocuments::NewEntry() {
  return std::make_unique<Entry>(application_.host, PlaceOfJournals(application_));
}

CSonadexDoc* OpenDocuments::Restore(LeftWork left) {
  auto entry = NewEntry();
  if (!RestoreWork(application_, std::move(left), entry->document, entry->journal)) {
    entry->document.SetModified(false);
    return nullptr;
  }
  return &Keep(std::move(entry));
}

std::optional<std::string> OpenDocuments::TickJournals(double nowMs) {
  std::optional<std::string> told;
  for (const auto& entry : entries_) {
    if (auto text = entry->journal.Tick(nowMs)) told = std::move(text);
  }
  return told;
}

bool OpenDocuments::areJournalsBehind() const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [](const auto& entry) { return entry->journal.isBehind(); });
}

CSonadexDoc& OpenDocuments::Keep(std::unique_ptr<Entry> entry) {
  entries_.push_back(std::move(entry));
  return entries_.back()->document;
}

void OpenDocuments::Close(CSonadexDoc& document) {
  std::erase_if(entries_, [&](const auto& open) { return &open->document == &document; });
  ReturnFreedMemory();
}

std::vector<CSonadexDoc*> OpenDocuments::All() const {
  std::vector<CSonadexDoc*> all;
  for (const auto& entry : entries_) all.push_back(&entry->document);
  return all;
}

DocumentWaveform& OpenDocuments::WaveformOf(const CSonadexDoc& document) {
  for (const auto& entry : entries_) {
    if (&entry->document == &document) return entry->waveform;
  }
  throw std::logic_error("a document that is not open");
}

CSonadexDoc* OpenDocuments::Find(const std::string& path, const std::string* shownName) const {
  for (CSonadexDoc* const document : All()) {
    if (!document->pathName().empty() &&
        (shownName == nullptr || document->shownName() == *shownName) &&
        AreSame(document->pathName(), path)) {
      return document;
    }
  }
  return nullptr;
}

// One of them may lie on a network folder that is gone.
bool OpenDocuments::AreSame(const std::string& one, const std::string& other) const {
  const auto same = std::make_shared<bool>();
  DoApart({application_.host.progress, kFileStatusText}, [same, one, other] {
    std::error_code missing;
    *same = std::filesystem::equivalent(one, other, missing);
  });
  return *same;
}

void OpenDocuments::Report(const std::string& path, const OpenFailure& failure) {
  if (failure.cancelled) return;
  std::error_code unreadable;
  if (!std::filesystem::exists(path, unreadable)) application_.recentFiles.Remove(path);
  if (failure.shown) return;
  application_.prompts().Message(CouldNotBeOpened(path, failure.reason));
}

}  // namespace cantorix
