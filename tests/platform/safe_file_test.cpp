// safe_file_test.cpp - whatever happens to a save, the earlier file or the new one is there whole.
#include "platform/safe_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "platform/file.h"
#include "platform/file_fixture.h"
#include "support/child_process.h"
#include "support/eventually.h"
#include "support/file_size_limit.h"
#include "support/folder_sync_failure.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

// A folder with the file "old" of five bytes.
class SafeFileTest : public testing::Test {
 protected:
  SafeFileTest() { WriteBytes(folder / "old", kOld); }

  const std::vector<std::byte> kOld = Filled(5, 1);
  const TemporaryFolder folder;
};

TEST_F(SafeFileTest, KeepsTheOldBytesUntilCommitAndTheirRightsAfterIt) {
  const std::string path = folder / "old";
  ::chmod(path.c_str(), 01640);
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
    EXPECT_EQ(ReadBytes(path), kOld);
    file.Commit();
  }
  EXPECT_EQ(ReadBytes(path), expected);
  EXPECT_EQ(ModeOf(path), 01640U);
  EXPECT_EQ(StatusOf(path).st_uid, user);
  EXPECT_EQ(StatusOf(path).st_gid, group);
  const mode_t before = ::umask(027);
  ReplaceFile(folder / "new", Filled(3, 7));
  ::umask(before);
  EXPECT_EQ(ModeOf(folder / "new"), 0640U) << "a new file has the rights of the umask";
  EXPECT_EQ(ReadBytes(folder / "new"), Filled(3, 7));
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("old", "new"));
}

TEST_F(SafeFileTest, KeepsWhatIsCancelledOnlyWhenItIsNewAndNothingElseUncommitted) {
  for (const char* name : {"old", "new"}) {
    SafeFile file(folder / name);
    file.Write(Filled(3 * kMegabyte, 2));
  }
  EXPECT_THAT(folder.Names(), ElementsAre("old"));
  for (const char* name : {"old", "new"}) {
    SafeFile file(folder / name);
    file.Write(Filled(3, 2));
    file.KeepIfNew();
  }
  EXPECT_EQ(ReadBytes(folder / "old"), kOld);
  EXPECT_EQ(ReadBytes(folder / "new"), Filled(3, 2));
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("old", "new"));
}

TEST_F(SafeFileTest, LeavesNoDescriptorBehind) {
  const auto before = OpenDescriptors();
  ReplaceFile(folder / "new", Filled(3, 7));
  ReplaceFile(folder / "new", Filled(4, 7));
  SafeFile(folder / "new").Write(Filled(3, 7));
  {
    const File held = File::OpenForReading(folder / "old");
    EXPECT_EQ(ReasonOf([&] { ReplaceFile(folder / "old", Filled(3, 7)); }), kInUse);
  }
  EXPECT_EQ(ReasonOf([&] { ReplaceFile(folder.path(), Filled(3, 7)); }), "Is a directory.");
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(SafeFileTest, ReplacesTheFileThatALinkNames) {
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

TEST_F(SafeFileTest, RefusesWhatIsNoFileToReplace) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
  std::filesystem::create_directory_symlink(folder.path(), folder / "link");
  const std::pair<std::string, std::string> rows[] = {
      {folder.path(), "Is a directory."},
      {folder.path() + "/", "Is a directory."},
      {folder / "link", "Is a directory."},
      {folder / "pipe", "It is not a regular file."},
      {"/dev/null", "It is not a regular file."},
      {folder / "absent/talk", "No such file or directory."},
      {folder / "absent/", "No such file or directory."},
      {folder / "old/talk", "Not a directory."},
      {"", "No such file or directory."},
      {folder / std::string(256, 'n'), "File name too long."},
  };
  for (const auto& [path, reason] : rows) {
    EXPECT_EQ(ReasonOf([&, target = path] { SafeFile file(target); }), reason) << path;
  }
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("pipe", "link", "old"));
}

