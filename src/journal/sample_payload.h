// sample_payload.h - edits of samples in a journal, and what tells that the samples they begin with
// are still the same.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "document/sample_edit.h"
#include "journal/journal_file.h"
#include "platform/sample_source.h"

namespace cantorix {

// Samples in a journal: `count` of them from byte `at` on.
struct SampleChunk {
  std::int64_t at = 0;
  std::int64_t count = 0;
};

struct RecordedEdit {
  SampleEdit edit;  // without `inserted`
  std::vector<SampleChunk> inserted;

  std::int64_t insertedCount() const;
};

// Inserted samples go before the edit, from `inserted`.
void AppendEdit(JournalWriter& writer, const SampleEdit& edit, const SampleSource& inserted);
// Takes a kSamples or kEdit record behind `edits`; samples wait in `chunks` for their edit. Throws
// BadRecord.
void TakeRecord(const JournalRecord& record, std::vector<RecordedEdit>& edits,
                std::vector<SampleChunk>& chunks);

// The edits that are left when each undo has taken its edit back. Nothing when an undo has no undo
// point.
std::optional<std::vector<RecordedEdit>> WithoutUndone(const std::vector<RecordedEdit>& edits);
// How many samples a recording of `count` has after them; nothing when one of them cannot be made
// again.
std::optional<std::int64_t> LengthAfter(const std::vector<RecordedEdit>& edits, std::int64_t count);

// Size and time of a file, all 0 when there is none.
struct FileState {
  std::int64_t bytes = 0;
  std::int64_t changedAt = 0;  // in the file system's own count

  bool operator==(const FileState&) const = default;
};
FileState StateOf(const std::string& path);

// Tells samples apart by their number and 64 stretches of them. Throws FileError.
std::uint32_t Fingerprint(const SampleSource& samples);

}  // namespace cantorix
