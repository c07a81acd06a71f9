// file.cpp - POSIX files with advisory locks.
#include "platform/file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <utility>

#include "platform/file_error.h"

namespace cantorix {
namespace {

[[noreturn]] void ThrowErrno() { throw FileError(SystemReason(errno)); }

int OpenDescriptor(const std::string& path, int flags) {
  int descriptor;
  do {
    descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) ThrowErrno();
  return descriptor;
}

// Only regular files: a folder, a device or a pipe is no recording and may block for ever.
void RequireRegular(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) ThrowErrno();
  if (S_ISDIR(status.st_mode)) throw FileError(SystemReason(EISDIR));
  if (!S_ISREG(status.st_mode)) throw FileError("It is not a regular file.");
}

void Lock(int descriptor) {
  if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) return;
  if (errno == EWOULDBLOCK) throw FileError("Another program is using it.");
}

}  // namespace

File File::OpenForReading(const std::string& path) {
  File file(OpenDescriptor(path, O_RDONLY | O_NONBLOCK), path);
  RequireRegular(file.descriptor_);
  Lock(file.descriptor_);
  return file;
}

File File::OpenForUpdate(const std::string& path) {
  File file(OpenDescriptor(path, O_RDWR | O_CREAT | O_NONBLOCK), path);
  RequireRegular(file.descriptor_);
  Lock(file.descriptor_);
  return file;
}

File File::Create(const std::string& path) {
  File file = OpenForUpdate(path);
  if (::ftruncate(file.descriptor_, 0) != 0) ThrowErrno();
  return file;
}

File::~File() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

File::File(File&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}

File& File::operator=(File&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(path_, other.path_);
  return *this;
}

std::int64_t File::Size() const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) ThrowErrno();
  return status.st_size;
}

std::size_t File::ReadSome(std::int64_t offset, std::span<std::byte> out) const {
  std::size_t done = 0;
  while (done < out.size()) {
    const ssize_t got = ::pread(descriptor_, out.data() + done, out.size() - done,
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

void File::ReadExactly(std::int64_t offset, std::span<std::byte> out) const {
  const std::size_t got = ReadSome(offset, out);
  if (got < out.size()) {
    throw FileError("The file ends at byte " +
                    std::to_string(offset + static_cast<std::int64_t>(got)) + ", too early.");
  }
}

void File::Write(std::int64_t offset, std::span<const std::byte> bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t put = ::pwrite(descriptor_, bytes.data() + done, bytes.size() - done,
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

void File::Close() {
  if (descriptor_ < 0) return;
  // Some file systems report a failed write only here.
  if (::close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) ThrowErrno();
}

void SwapFromLittle(std::span<std::int16_t> samples) {
  if constexpr (std::endian::native == std::endian::big) {
    for (auto& sample : samples) {
      const auto raw = static_cast<std::uint16_t>(sample);
      sample = static_cast<std::int16_t>(static_cast<std::uint16_t>(raw << 8 | raw >> 8));
    }
  }
}

}  // namespace cantorix
