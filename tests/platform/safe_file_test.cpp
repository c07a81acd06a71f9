// safe_file_test.cpp - whatever happens to a save, the earlier file or the new one is there whole.
#include "platform/safe_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <functional>
#include <thread>

#include "platform/file.h"
#include "platform/file_error.h"
#include "support/child_process.h"
#include "support/folder_sync_failure.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

std::vector<std::byte> Filled(std::size_t size, int value) {
  return std::vector<std::byte>(size, std::byte(value));
}

// The reason with which `action` fails; empty when it does not.
std::string ReasonOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const FileError& error) {
    return error.what();
  }
  return {};
}

struct stat StatusOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
  return status;
}

mode_t ModeOf(const std::string& path) { return StatusOf(path).st_mode & 07777U; }

// Ignores the signal, so that a write past the limit fails with its error.
void LimitFileSize(std::size_t bytes) {
  std::signal(SIGXFSZ, SIG_IGN);
  const struct rlimit limit { bytes, bytes };
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

TEST(SafeFile, KeepsTheOldBytesUntilCommitAndTheirRightsAfterIt) {
  const TemporaryFolder folder;
  const std::string path = folder / "talk";
  WriteBytes(path, Filled(5, 1));
  ::chmod(path.c_str(), 0640);
  const bool root = ::getuid() == 0;
  const auto [user, group] = root ? std::pair(1234U, 1235U) : std::pair(::getuid(), ::getgid());
  ASSERT_EQ(::chown(path.c_str(), user, group), 0);
  std::vector<std::byte> expected;
  {
    SafeFile file(path);
    for (const std::size_t size : {std::size_t{3}, kMegabyte, std::size_t{0}, 2 * kMegabyte + 1}) {
      const auto piece = Filled(size, static_cast<int>(size % 251));
      file.Write(piece);
      expected.insert(expected.end(), piece.begin(), piece.end());
      EXPECT_EQ(file.written(), static_cast<std::int64_t>(expected.size()));
    }
    EXPECT_EQ(ReadBytes(path), Filled(5, 1));
    file.Commit();
  }
  EXPECT_EQ(ReadBytes(path), expected);
  EXPECT_EQ(ModeOf(path), 0640U);
  EXPECT_EQ(StatusOf(path).st_uid, user);
  EXPECT_EQ(StatusOf(path).st_gid, group);
  EXPECT_THAT(folder.Names(), ElementsAre("talk"));
}

TEST(SafeFile, GivesANewFileTheRightsOfTheUmask) {
  const TemporaryFolder folder;
  const mode_t before = ::umask(027);
  ReplaceFile(folder / "new", Filled(3, 7));
  ::umask(before);
  EXPECT_EQ(ModeOf(folder / "new"), 0640U);
  EXPECT_EQ(ReadBytes(folder / "new"), Filled(3, 7));
  EXPECT_THAT(folder.Names(), ElementsAre("new"));
}

TEST(SafeFile, DropsWhatWasNotCommitted) {
  const TemporaryFolder folder;
  WriteBytes(folder / "old", Filled(5, 1));
  for (const char* name : {"old", "new"}) {
    SafeFile file(folder / name);
    file.Write(Filled(3 * kMegabyte, 2));
  }
  EXPECT_EQ(ReadBytes(folder / "old"), Filled(5, 1));
  EXPECT_THAT(folder.Names(), ElementsAre("old"));
}

TEST(SafeFile, KeepsACancelledFileOnlyWhenItIsNew) {
  const TemporaryFolder folder;
  WriteBytes(folder / "old", Filled(5, 1));
  for (const char* name : {"old", "new"}) {
    SafeFile file(folder / name);
    file.Write(Filled(3, 2));
    file.KeepIfNew();
  }
  EXPECT_EQ(ReadBytes(folder / "old"), Filled(5, 1));
  EXPECT_EQ(ReadBytes(folder / "new"), Filled(3, 2));
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("old", "new"));
}

