// journalled_work.h - the journal of a document, read: where it came from and what was done to it.
#pragma once

#include <optional>

#include "journal/recorded_state.h"
#include "journal/sample_payload.h"

namespace cantorix {

struct DocumentHeader {
  std::string title;
  std::string path;  // of the document; empty for one that was never saved
  SampleOrigin origin;
  FileState originState;
  std::int64_t originSamples = 0;
  std::uint32_t fingerprint = 0;
  bool onDisk = false;  // too long for memory
  bool loaded = false;  // the document held a recording
  int channel = 0;      // of a file of several, counted from 1; else 0
  std::string stamp;    // of its first change
};

void AppendHeader(JournalWriter& writer, const DocumentHeader& header);

struct JournalledWork {
  DocumentHeader header;
  RecordedState state;
  std::vector<RecordedEdit> edits;
  Committed committed;
};

// Nothing when the file is no journal of a document or nothing was committed. Throws FileError when
// it cannot be read.
std::optional<JournalledWork> ReadWork(const File& file);

}  // namespace cantorix
