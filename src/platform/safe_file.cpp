// safe_file.cpp - the order of a replacement: lock, gather, sync, swap, sync the folder.
#include "platform/safe_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>
#include <vector>

#include "platform/abandon.h"
#include "platform/file_error.h"
#include "platform/save_place.h"

namespace cantorix {
namespace {

constexpr std::size_t kBufferBytes = std::size_t{1} << 20U;
constexpr std::int64_t kMostAwaited = std::int64_t{1} << 23U;
constexpr std::int64_t kMostHeldBack = std::int64_t{1} << 23U;

// A file without a name, for content that cannot be gathered beside its target.
Descriptor CreateUnnamed() {
  std::string path = std::filesystem::temp_directory_path().string() + "/cantorix-save-XXXXXX";
  Descriptor file(::mkostemp(path.data(), O_CLOEXEC));
  if (!file.isOpen()) ThrowErrno();
  ::unlink(path.c_str());
  return file;
}

// Some file systems report a full disk or quota only when a descriptor is closed, so a second one
// is closed while the first keeps the lock.
void SyncContent(int descriptor) {
  while (::fsync(descriptor) != 0 && errno != EINVAL) {
    if (errno != EINTR) ThrowErrno();
  }
  const int second = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (second < 0 || (::close(second) != 0 && errno != EINTR)) ThrowErrno();
}

// The file has its name already, so a failure is no failure of the save.
Durability SyncFolder(int folder, int file) {
  int failed;
  do {
    failed = ::fsync(folder);
  } while (failed != 0 && errno == EINTR);
  if (failed == 0) return Durability::kOnDisk;
  // The descriptor of a folder that cannot be listed does not sync; its file system does.
  if (errno == EBADF && ::syncfs(file) == 0) return Durability::kOnDisk;
  const bool cannotSync = errno == EINVAL || errno == ENOTSUP;
  return cannotSync ? Durability::kOnDisk : Durability::kPerhapsNotYet;
}

// Writes the first `size` bytes of `from` over `target`. What can fail for want of space is tried
// first, in a way that leaves the old bytes and the old length.
void WriteOver(int target, int from, std::int64_t size) {
  const std::int64_t oldSize = FileSize(target);
  if (size > oldSize && ::fallocate(target, FALLOC_FL_KEEP_SIZE, oldSize, size - oldSize) != 0 &&
      errno != EOPNOTSUPP && errno != ENOSYS) {
    const FileError failure(SystemReason(errno));
    // Gives back what was reserved; the length stays as it is.
    if (::ftruncate(target, oldSize) != 0) ThrowErrno();
    throw failure;
  }
  std::vector<std::byte> block(kBufferBytes);
  for (std::int64_t done = 0; done < size;) {
    const std::size_t got = ReadAt(from, done, block);
    if (got == 0) throw FileError("The temporary file was cut by another program.");
    WriteAt(target, done, std::span(block).first(got));
    done += static_cast<std::int64_t>(got);
  }
  if (::ftruncate(target, size) != 0) ThrowErrno();
  SyncContent(target);
}

// rename that refuses to replace. Where the file system has no such call, the name is looked up
// right before.
bool RenameToFreeName(int folder, const std::string& from, const std::string& to) {
  if (::renameat2(folder, from.c_str(), folder, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  if (::faccessat(folder, to.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
    errno = EEXIST;
    return false;
  }
  return ::renameat(folder, from.c_str(), folder, to.c_str()) == 0;
}

bool IsRefusal(int errorNumber) { return errorNumber == EACCES || errorNumber == EPERM; }

}  // namespace

struct SafeFile::State {
  explicit State(const std::string& path);
  ~State();

  void Append(std::span<const std::byte> bytes);
  void Flush();
  // Gives the gathered file the target's name.
  Durability ReplaceTarget();
  Durability TakeFreeName();
  void WriteOut(std::span<const std::byte> bytes);
  void WriteFrom(const FileStretch& stretch, std::int64_t count);
  // Does `write` of so many bytes, unless an earlier one has failed, and keeps why it fails.
  template <typename WriteAll>
  void Guarded(const WriteAll& write, std::int64_t count);
  void RequireOwnSibling() const;

  SavePlace place;
  Descriptor target;        // locked; not open when there was no file
  std::string siblingName;  // empty once the sibling is gone or when there never was one
  Descriptor gathered;      // the sibling, or a file without a name
  std::vector<std::byte> buffer;
  FileStretch source{};      // behind the buffer comes what this file has here,
  std::int64_t awaited = 0;  // so many bytes
  std::int64_t flushed = 0;
  std::int64_t sent = 0;  // of them, on their way to the disk
  std::string failure;    // of the first write that failed
};

SafeFile::State::State(const std::string& path)
    : place(FindSavePlace(path)), target(LockTarget(place)), siblingName(SiblingName(place.name)) {
  buffer.reserve(kBufferBytes);
  // The new content of a private file stays private while it is gathered. Behind the sibling
  // nothing may fail: it would stay.
  gathered = CreateSibling(place, siblingName, target.isOpen() ? 0600 : 0666);
  if (gathered.isOpen()) return;
  const int refusal = errno;
  siblingName.clear();
  errno = refusal;
  if (!target.isOpen() || !IsRefusal(refusal)) ThrowErrno();
  gathered = CreateUnnamed();
}

SafeFile::State::~State() {
  if (siblingName.empty()) return;
  const int folder = place.folder.number();
  // Only the own sibling is removed, while its lock is still held.
  if (NamesFile(folder, siblingName, gathered.number())) {
    ::unlinkat(folder, siblingName.c_str(), 0);
  }
}

void SafeFile::State::Append(std::span<const std::byte> bytes) {
  if (awaited > 0 || buffer.size() + bytes.size() > kBufferBytes) Flush();
  if (bytes.size() < kBufferBytes) {
    buffer.insert(buffer.end(), bytes.begin(), bytes.end());
  } else {
    WriteOut(bytes);
  }
}

void SafeFile::State::Flush() {
  WriteOut(buffer);
  buffer.clear();
  const std::int64_t count = std::exchange(awaited, 0);
  if (count == 0) return;
  Guarded(
      [&] {
        CopyBytes(source.file->descriptor(), source.offset, gathered.number(), flushed, count);
      },
      count);
}

template <typename WriteAll>
void SafeFile::State::Guarded(const WriteAll& write, std::int64_t count) {
  if (!failure.empty()) throw FileError(failure);
  try {
    write();
  } catch (const FileError& error) {
    failure = error.what();
    throw;
  }
  flushed += count;
  // The disk works while the rest is gathered, so that little is left to wait for in the end.
  if (flushed - sent < kMostHeldBack) return;
  SendToDisk(gathered.number(), sent, flushed - sent);
  sent = flushed;
}

void SafeFile::State::WriteOut(std::span<const std::byte> bytes) {
  Guarded([&] { WriteAt(gathered.number(), flushed, bytes); }, std::ssize(bytes));
}

// Stretches that follow one another are copied together: each by itself takes half as long again.
void SafeFile::State::WriteFrom(const FileStretch& stretch, std::int64_t count) {
  const bool goesOn =
      awaited > 0 && stretch.file == source.file && stretch.offset == source.offset + awaited;
  if (!goesOn) {
    Flush();
    source = stretch;
  }
  awaited += count;
  if (awaited >= kMostAwaited) Flush();
}

// A folder may refuse to let a name change hands although it took a new file, as a sticky one does
// for the file of another user, or a target may be mounted by itself: then it is written over.
Durability SafeFile::State::ReplaceTarget() {
  const int folder = place.folder.number();
  CopyOwnershipAndMode(target.number(), gathered.number());
  SyncContent(gathered.number());
  RequireOwnSibling();
  if (::renameat(folder, siblingName.c_str(), folder, place.name.c_str()) != 0) {
    if (!IsRefusal(errno) && errno != EBUSY) ThrowErrno();
    WriteOver(target.number(), gathered.number(), flushed);
    return Durability::kOnDisk;
  }
  siblingName.clear();
  return SyncFolder(folder, gathered.number());
}

Durability SafeFile::State::TakeFreeName() {
  const int folder = place.folder.number();
  SyncContent(gathered.number());
  RequireOwnSibling();
  if (!RenameToFreeName(folder, siblingName, place.name)) {
    if (errno == EEXIST) throw FileError("Another program has made a file of this name.");
    ThrowErrno();
  }
  siblingName.clear();
  return SyncFolder(folder, gathered.number());
}

// Where locks do not work, another save may have taken the sibling for a stale one.
void SafeFile::State::RequireOwnSibling() const {
  if (!NamesFile(place.folder.number(), siblingName, gathered.number())) {
    throw FileError("Another program is using it.");
  }
}

SafeFile::SafeFile(const std::string& path) : state_(std::make_unique<State>(path)) {}

SafeFile::~SafeFile() = default;

void SafeFile::Write(std::span<const std::byte> bytes) { state_->Append(bytes); }

void SafeFile::WriteFrom(const FileStretch& stretch, std::int64_t count) {
  state_->WriteFrom(stretch, count);
}

std::int64_t SafeFile::written() const {
  return state_->flushed + std::ssize(state_->buffer) + state_->awaited;
}

Durability SafeFile::Commit() {
  state_->Flush();
  if (!state_->target.isOpen()) return state_->TakeFreeName();
  if (!state_->siblingName.empty()) return state_->ReplaceTarget();
  WriteOver(state_->target.number(), state_->gathered.number(), state_->flushed);
  return Durability::kOnDisk;
}

void SafeFile::KeepIfNew() {
  if (state_->target.isOpen()) return;
  state_->Flush();
  state_->TakeFreeName();
}

Durability ReplaceFile(const std::string& path, std::span<const std::byte> bytes) {
  SafeFile file(path);
  file.Write(bytes);
  return file.Commit();
}

Durability ReplaceFile(const std::string& path, const std::function<void(const ByteSink&)>& write) {
  SafeFile file(path);
  try {
    write(ByteSink([&file](std::span<const std::byte> bytes) { file.Write(bytes); },
                   [&file](const FileStretch& stretch, std::int64_t count) {
                     file.WriteFrom(stretch, count);
                   }));
  } catch (const Abandoned& abandoned) {
    if (abandoned.reason() == AbandonReason::kCancelled) file.KeepIfNew();
    throw;
  }
  return file.Commit();
}

}  // namespace cantorix