TEST(SafeFile, LeavesNoDescriptorBehind) {
  const TemporaryFolder folder;
  WriteBytes(folder / "held", Filled(5, 1));
  const auto open = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto before = open();
  ReplaceFile(folder / "new", Filled(3, 7));
  ReplaceFile(folder / "new", Filled(4, 7));
  SafeFile(folder / "new").Write(Filled(3, 7));
  {
    const File held = File::OpenForReading(folder / "held");
    EXPECT_NE(ReasonOf([&] { ReplaceFile(folder / "held", Filled(3, 7)); }), "");
  }
  EXPECT_NE(ReasonOf([&] { ReplaceFile(folder.path(), Filled(3, 7)); }), "");
  EXPECT_EQ(open(), before);
}

TEST(SafeFile, ReplacesTheFileThatALinkNames) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "far");
  WriteBytes(folder / "far/talk", Filled(5, 1));
  std::filesystem::create_symlink("far/talk", folder / "relative");
  std::filesystem::create_symlink(folder / "relative", folder / "chain");
  std::filesystem::create_symlink("far/absent", folder / "dangling");
  std::filesystem::create_symlink("loop", folder / "loop");
  int value = 2;
  for (const auto& [link, target] :
       {std::pair("relative", "far/talk"), std::pair("chain", "relative"),
        std::pair("dangling", "far/absent")}) {
    ReplaceFile(folder / link, Filled(9, ++value));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / link)) << link;
    EXPECT_EQ(ReadBytes(folder / target), Filled(9, value)) << link;
  }
  EXPECT_EQ(ReasonOf([&] { SafeFile(folder / "loop"); }), "Too many levels of symbolic links.");
}

TEST(SafeFile, RefusesWhatIsNoFileToReplace) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
  std::filesystem::create_directory_symlink(folder.path(), folder / "link");
  WriteBytes(folder / "file", Filled(1, 1));
  const std::pair<std::string, std::string> rows[] = {
      {folder.path(), "Is a directory."},
      {folder.path() + "/", "Is a directory."},
      {folder / "link", "Is a directory."},
      {folder / "pipe", "It is not a regular file."},
      {"/dev/null", "It is not a regular file."},
      {folder / "absent/talk", "No such file or directory."},
      {folder / "absent/", "No such file or directory."},
      {folder / "file/talk", "Not a directory."},
      {"", "No such file or directory."},
      {folder / std::string(256, 'n'), "File name too long."},
  };
  for (const auto& [path, reason] : rows) {
    EXPECT_EQ(ReasonOf([&, target = path] { SafeFile file(target); }), reason) << path;
  }
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("pipe", "link", "file"));
}

TEST(SafeFile, ReachesAwkwardPlaces) {
  const TemporaryFolder folder;
  const std::string longest(255, 'n');
  for (const std::string& name : {longest, std::string("-n \n\xE9"), std::string("...")}) {
    ReplaceFile(folder / name, Filled(4, 1));
    ReplaceFile(folder / name, Filled(5, 2));
    EXPECT_EQ(ReadBytes(folder / name), Filled(5, 2)) << name;
  }
  // The folder moves and the current folder changes under an open save.
  const std::string before = std::filesystem::current_path();
  std::filesystem::create_directory(folder / "a");
  std::filesystem::current_path(folder / "a");
  SafeFile relative("talk");
  std::filesystem::current_path(before);
  std::filesystem::rename(folder / "a", folder / "b");
  relative.Write(Filled(6, 3));
  relative.Commit();
  EXPECT_EQ(ReadBytes(folder / "b/talk"), Filled(6, 3));
}

TEST(SafeFile, IsRefusedWhileAnotherWriterHoldsTheTarget) {
  const TemporaryFolder folder;
  const std::string kReason = "Another program is using it.";
  WriteBytes(folder / "old", Filled(5, 1));
  {
    const File reader = File::OpenForReading(folder / "old");
    EXPECT_EQ(ReasonOf([&] { SafeFile file(folder / "old"); }), kReason);
  }
  for (const char* name : {"old", "new"}) {
    SafeFile first(folder / name);
    EXPECT_EQ(ReasonOf([&] { SafeFile second(folder / name); }), kReason) << name;
    EXPECT_EQ(ReasonOf([&] { first.Commit(); }), "") << name;
  }
  ReplaceFile(folder / "old", Filled(2, 2));
  EXPECT_EQ(ReadBytes(folder / "old"), Filled(2, 2));
}

