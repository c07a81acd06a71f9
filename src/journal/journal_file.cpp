// journal_file.cpp - records into bytes and back.
#include "journal/journal_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <utility>

#include "journal/crc32.h"
#include "platform/claimed_file.h"
#include "platform/file_error.h"
#include "platform/leftovers.h"

namespace cantorix {
namespace {

constexpr std::string_view kMagic = "CXWORK\r\n";
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kHeadBytes = 12;        // of the file
constexpr std::size_t kRecordHeadBytes = 12;  // length, kind, checksum
constexpr std::size_t kChecksumAt = 8;
// Little enough to be written in a tick; an edit writes what is more itself.
constexpr std::size_t kBufferBytes = std::size_t{1} << 17U;

constexpr double kSyncEveryMs = 900.0;

constexpr std::string_view kSuffix = ".journal";

File MakeFile(const JournalPlace& place, std::string_view prefix) {
  const std::string start = place.folder() + std::string(prefix) + place.stamp() + "-";
  int number = 0;
  const auto nextPath = [&] { return start + std::to_string(++number) + std::string(kSuffix); };
  return ClaimFile(nextPath, Leftover::kKept);
}

std::uint32_t Checksum(std::span<const std::byte> head, std::span<const std::byte> content) {
  return Crc32(content, Crc32(head.first(kChecksumAt)));
}

}  // namespace

JournalWriter::JournalWriter(const JournalPlace& place, std::string_view prefix)
    : file_(MakeFile(place, prefix)) {
  PayloadWriter head;
  head.PutBytes(std::as_bytes(std::span(kMagic)));
  head.Put(kVersion);
  buffer_.assign(head.bytes().begin(), head.bytes().end());
}

JournalWriter::JournalWriter(File file, std::int64_t bytes)
    : file_(std::move(file)), written_(bytes), committed_(bytes) {
  file_.Resize(bytes);
}

void JournalWriter::Append(RecordKind kind, std::span<const std::byte> content) {
  std::array<std::byte, kRecordHeadBytes> head{};
  StoreLittle(head, 0, static_cast<std::uint32_t>(content.size()));
  StoreLittle(head, 4, static_cast<std::uint32_t>(kind));
  StoreLittle(head, kChecksumAt, Checksum(head, content));
  buffer_.insert(buffer_.end(), head.begin(), head.end());
  buffer_.insert(buffer_.end(), content.begin(), content.end());
  if (buffer_.size() > kBufferBytes) WriteOut();
}

void JournalWriter::Commit(std::uint32_t changes, const std::string& stamp) {
  PayloadWriter content;
  content.Put(changes);
  content.PutText(stamp);
  Append(RecordKind::kCommit, content.bytes());
  WriteOut();
  committed_ = written_;
}

void JournalWriter::WriteOut() {
  try {
    file_.Write(written_, buffer_);
  } catch (const FileError&) {
    file_.Resize(committed_);
    throw;
  }
  written_ += std::ssize(buffer_);
  buffer_.clear();
}

void JournalWriter::Sync() { file_.Sync(); }

void JournalWriter::SyncNowAndThen(double nowMs) {
  if (syncedAtMs_ && nowMs - *syncedAtMs_ < kSyncEveryMs) return;
  if (sync_.synced() == committed_) return;
  sync_.Begin(file_, committed_);
  syncedAtMs_ = nowMs;
}

void JournalWriter::Delete() noexcept {
  sync_.LetGo();
  DeleteClaimed(file_);
  file_ = File();
}

JournalReader::JournalReader(const File& file) : file_(file), size_(file.Size()) {
  std::array<std::byte, kHeadBytes> head{};
  if (file.ReadSome(0, head) < kHeadBytes) return;
  const auto magic = std::as_bytes(std::span(kMagic));
  isJournal_ = std::equal(magic.begin(), magic.end(), head.begin()) &&
               LoadLittle<std::uint32_t>(head, kMagic.size()) == kVersion;
  position_ = kHeadBytes;
}

std::optional<JournalRecord> JournalReader::Next() {
  std::array<std::byte, kRecordHeadBytes> head{};
  if (file_.ReadSome(position_, head) < kRecordHeadBytes) return std::nullopt;
  const auto bytes = LoadLittle<std::uint32_t>(head, 0);
  JournalRecord record;
  record.contentAt = position_ + static_cast<std::int64_t>(kRecordHeadBytes);
  if (bytes > kMaxRecordBytes || bytes > size_ - record.contentAt) return std::nullopt;
  record.content.resize(bytes);
  if (file_.ReadSome(record.contentAt, record.content) < bytes) return std::nullopt;
  if (Checksum(head, record.content) != LoadLittle<std::uint32_t>(head, kChecksumAt)) {
    return std::nullopt;
  }
  record.kind = static_cast<RecordKind>(LoadLittle<std::uint32_t>(head, 4));
  position_ = record.contentAt + std::int64_t{bytes};
  return record;
}

namespace {

std::optional<Committed> FindCommits(const File& file, std::int64_t upTo) {
  JournalReader reader(file);
  if (!reader.isJournal()) return std::nullopt;
  Committed last;
  while (const auto record = reader.Next()) {
    if (reader.position() > upTo) break;
    if (record->kind != RecordKind::kCommit) continue;
    try {
      PayloadReader in(record->content);
      last.changes += in.Take<std::uint32_t>();
      last.stamp = in.TakeText();
    } catch (const BadRecord&) {
      break;
    }
    last.bytes = reader.position();
  }
  if (last.bytes == 0) return std::nullopt;
  return last;
}

// Where a record cannot be true; nothing when all are taken.
std::optional<std::int64_t> TakeAll(const File& file, std::int64_t upTo,
                                    const std::function<void(const JournalRecord&)>& take) {
  JournalReader reader(file);
  while (reader.position() < upTo) {
    const std::int64_t at = reader.position();
    const auto record = reader.Next();
    if (!record) return at;
    try {
      if (record->kind != RecordKind::kCommit) take(*record);
    } catch (const BadRecord&) {
      return at;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<Committed> ReadCommitted(const File& file, const std::function<void()>& begin,
                                       const std::function<void(const JournalRecord&)>& take) {
  auto upTo = std::optional(std::numeric_limits<std::int64_t>::max());
  std::optional<Committed> committed;
  while (upTo) {
    committed = FindCommits(file, *upTo);
    if (!committed) return std::nullopt;
    begin();
    upTo = TakeAll(file, committed->bytes, take);
  }
  return committed;
}

std::vector<File> OpenLeftJournals(const std::string& folder, std::string_view prefix) {
  std::vector<std::string> paths;
  for (const std::string& name : NamesInFolder(folder)) {
    if (!name.starts_with(prefix) || !name.ends_with(kSuffix)) continue;
    paths.push_back(folder + name);
  }
  std::sort(paths.begin(), paths.end());
  std::vector<File> files;
  for (const std::string& path : paths) {
    try {
      File file = File::OpenTemporary(path);
      const bool isEmpty = file.Size() == 0 || JournalReader(file).isJournal();
      if (FindCommits(file, std::numeric_limits<std::int64_t>::max())) {
        files.push_back(std::move(file));
      } else if (isEmpty) {
        DeleteClaimed(file);
      }
    } catch (const FileError&) {
      continue;  // its program is alive, or it is not ours to read
    }
  }
  return files;
}

}  // namespace cantorix