TEST_F(SafeFileTest, ReachesAwkwardPlaces) {
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

TEST_F(SafeFileTest, IsRefusedWhileAnotherWriterHoldsTheTarget) {
  for (const char* name : {"old", "new"}) {
    SafeFile first(folder / name);
    EXPECT_EQ(ReasonOf([&] { SafeFile second(folder / name); }), kInUse) << name;
    EXPECT_EQ(ReasonOf([&] { first.Commit(); }), "") << name;
  }
  ReplaceFile(folder / "old", Filled(2, 2));
  EXPECT_EQ(ReadBytes(folder / "old"), Filled(2, 2));
}

TEST_F(SafeFileTest, SaysWhenItsFolderCouldNotBeSynced) {
  for (const char* name : {"old", "new"}) {
    WriteBytes(folder / "old", Filled(5, 1));
    EXPECT_EQ(ReplaceFile(folder / "old", Filled(6, 2)), Durability::kOnDisk);
    const FolderSyncFailure failure;
    EXPECT_EQ(ReplaceFile(folder / name, Filled(7, 3)), Durability::kPerhapsNotYet) << name;
    EXPECT_EQ(ReadBytes(folder / name), Filled(7, 3)) << name;
  }
}

TEST_F(SafeFileTest, SparesAFileThatAppearedUnderItsNewName) {
  SafeFile file(folder / "new");
  WriteBytes(folder / "new", kOld);
  EXPECT_EQ(ReasonOf([&] { file.Commit(); }), "Another program has made a file of this name.");
  EXPECT_EQ(ReadBytes(folder / "new"), kOld);
}

TEST_F(SafeFileTest, LeavesTheOldFileWholeWhenTheDiskRunsFull) {
  // Fails in Write, in the flush of Commit, and for a new file.
  for (const auto& [name, size] : {std::pair("old", 3 * kMegabyte), std::pair("old", kMegabyte / 2),
                                   std::pair("new", kMegabyte / 2)}) {
    const int failures = InChild([&, name = name, size = size] {
      const FileSizeLimit limit(kMegabyte / 4);
      SafeFile file(folder / name);
      const std::string first = ReasonOf([&] {
        file.Write(Filled(size, 2));
        file.Commit();
      });
      return first == "File too large." && ReasonOf([&] { file.Commit(); }) == first ? 0 : 1;
    });
    EXPECT_EQ(failures, 0) << name << " " << size;
    EXPECT_EQ(ReadBytes(folder / "old"), kOld);
    EXPECT_THAT(folder.Names(), ElementsAre("old"));
  }
}

TEST_F(SafeFileTest, LeavesTheOldFileWholeOnASmallFullDisk) {
  std::filesystem::create_directory(folder / "disk");
  const std::string disk = folder / "disk";
  const std::string path = disk + "/old";
  ::chmod(folder.path().c_str(), 0755);
  if (!OtherUserReachesTemporaryFolders()) GTEST_SKIP() << "needs root, and others in the folder";
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

class ForeignFolderTest : public SafeFileTest {
 protected:
  void SetUp() override {
    if (!OtherUserReachesTemporaryFolders()) {
      GTEST_SKIP() << "needs root to set up foreign files, and a folder that is open to others";
    }
  }
  // What an ordinary user meets: the reason of a failure, or nothing.
  static std::string AsOtherUser(const std::function<void()>& action) {
    std::string reason(1000, '\0');
    int pipe[2];
    EXPECT_EQ(::pipe(pipe), 0);
    EXPECT_EQ(InChild([&] {
                const std::string met = BecomeOtherUser() ? ReasonOf(action) : "still root";
                return ::write(pipe[1], met.data(), met.size()) < 0 ? 1 : 0;
              }),
              0);
    ::close(pipe[1]);
    reason.resize(static_cast<std::size_t>(::read(pipe[0], reason.data(), reason.size())));
    ::close(pipe[0]);
    return reason;
  }
};

// Folders that do not let a name change hands: closed to new files, or sticky and another's.
TEST_F(ForeignFolderTest, FilesAreWrittenInPlaceWhereReplacingIsForbidden) {
  const std::string path = folder / "old";
  ::chmod(path.c_str(), 0666);
  const ino_t inode = StatusOf(path).st_ino;
  for (const mode_t folderMode : {0755U, 01777U}) {
    ::chmod(folder.path().c_str(), folderMode);
    for (const std::size_t size : {std::size_t{5000}, 2 * kMegabyte, std::size_t{10}}) {
      WriteBytes(path, Filled(3000, 1));
      const std::string reason = AsOtherUser([&] {
        SafeFile file(path);
        file.Write(Filled(size, 2));
        if (ReadBytes(path) != Filled(3000, 1)) throw FileError("written too early");
        file.Commit();
      });
      EXPECT_EQ(reason, "") << std::oct << folderMode << " " << size;
      EXPECT_EQ(ReadBytes(path), Filled(size, 2));
      EXPECT_EQ(StatusOf(path).st_ino, inode);
      EXPECT_EQ(StatusOf(path).st_uid, 0U);
      EXPECT_THAT(folder.Names(), ElementsAre("old"));
    }
  }
}

TEST_F(ForeignFolderTest, PermissionsThatForbidWritingAreRespectedAndNotWidened) {
  ::chmod(folder.path().c_str(), 0755);
  std::filesystem::create_directory(folder / "open");
  ::chmod((folder / "open").c_str(), 0777);
  WriteBytes(folder / "open/foreign", kOld);
  for (const char* name : {"new", "open/foreign"}) {
    EXPECT_EQ(AsOtherUser([&] { SafeFile file(folder / name); }), "Permission denied.") << name;
  }
  EXPECT_EQ(ReadBytes(folder / "open/foreign"), kOld);
  // A group that cannot be kept.
  ::chmod((folder / "open/foreign").c_str(), 04662);
  EXPECT_EQ(AsOtherUser([&] { ReplaceFile(folder / "open/foreign", Filled(6, 2)); }), "");
  EXPECT_EQ(ReadBytes(folder / "open/foreign"), Filled(6, 2));
  EXPECT_EQ(ModeOf(folder / "open/foreign"), 0622U);
}

// The system copies between files, and where it cannot, as out of its own, they are read and
// written.
TEST_F(SafeFileTest, TakesStretchesOfOtherFilesInTheirOrder) {
  std::vector<std::byte> bytes(30 << 20);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::byte>(i * 7 >> 3);
  WriteBytes(folder / "source", bytes);
  const File source = File::OpenForReading(folder / "source");
  std::vector<std::byte> expected = Filled(3, 9);
  SafeFile file(folder / "old");
  file.Write(expected);
  const std::int64_t million = 1 << 20;
  const struct {
    std::int64_t offset, count;
  } stretches[] = {
      {5, million}, {5 + million, 3 * million + 1}, {6 + 4 * million, 20 * million}, {0, 1},
      {0, 1},       {30 * million - 2, 2}};
  for (const auto& stretch : stretches) {
    file.WriteFrom({&source, stretch.offset}, stretch.count);
    const auto first = bytes.begin() + stretch.offset;
    expected.insert(expected.end(), first, first + stretch.count);
    EXPECT_EQ(file.written(), std::ssize(expected));
  }
  file.Write(kOld);
  expected.insert(expected.end(), kOld.begin(), kOld.end());
  file.Commit();
  EXPECT_TRUE(ReadBytes(folder / "old") == expected);

  const File version = File::OpenUnlocked("/proc/version");
  File plain = File::Create(folder / "plain");
  for (const std::int64_t place : {2, 3}) {  // with its pages as in the source, and not
    plain.WriteFrom({&source, 2}, place, 5 * million);
    plain.WriteFrom({&version, 2}, place, 10);
    const std::vector<std::byte> copied = ReadBytes(folder / "plain");
    const auto ours = std::span(copied).subspan(static_cast<std::size_t>(place));
    EXPECT_TRUE(std::ranges::equal(ours.first(10), std::as_bytes(std::span("nux versio", 10))));
    EXPECT_TRUE(std::ranges::equal(
        ours.subspan(10),
        std::span(bytes).subspan(12, static_cast<std::size_t>(5 * million - 10))));
  }
  EXPECT_THROW(plain.WriteFrom({&source, 30 * million - 2}, 0, 3), FileError) << "the source ends";
  EXPECT_THROW(SafeFile(folder / "late").WriteFrom({&source, 30 * million - 2}, 9 * million),
               FileError);
  EXPECT_FALSE(std::filesystem::exists(folder / "late"));
}

TEST_F(SafeFileTest, ClearsWhatAKilledSaveLeft) {
  for (const char* name : {"old", "new"}) {
    const int status = InChild([&] {
      static SafeFile* file = new SafeFile(folder / name);
      file->Write(Filled(2 * kMegabyte, 2));
      return 0;  // leaves without a destructor, as a killed program does
    });
    EXPECT_EQ(status, 0);
  }
  EXPECT_EQ(folder.Names().size(), 3U);
  EXPECT_EQ(ReadBytes(folder / "old"), kOld);
  for (const char* name : {"old", "new"}) ReplaceFile(folder / name, Filled(6, 3));
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("old", "new"));
}

// Each child is killed some time after its first save, whenever that was done.
TEST_F(SafeFileTest, IsEntirelyOldOrNewAfterAKillAtAnyMoment) {
  const std::string path = folder / "old";
  const auto first = [&] { return std::to_integer<int>(ReadBytes(path).at(0)); };
  for (int trial = 0; trial < 25; ++trial) {
    const int before = first();
    const pid_t child = StartChild([&] {
      // A save that the system refuses for a moment is tried again.
      for (int value = before % 200 + 1;; value = value % 200 + 1) {
        ReasonOf([&] { ReplaceFile(path, Filled(kMegabyte / 4, value)); });
      }
      return 0;
    });
    const bool saves = Eventually([&] { return first() != before; });
    std::this_thread::sleep_for(std::chrono::microseconds(531 * trial));
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(saves && WIFSIGNALED(status)) << "exit status " << WEXITSTATUS(status);
    ASSERT_EQ(ReadBytes(path), Filled(kMegabyte / 4, first())) << "trial " << trial;
  }
  EXPECT_LE(folder.Names().size(), 2U);
}

}  // namespace
}  // namespace cantorix