TEST(SafeFile, SaysWhenItsFolderCouldNotBeSynced) {
  const TemporaryFolder folder;
  for (const char* name : {"old", "new"}) {
    WriteBytes(folder / "old", Filled(5, 1));
    EXPECT_EQ(ReplaceFile(folder / "old", Filled(6, 2)), Durability::kOnDisk);
    const FolderSyncFailure failure;
    EXPECT_EQ(ReplaceFile(folder / name, Filled(7, 3)), Durability::kPerhapsNotYet) << name;
    EXPECT_EQ(ReadBytes(folder / name), Filled(7, 3)) << name;
  }
}

TEST(SafeFile, SparesAFileThatAppearedUnderItsNewName) {
  const TemporaryFolder folder;
  SafeFile file(folder / "new");
  WriteBytes(folder / "new", Filled(5, 1));
  EXPECT_NE(ReasonOf([&] { file.Commit(); }), "");
  EXPECT_EQ(ReadBytes(folder / "new"), Filled(5, 1));
}

TEST(SafeFile, LeavesTheOldFileWholeWhenTheDiskRunsFull) {
  const TemporaryFolder folder;
  WriteBytes(folder / "old", Filled(1000, 1));
  // Fails in Write, in the flush of Commit, and for a new file.
  for (const auto& [name, size] : {std::pair("old", 3 * kMegabyte), std::pair("old", kMegabyte / 2),
                                   std::pair("new", kMegabyte / 2)}) {
    const int failures = InChild([&, name = name, size = size] {
      LimitFileSize(kMegabyte / 4);
      SafeFile file(folder / name);
      const std::string first = ReasonOf([&] {
        file.Write(Filled(size, 2));
        file.Commit();
      });
      return first == "File too large." && ReasonOf([&] { file.Commit(); }) == first ? 0 : 1;
    });
    EXPECT_EQ(failures, 0) << name << " " << size;
    EXPECT_EQ(ReadBytes(folder / "old"), Filled(1000, 1));
    EXPECT_THAT(folder.Names(), ElementsAre("old"));
  }
}

TEST(SafeFile, LeavesTheOldFileWholeOnASmallFullDisk) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder / "disk");
  const std::string disk = folder / "disk";
  const std::string path = disk + "/old";
  ::chmod(folder.path().c_str(), 0755);
  const int status = InChild([&] {
    if (::unshare(CLONE_NEWNS) != 0) return kChildSkipped;
    ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
    if (::mount("none", disk.c_str(), "tmpfs", 0, "size=3m,mode=755") != 0) return kChildSkipped;
    WriteBytes(path, Filled(kMegabyte, 1));
    ::chmod(path.c_str(), 0666);
    const auto isRefusedWhole = [&] {
      return ReasonOf([&] { ReplaceFile(path, Filled(4 * kMegabyte, 2)); }) ==
                 "No space left on device." &&
             ReadBytes(path) == Filled(kMegabyte, 1);
    };
    if (!isRefusedWhole()) return 1;
    if (std::filesystem::space(disk).available != 2 * kMegabyte) return 2;  // nothing was left
    // In place, where only the reserving can fail.
    if (!BecomeOtherUser() || !isRefusedWhole()) return 3;
    if (std::filesystem::space(disk).available != 2 * kMegabyte) return 4;
    ReplaceFile(path, Filled(3 * kMegabyte, 3));
    return ReadBytes(path) == Filled(3 * kMegabyte, 3) ? 0 : 5;
  });
  if (status == kChildSkipped) GTEST_SKIP() << "no file system can be mounted here";
  EXPECT_EQ(status, 0);
}

