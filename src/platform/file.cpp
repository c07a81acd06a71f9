// file.cpp - POSIX files with advisory locks.
#include "platform/file.h"

#include <fcntl.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <utility>

#include "platform/descriptor.h"
#include "platform/file_error.h"
#include "platform/file_systems.h"
#include "platform/remote_file.h"

namespace cantorix {
namespace {

Descriptor OpenRegular(const std::string& path, int flags) {
  Descriptor descriptor = OpenAt(AT_FDCWD, path, flags | O_NONBLOCK, 0666);
  if (!descriptor.isOpen()) ThrowErrno();
  RequireRegularFile(descriptor.number());
  return descriptor;
}

}  // namespace

// The path first: for want of memory the descriptor is closed by its owner.
File::File(Descriptor descriptor, std::string path)
    : path_(std::move(path)), descriptor_(descriptor.Release()) {}

File File::OpenForReading(const std::string& path) {
  Descriptor descriptor = OpenRegular(path, O_RDONLY);
  LockShared(descriptor.number());
  return File(std::move(descriptor), path);
}

File File::OpenForReading(const std::string& path, const Patience& patience) {
  struct Opened {
    Descriptor descriptor;
    bool mayKeepWaiting = false;
  };
  const auto opened = std::make_shared<Opened>();
  const auto open = [opened, path] {
    opened->descriptor = OpenRegular(path, O_RDONLY);
    LockShared(opened->descriptor.number());
    opened->mayKeepWaiting = MayKeepWaiting(opened->descriptor.number());
  };
  if (patience.forOpens) {
    DoApart(patience, open);
  } else {
    open();
  }
  if (!opened->mayKeepWaiting) return File(std::move(opened->descriptor), path);
  File file;
  file.path_ = path;
  file.remote_ = std::make_unique<const RemoteFile>(
      std::make_shared<const Descriptor>(std::move(opened->descriptor)), patience);
  file.descriptor_ = file.remote_->number();
  return file;
}

File File::OpenUnlocked(const std::string& path) { return File(OpenRegular(path, O_RDONLY), path); }

File File::OpenForUpdate(const std::string& path) {
  Descriptor descriptor = OpenRegular(path, O_RDWR | O_CREAT);
  LockExclusively(descriptor.number());
  return File(std::move(descriptor), path);
}

File File::CreateTemporary(const std::string& path) {
  std::string name = path;  // once the file is there nothing may fail: it would stay
  Descriptor descriptor = OpenAt(AT_FDCWD, path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
  if (!descriptor.isOpen()) ThrowErrno();
  LockExclusively(descriptor.number());
  return File(std::move(descriptor), std::move(name));
}

File File::OpenTemporary(const std::string& path) {
  Descriptor descriptor = OpenAt(AT_FDCWD, path, O_RDWR | O_NOFOLLOW | O_NONBLOCK);
  if (!descriptor.isOpen()) ThrowErrno();
  RequireRegularFile(descriptor.number());
  LockExclusively(descriptor.number());
  return File(std::move(descriptor), path);
}

File File::Create(const std::string& path) {
  File file = OpenForUpdate(path);
  file.Resize(0);
  return file;
}

File::File() = default;

File::~File() {
  if (descriptor_ >= 0 && !remote_) ::close(descriptor_);
}

File::File(File&& other) noexcept
    : path_(std::move(other.path_)),
      descriptor_(std::exchange(other.descriptor_, -1)),
      remote_(std::move(other.remote_)) {}

File& File::operator=(File&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(path_, other.path_);
  std::swap(remote_, other.remote_);
  return *this;
}

std::int64_t File::Size() const { return remote_ ? remote_->Size() : FileSize(descriptor_); }

std::size_t File::ReadSome(std::int64_t offset, std::span<std::byte> out) const {
  return remote_ ? remote_->ReadSome(offset, out) : ReadAt(descriptor_, offset, out);
}

void File::ReadExactly(std::int64_t offset, std::span<std::byte> out) const {
  if (remote_) return remote_->ReadAll(offset, out);
  ReadAllAt(descriptor_, offset, out);
}

void File::Write(std::int64_t offset, std::span<const std::byte> bytes) {
  WriteAt(descriptor_, offset, bytes);
}

void File::WriteFrom(const FileStretch& stretch, std::int64_t offset, std::int64_t count) {
  CopyBytes(stretch.file->descriptor_, stretch.offset, descriptor_, offset, count);
}

void File::Resize(std::int64_t bytes) {
  while (::ftruncate(descriptor_, bytes) != 0) {
    if (errno != EINTR) ThrowErrno();
  }
}

void File::Sync() {
  while (::fdatasync(descriptor_) != 0) {
    if (errno == EINVAL || errno == ENOSYS) return;
    if (errno != EINTR) ThrowErrno();
  }
}

File File::Duplicate() const {
  Descriptor second(::fcntl(descriptor_, F_DUPFD_CLOEXEC, 0));
  if (!second.isOpen()) ThrowErrno();
  return File(std::move(second), path_);
}

void File::Close() {
  if (std::exchange(remote_, nullptr)) descriptor_ = -1;
  if (descriptor_ < 0) return;
  // Some file systems report a failed write only here.
  if (::close(std::exchange(descriptor_, -1)) != 0 && errno != EINTR) ThrowErrno();
}

std::string ReadWholeFile(const std::string& path) {
  return ReadWholeFile(File::OpenForReading(path));
}

std::string ReadWholeFile(const File& file) {
  std::string bytes(static_cast<std::size_t>(file.Size()), '\0');
  file.ReadExactly(0, std::as_writable_bytes(std::span(bytes)));
  return bytes;
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
