// leftovers.cpp - recognising what has no owner any more, and deleting it.
#include "platform/leftovers.h"

#include <dirent.h>
#include <fcntl.h>
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/file_error.h"

namespace cantorix {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kOwnPart = 6;  // characters that mkdtemp chooses
constexpr int kMaxRounds = 100;      // of a folder that somebody takes for a leftover

// Whether the file is this user's, of the kind `type`, and its lock is to be had. The lock is kept.
bool IsAbandoned(const Descriptor& file, mode_t type) {
  struct stat status {};
  if (!file.isOpen() || ::fstat(file.number(), &status) != 0) return false;
  return (status.st_mode & S_IFMT) == type && status.st_uid == ::geteuid() &&
         TryExclusiveLock(file.number()) == Lock::kTaken;
}

int RemoveOne(const char* path, const struct stat*, int, FTW*) {
  ::remove(path);
  return 0;
}

// A folder with all it holds, as far as that goes; links are not followed. Takes no memory that
// could end the program.
void RemoveTree(const std::string& path) noexcept {
  constexpr int kOpenFolders = 16;
  ::nftw(path.c_str(), RemoveOne, kOpenFolders, FTW_DEPTH | FTW_PHYS);
}

Descriptor OpenOwnFolder(const std::string& path) {
  return OpenAt(AT_FDCWD, path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
}

void RemoveLeftoverFolders(const fs::path& parent, const std::string& prefix) {
  for (const std::string& name : NamesInFolder(parent)) {
    if (!name.starts_with(prefix) || name.size() != prefix.size() + kOwnPart) continue;
    const std::string path = parent / name;
    const Descriptor folder = OpenOwnFolder(path);
    if (IsAbandoned(folder, S_IFDIR)) RemoveTree(path);
  }
}

}  // namespace

// Read by the C library: the iterator of the C++ one ends the program when memory runs out in it.
std::vector<std::string> NamesInFolder(const std::string& folder) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(folder.c_str()), ::closedir);
  std::vector<std::string> names;
  if (!stream) return names;
  while (const dirent* const entry = ::readdir(stream.get())) names.emplace_back(entry->d_name);
  return names;
}

bool RemoveLeftover(int folder, const std::string& name) {
  const Descriptor file = OpenAt(folder, name, O_RDWR | O_NONBLOCK | O_NOFOLLOW);
  return IsAbandoned(file, S_IFREG) && NamesFile(folder, name, file.number()) &&
         ::unlinkat(folder, name.c_str(), 0) == 0;
}

void RemoveLeftovers(const std::string& folder, bool (*isTemporary)(std::string_view name)) {
  const Descriptor place = OpenAt(AT_FDCWD, folder, O_RDONLY | O_DIRECTORY);
  if (!place.isOpen()) return;
  for (const std::string& name : NamesInFolder(folder)) {
    if (isTemporary(name)) RemoveLeftover(place.number(), name);
  }
}

PrivateFolder::PrivateFolder(const std::string& prefix) {
  const fs::path parent = fs::temp_directory_path();
  RemoveLeftoverFolders(parent, prefix);
  for (int tries = 1;; ++tries) {
    path_ = (parent / prefix).string() + std::string(kOwnPart, 'X');
    if (::mkdtemp(path_.data()) == nullptr) {
      throw FileError(parent.string() + ": " + SystemReason(errno));
    }
    lock_ = OpenOwnFolder(path_);
    // Before the lock was taken, another program may have cleared the folder away as a leftover.
    const bool isOwn = lock_.isOpen() && TryExclusiveLock(lock_.number()) != Lock::kHeld &&
                       NamesFile(AT_FDCWD, path_, lock_.number());
    if (isOwn) return;
    ::rmdir(path_.c_str());  // nobody else would, before the next program looks
    if (tries == kMaxRounds) throw FileError(path_ + ": " + SystemReason(EBUSY));
  }
}

// What stays is found and deleted by the next program that makes such a folder.
PrivateFolder::~PrivateFolder() { RemoveTree(path_); }

bool IsNumberedName(std::string_view text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace cantorix
