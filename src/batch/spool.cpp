// spool.cpp - memory first, then the file.
#include "batch/spool.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

constexpr std::size_t kMostMemory = std::size_t{4} << 20U;

void RequireDone(bool done) {
  if (!done) throw FileError(SystemReason(errno != 0 ? errno : EIO));
}

void WriteToFile(std::FILE* file, std::span<const std::byte> bytes) {
  if (bytes.empty()) return;  // nothing may have no address
  errno = 0;
  RequireDone(std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
}

}  // namespace

void Spool::RequireRoom(std::int64_t bytes) {
  std::error_code unknown;
  const auto room = std::filesystem::space(P_tmpdir, unknown);
  if (unknown || static_cast<std::uintmax_t>(bytes) <= room.available / 2) return;
  throw FileError(SystemReason(ENOSPC));
}

void Spool::Append(std::span<const std::byte> bytes) {
  if (!file_ && memory_.size() + bytes.size() <= kMostMemory) {
    memory_.insert(memory_.end(), bytes.begin(), bytes.end());
  } else {
    if (!file_) {
      file_.reset(std::tmpfile());
      RequireDone(file_ != nullptr);
      WriteToFile(file_.get(), memory_);
      memory_ = {};
    }
    WriteToFile(file_.get(), bytes);
  }
  size_ += std::ssize(bytes);
}

void Spool::Read(std::int64_t offset, std::span<std::byte> bytes) {
  if (!file_) {
    std::copy_n(memory_.begin() + offset, bytes.size(), bytes.begin());
    return;
  }
  errno = 0;
  // Also hides no piece that found no room.
  RequireDone(::fseeko(file_.get(), offset, SEEK_SET) == 0);
  RequireDone(std::fread(bytes.data(), 1, bytes.size(), file_.get()) == bytes.size());
}

}  // namespace cantorix::batch