// Folders that do not let a name change hands: closed to new files, or sticky and another's.
TEST(SafeFile, WritesInPlaceWhereTheFolderForbidsReplacing) {
  if (::getuid() != 0) GTEST_SKIP() << "needs root to set up a foreign folder";
  for (const mode_t folderMode : {0755U, 01777U}) {
    const TemporaryFolder folder;
    ::chmod(folder.path().c_str(), folderMode);
    const std::string path = folder / "old";
    WriteBytes(path, Filled(3000, 1));
    ::chmod(path.c_str(), 0666);
    const ino_t inode = StatusOf(path).st_ino;
    for (const std::size_t size : {std::size_t{5000}, 2 * kMegabyte, std::size_t{10}}) {
      const int status = InChild([&] {
        if (!BecomeOtherUser()) return 1;
        SafeFile file(path);
        file.Write(Filled(size, 2));
        if (ReadBytes(path) == Filled(size, 2)) return 2;
        file.Commit();
        return 0;
      });
      EXPECT_EQ(status, 0) << std::oct << folderMode << " " << size;
      EXPECT_EQ(ReadBytes(path), Filled(size, 2));
      EXPECT_EQ(StatusOf(path).st_ino, inode);
      EXPECT_EQ(StatusOf(path).st_uid, 0U);
      EXPECT_THAT(folder.Names(), ElementsAre("old"));
      WriteBytes(path, Filled(3000, 1));
    }
  }
}

TEST(SafeFile, RespectsPermissionsThatForbidWriting) {
  if (::getuid() != 0) GTEST_SKIP() << "needs root to set up foreign files";
  const TemporaryFolder folder;
  ::chmod(folder.path().c_str(), 0755);
  std::filesystem::create_directory(folder / "open");
  ::chmod((folder / "open").c_str(), 0777);
  WriteBytes(folder / "open/foreign", Filled(5, 1));
  for (const char* name : {"new", "open/foreign"}) {
    const int status = InChild([&] {
      if (!BecomeOtherUser()) return 1;
      return ReasonOf([&] { SafeFile file(folder / name); }) == "Permission denied." ? 0 : 2;
    });
    EXPECT_EQ(status, 0) << name;
  }
  EXPECT_EQ(ReadBytes(folder / "open/foreign"), Filled(5, 1));
}

TEST(SafeFile, DoesNotWidenTheRightsOfAGroupThatCannotBeKept) {
  if (::getuid() != 0) GTEST_SKIP() << "needs root to set up foreign files";
  const TemporaryFolder folder;
  ::chmod(folder.path().c_str(), 0777);
  const std::string path = folder / "foreign";
  WriteBytes(path, Filled(5, 1));
  ::chmod(path.c_str(), 04662);
  const int status = InChild([&] {
    if (!BecomeOtherUser()) return 1;
    ReplaceFile(path, Filled(6, 2));
    return 0;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(ReadBytes(path), Filled(6, 2));
  EXPECT_EQ(ModeOf(path), 0622U);
}

TEST(SafeFile, ClearsWhatAKilledSaveLeft) {
  const TemporaryFolder folder;
  WriteBytes(folder / "old", Filled(5, 1));
  for (const char* name : {"old", "new"}) {
    const int status = InChild([&] {
      static SafeFile* file = new SafeFile(folder / name);
      file->Write(Filled(2 * kMegabyte, 2));
      return 0;  // leaves without a destructor, as a killed program does
    });
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(folder.Names().size(), 3U);
  EXPECT_EQ(ReadBytes(folder / "old"), Filled(5, 1));
  for (const char* name : {"old", "new"}) ReplaceFile(folder / name, Filled(6, 3));
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("old", "new"));
}

TEST(SafeFile, IsEntirelyOldOrNewAfterAKillAtAnyMoment) {
  const TemporaryFolder folder;
  const std::string path = folder / "old";
  WriteBytes(path, Filled(kMegabyte, 1));
  for (int trial = 0; trial < 40; ++trial) {
    const pid_t child = StartChild([&] {
      for (int value = 2;; value = value % 200 + 1) ReplaceFile(path, Filled(kMegabyte, value));
      return 0;
    });
    std::this_thread::sleep_for(std::chrono::microseconds(2000 + 531 * trial));
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the saving ended by itself";
    const auto bytes = ReadBytes(path);
    ASSERT_EQ(bytes, Filled(kMegabyte, std::to_integer<int>(bytes.at(0)))) << "trial " << trial;
  }
  EXPECT_LE(folder.Names().size(), 2U);
}

}  // namespace
}  // namespace cantorix
