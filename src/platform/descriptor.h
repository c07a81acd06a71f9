// descriptor.h - an owned file descriptor and the few system calls on one that need care: retried
// after a signal, complete, and failing with a FileError that gives the system's reason.
// Shared by file.cpp and safe_file.cpp; nothing outside this folder works with descriptors.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

namespace cantorix {

class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }
  int Release() { return std::exchange(number_, -1); }

 private:
  int number_;
};

// Throws the FileError of the current errno.
[[noreturn]] void ThrowErrno();

// openat with O_CLOEXEC; not open, with errno set, when it fails. `folder` may be AT_FDCWD.
Descriptor OpenAt(int folder, const std::string& name, int flags, unsigned mode = 0);

// Only regular files: a folder, a device or a pipe is no recording and may block for ever.
void RequireRegular(unsigned mode);
void RequireRegularFile(int descriptor);

// What an attempt to lock, which never waits, came to.
enum class Lock {
  kTaken,
  kHeld,     // by somebody else
  kUnknown,  // the file system has no locks
};
Lock TryExclusiveLock(int descriptor);

// Both throw "Another program is using it." when the lock is held; file systems without locks count
// as success. A shared lock is refused only beside an exclusive one.
void LockExclusively(int descriptor);
void LockShared(int descriptor);

// Whether `name` in `folder` is, at this moment, the open file itself.
bool NamesFile(int folder, const std::string& name, int descriptor);

std::int64_t FileSize(int descriptor);

// Up to out.size() bytes from `offset`; fewer only at the end of the file.
std::size_t ReadAt(int descriptor, std::int64_t offset, std::span<std::byte> out);
// All of `out`; throws FileError when the file ends before.
void ReadAllAt(int descriptor, std::int64_t offset, std::span<std::byte> out);
// All of `bytes` at `offset`.
void WriteAt(int descriptor, std::int64_t offset, std::span<const std::byte> bytes);

// Lets the system begin to put these bytes of the file on its disk. Waits for nothing and promises
// nothing: what goes wrong is told by the next fsync.
void SendToDisk(int descriptor, std::int64_t offset, std::int64_t count);

// Copies `count` bytes from one file to another, within the system where it can and that pays.
// Throws FileError, also when the first file ends too early.
void CopyBytes(int from, std::int64_t fromOffset, int to, std::int64_t toOffset,
               std::int64_t count);

}  // namespace cantorix
