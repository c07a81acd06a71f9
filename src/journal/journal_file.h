// journal_file.h - the file of a journal: work that is not saved yet, as it happens, for the case
// that the program does not come to its end. It stands in the temporary folder as
// "Work-<date>-<time>-N.journal", or "Log-..." for the measurement log, for this user alone and
// locked while somebody writes it, so that one that can be locked has lost its program.
//
// Layout, all numbers little-endian: the magic "CXWORK\r\n" and the version as u32, then records,
// each of: u32 bytes of its content, u32 kind, u32 CRC-32 of these two and the content, content.
// The records of one commit count only together with the commit record behind them: what stands
// behind the last whole one was cut off in the middle and is ignored.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "journal/background_sync.h"
#include "journal/payload.h"
#include "platform/file.h"

namespace cantorix {

// The numbers are those in the files.
enum class RecordKind : std::uint32_t {
  kCommit = 1,
  kDocument = 2,  // the first record of a document's journal
  kFields = 3,
  kTier = 4,
  kLabels = 5,
  kSettings = 6,
  kSamples = 7,  // to be inserted by the next edit
  kEdit = 8,
  kLog = 9,  // the first record of the log's journal
  kCaptions = 10,
  kRows = 11,
};

// No record is longer.
inline constexpr std::size_t kMaxRecordBytes = std::size_t{1} << 26U;

// The local date and time, "20261121-143005".
using Stamp = std::function<std::string()>;

// What the names of journals begin with.
inline constexpr std::string_view kDocumentJournals = "Work-";
inline constexpr std::string_view kLogJournals = "Log-";

struct JournalPlace {
  std::function<std::string()> folder;  // with a separator at its end
  Stamp stamp;
};

class JournalWriter {
 public:
  // A new file. Throws FileError.
  JournalWriter(const JournalPlace& place, std::string_view prefix);
  // Goes on behind the first `bytes` bytes of a journal; what stands there is cut off.
  JournalWriter(File file, std::int64_t bytes);

  const File& file() const { return file_; }

  // Each throws FileError when the file cannot be written; it ends with the last commit then.
  void Append(RecordKind kind, std::span<const std::byte> content);
  // What was appended since the last one counts from now on: so many changes of the user's.
  void Commit(std::uint32_t changes, const std::string& stamp);
  // Whether something was appended since.
  bool hasUncommitted() const { return written_ + std::ssize(buffer_) != committed_; }
  // Through to the disk, and waits for it. Throws FileError.
  void Sync();
  // Once a second at most lets what was committed go through to the disk, without waiting for it.
  // `nowMs` of a clock that goes on. Throws FileError when the time before failed, too.
  void SyncNowAndThen(double nowMs);

  void Delete() noexcept;

 private:
  void WriteOut();

  File file_;
  std::vector<std::byte> buffer_;  // not written yet
  std::int64_t written_ = 0;       // bytes of the file, as are these:
  std::int64_t committed_ = 0;
  BackgroundSync sync_;
  std::optional<double> syncedAtMs_;
};

struct JournalRecord {
  RecordKind kind = RecordKind::kCommit;
  std::int64_t contentAt = 0;  // byte of the file
  std::vector<std::byte> content;
};

class JournalReader {
 public:
  // Reads behind the magic. `file` outlives the reader.
  explicit JournalReader(const File& file);
  // False for a file of another kind or version.
  bool isJournal() const { return isJournal_; }
  // The next record; nothing at the end and where a record is cut off or damaged. Throws FileError
  // when the file cannot be read.
  std::optional<JournalRecord> Next();
  std::int64_t position() const { return position_; }

 private:
  const File& file_;
  std::int64_t size_ = 0;
  std::int64_t position_ = 0;
  bool isJournal_ = false;
};

// What the last commit of a journal says.
struct Committed {
  std::uint32_t changes = 0;  // in all commits
  std::string stamp;          // of the last one
  std::int64_t bytes = 0;     // of the file, up to its end
};

// Gives every committed record but the commits themselves to `take`, after `begin`; when `take`
// throws BadRecord, begins anew and gives those of the commits before it. Nothing when the file is
// no journal or nothing was committed. Throws FileError when it cannot be read.
std::optional<Committed> ReadCommitted(const File& file, const std::function<void()>& begin,
                                       const std::function<void(const JournalRecord&)>& take);

// The journals in `folder`, which ends with a separator, of that prefix that nobody writes, opened
// and locked, by their names, which means the oldest first. Those in which nothing was committed
// are deleted; those of another version stay untouched. A folder that cannot be read has none.
std::vector<File> OpenLeftJournals(const std::string& folder, std::string_view prefix);

}  // namespace cantorix
