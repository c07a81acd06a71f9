// descriptor.cpp - system calls on descriptors, complete or failing with their reason.
#include "platform/descriptor.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

#include "platform/file_error.h"
#include "platform/file_systems.h"

namespace cantorix {
namespace {

// What is read is still in the processor's cache when it is written.
constexpr std::int64_t kCopyBlock = std::int64_t{1} << 19;  // bytes
constexpr std::int64_t kPage = 4096;                        // bytes

Lock TryLock(int descriptor, int kind) {
  if (::flock(descriptor, kind | LOCK_NB) == 0) return Lock::kTaken;
  return errno == EWOULDBLOCK ? Lock::kHeld : Lock::kUnknown;
}

void RequireLock(Lock lock) {
  if (lock == Lock::kHeld) throw FileError("Another program is using it.");
}

// The system copies page by page, and where the pages of the two files begin at other bytes it
// writes each in two parts: that takes half as long again as reading and writing. A server that
// copies by itself spares the way there and back in any case.
bool PaysWithin(int from, std::int64_t fromOffset, std::int64_t toOffset) {
  return (fromOffset - toOffset) % kPage == 0 || MayKeepWaiting(from);
}

// How many bytes the system copies by itself: fewer at the end of the file, or where it cannot do
// it between these two.
std::int64_t CopyWithin(int from, std::int64_t fromOffset, int to, std::int64_t toOffset,
                        std::int64_t count) {
  std::int64_t done = 0;
  while (done < count) {
    off_t in = fromOffset + done;
    off_t out = toOffset + done;
    const ssize_t put =
        ::copy_file_range(from, &in, to, &out, static_cast<std::size_t>(count - done), 0);
    if (put > 0) {
      done += put;
    } else if (put == 0 || errno == EXDEV || errno == EINVAL || errno == ENOSYS ||
               errno == EOPNOTSUPP || errno == EBADF || errno == ETXTBSY) {
      return done;  // reading and writing will do, or say what is wrong
    } else if (errno != EINTR) {
      ThrowErrno();
    }
  }
  return done;
}

}  // namespace

Descriptor::~Descriptor() {
  if (number_ >= 0) ::close(number_);
}

void ThrowErrno() { throw FileError(SystemReason(errno)); }

Descriptor OpenAt(int folder, const std::string& name, int flags, unsigned mode) {
  int number;
  do {
    number = ::openat(folder, name.c_str(), flags | O_CLOEXEC, mode);
  } while (number < 0 && errno == EINTR);
  return Descriptor(number);
}

void RequireRegular(unsigned mode) {
  if (S_ISDIR(mode)) throw FileError(SystemReason(EISDIR));
  if (!S_ISREG(mode)) throw FileError("It is not a regular file.");
}

void RequireRegularFile(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) ThrowErrno();
  RequireRegular(status.st_mode);
}

Lock TryExclusiveLock(int descriptor) { return TryLock(descriptor, LOCK_EX); }

void LockExclusively(int descriptor) { RequireLock(TryExclusiveLock(descriptor)); }

void LockShared(int descriptor) { RequireLock(TryLock(descriptor, LOCK_SH)); }

bool NamesFile(int folder, const std::string& name, int descriptor) {
  struct stat named {};
  struct stat opened {};
  if (::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) != 0) return false;
  if (::fstat(descriptor, &opened) != 0) return false;
  return named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

std::int64_t FileSize(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) ThrowErrno();
  return status.st_size;
}

std::size_t ReadAt(int descriptor, std::int64_t offset, std::span<std::byte> out) {
  std::size_t done = 0;
  while (done < out.size()) {
    const ssize_t got = ::pread(descriptor, out.data() + done, out.size() - done,
                                offset + static_cast<std::int64_t>(done));
    if (got == 0) break;
    if (got > 0) {
      done += static_cast<std::size_t>(got);
    } else if (errno != EINTR) {
      ThrowErrno();
    }
  }
  return done;
}

void ReadAllAt(int descriptor, std::int64_t offset, std::span<std::byte> out) {
  const std::size_t got = ReadAt(descriptor, offset, out);
  if (got == out.size()) return;
  throw FileError("The file ends at byte " +
                  std::to_string(offset + static_cast<std::int64_t>(got)) + ", too early.");
}

void WriteAt(int descriptor, std::int64_t offset, std::span<const std::byte> bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t put = ::pwrite(descriptor, bytes.data() + done, bytes.size() - done,
                                 offset + static_cast<std::int64_t>(done));
    if (put > 0) {
      done += static_cast<std::size_t>(put);
    } else if (put == 0) {
      throw FileError(SystemReason(ENOSPC));
    } else if (errno != EINTR) {
      ThrowErrno();
    }
  }
}

void SendToDisk(int descriptor, std::int64_t offset, std::int64_t count) {
  ::sync_file_range(descriptor, offset, count, SYNC_FILE_RANGE_WRITE);
}

void CopyBytes(int from, std::int64_t fromOffset, int to, std::int64_t toOffset,
               std::int64_t count) {
  const std::int64_t within = PaysWithin(from, fromOffset, toOffset)
                                  ? CopyWithin(from, fromOffset, to, toOffset, count)
                                  : 0;
  std::vector<std::byte> block(static_cast<std::size_t>(std::min(count - within, kCopyBlock)));
  for (std::int64_t done = within; done < count;) {
    const auto wanted = static_cast<std::size_t>(std::min(count - done, kCopyBlock));
    const auto bytes = std::span(block).first(wanted);
    ReadAllAt(from, fromOffset + done, bytes);
    WriteAt(to, toOffset + done, bytes);
    done += std::ssize(bytes);
  }
}

}  // namespace cantorix
