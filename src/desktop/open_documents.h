// open_documents.h - the documents that are open, in the order in which they came.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/recovery.h"
#include "document/document.h"
#include "journal/document_journal.h"
#include "mainview/document_waveform.h"

namespace cantorix {

class Application;

class OpenDocuments {
 public:
  explicit OpenDocuments(Application& application) : application_(application) {}

  CSonadexDoc& New();
  // The document of `path`; the one that has it open already, if any. Of a file of several channels
  // each channel is a document of its own. Null when it could not be opened, which the user has
  // been told unless they cancelled it.
  CSonadexDoc* Open(const std::string& path);
  // Ends a document. Its views must be gone.
  void Close(CSonadexDoc& document);

  // A document with the work that was left; null when nothing could be restored.
  CSonadexDoc* Restore(LeftWork left);
  // Lets the journals write what was done. Gives what the user has to be told, or nothing.
  std::optional<std::string> TickJournals(double nowMs);
  // Whether they should soon be let to write again.
  bool areJournalsBehind() const;

  std::vector<CSonadexDoc*> All() const;
  // The picture of an open document's samples, shared by its windows.
  DocumentWaveform& WaveformOf(const CSonadexDoc& document);

 private:
  // The first one of `path` and, unless null, of that name; null without any.
  CSonadexDoc* Find(const std::string& path, const std::string* shownName = nullptr) const;
  bool AreSame(const std::string& one, const std::string& other) const;
  // Throws Abandoned when the user has cancelled a wait for the system.
  CSonadexDoc* FindOrOpen(const std::string& path);
  void Report(const std::string& path, const OpenFailure& failure);

  struct Entry {
    Entry(DocumentHost& host, JournalPlace place)
        : document(host), waveform(document), journal(document, std::move(place)) {}

    CSonadexDoc document;
    DocumentWaveform waveform;  // goes before its document, and so does this:
    DocumentJournal journal;
  };
  std::unique_ptr<Entry> NewEntry();
  CSonadexDoc& Keep(std::unique_ptr<Entry> entry);

  Application& application_;
  std::vector<std::unique_ptr<Entry>> entries_;
};

}  // namespace cantorix
