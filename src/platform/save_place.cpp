// save_place.cpp - links, locks, sibling and rights of a file about to be replaced.
#include "platform/save_place.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <vector>

#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr int kMaxLinks = 40;    // as many as the system itself follows
constexpr int kMaxRetries = 50;  // of a name that changes hands between opening and locking
constexpr const char* kSiblingPrefix = ".cantorix-save-";
constexpr const char* kHexDigits = "0123456789abcdef";
constexpr const char* kAccessList = "system.posix_acl_access";

[[noreturn]] void ThrowInUse() { throw FileError("Another program is using it."); }

Descriptor OpenFolder(const std::string& path) {
  Descriptor folder = OpenAt(AT_FDCWD, path, O_RDONLY | O_DIRECTORY);
  // A folder that may be entered but not listed.
  if (!folder.isOpen() && errno == EACCES) folder = OpenAt(AT_FDCWD, path, O_PATH | O_DIRECTORY);
  if (!folder.isOpen()) ThrowErrno();
  return folder;
}

std::string ReadLink(const std::string& path) {
  std::string text(PATH_MAX, '\0');
  const ssize_t length = ::readlink(path.c_str(), text.data(), text.size());
  if (length < 0) ThrowErrno();
  text.resize(static_cast<std::size_t>(length));
  return text;
}

// The folder part of `path` with its separator; empty for a bare name.
std::string FolderPart(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

// The path behind the last name's symbolic links.
std::string FollowLinks(std::string path) {
  for (int links = 0; links <= kMaxLinks; ++links) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
      if (errno == ENOENT) return path;
      ThrowErrno();
    }
    if (!S_ISLNK(status.st_mode)) {
      RequireRegular(status.st_mode);
      return path;
    }
    const std::string link = ReadLink(path);
    path = link.starts_with('/') ? link : FolderPart(path).append(link);
  }
  throw FileError(SystemReason(ELOOP));
}

// Removes the sibling that a killed program left. False, with errno set, when the folder does not
// allow that. Throws when a living program is writing it.
bool RemoveStale(const SavePlace& place, const std::string& siblingName) {
  const int folder = place.folder.number();
  const Descriptor stale = OpenAt(folder, siblingName, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
  if (stale.isOpen()) {
    LockExclusively(stale.number());
    if (!NamesFile(folder, siblingName, stale.number())) return true;
  }
  return ::unlinkat(folder, siblingName.c_str(), 0) == 0 || errno == ENOENT;
}

void CopyAccessList(int from, int to) {
  std::vector<char> list(XATTR_SIZE_MAX);
  const ssize_t size = ::fgetxattr(from, kAccessList, list.data(), list.size());
  if (size > 0) {
    ::fsetxattr(to, kAccessList, list.data(), static_cast<std::size_t>(size), 0);
  } else {
    ::fremovexattr(to, kAccessList);  // one that the folder handed down
  }
}

}  // namespace

SavePlace FindSavePlace(const std::string& path) {
  const std::string target = FollowLinks(path);
  const std::string folder = FolderPart(target);
  SavePlace place{OpenFolder(folder.empty() ? "." : folder), target.substr(folder.size())};
  if (place.name.empty()) throw FileError(SystemReason(path.empty() ? ENOENT : EISDIR));
  return place;
}

Descriptor LockTarget(const SavePlace& place) {
  for (int tries = 0; tries < kMaxRetries; ++tries) {
    Descriptor target =
        OpenAt(place.folder.number(), place.name, O_WRONLY | O_NONBLOCK | O_NOFOLLOW);
    if (!target.isOpen()) {
      if (errno == ENOENT) return target;
      ThrowErrno();
    }
    RequireRegularFile(target.number());
    LockExclusively(target.number());
    // Another save may have replaced it between the opening and the lock.
    if (NamesFile(place.folder.number(), place.name, target.number())) return target;
  }
  ThrowInUse();
}

std::string SiblingName(const std::string& targetName) {
  // FNV-1a: a short name also for a target whose own name is as long as names can be.
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char c : targetName) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  std::string name = kSiblingPrefix;
  for (int shift = 60; shift >= 0; shift -= 4) name += kHexDigits[hash >> shift & 15U];
  return name;
}

bool IsSiblingName(std::string_view name) {
  constexpr std::size_t kPrefixBytes = std::char_traits<char>::length(kSiblingPrefix);
  return name.size() == kPrefixBytes + 16 && name.starts_with(kSiblingPrefix) &&
         name.find_first_not_of(kHexDigits, kPrefixBytes) == std::string_view::npos;
}

Descriptor CreateSibling(const SavePlace& place, const std::string& siblingName, unsigned mode) {
  const int folder = place.folder.number();
  for (int tries = 0; tries < kMaxRetries; ++tries) {
    Descriptor sibling = OpenAt(folder, siblingName, O_RDWR | O_CREAT | O_EXCL, mode);
    if (sibling.isOpen()) {
      LockExclusively(sibling.number());
      // Before the lock was taken, another save may have cleared it away as a stale one.
      if (NamesFile(folder, siblingName, sibling.number())) return sibling;
    } else if (errno != EEXIST || !RemoveStale(place, siblingName)) {
      return sibling;
    }
  }
  ThrowInUse();
}

void CopyOwnershipAndMode(int from, int to) {
  struct stat status {};
  if (::fstat(from, &status) != 0) ThrowErrno();
  mode_t mode = status.st_mode & 07777U;
  const bool keptOwner = ::fchown(to, status.st_uid, status.st_gid) == 0;
  const bool keptGroup = keptOwner || ::fchown(to, static_cast<uid_t>(-1), status.st_gid) == 0;
  if (!keptOwner) mode &= 0777U;
  if (!keptGroup) mode = (mode & 0707U) | ((mode & 07U) << 3U);
  if (keptGroup) CopyAccessList(from, to);
  if (::fchmod(to, mode) != 0 && errno != EPERM && errno != ENOTSUP) ThrowErrno();
}

}  // namespace cantorix
