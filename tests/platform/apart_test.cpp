// apart_test.cpp - a call that does not come back, played by one that waits for the test.
#include "platform/apart.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/magic.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "platform/file.h"
#include "platform/file_error.h"
#include "platform/file_systems.h"
#include "platform/progress.h"
#include "platform/remote_file.h"
#include "support/temporary_folder.h"

namespace {

std::atomic<unsigned> fileSystemOfAll{0};  // 0: as the system says

}  // namespace

// Stands in for the C library's call.
extern "C" int fstatfs(int descriptor, struct statfs* status) noexcept {
  const auto result = static_cast<int>(::syscall(SYS_fstatfs, descriptor, status));
  if (fileSystemOfAll != 0) status->f_type = fileSystemOfAll;
  return result;
}

namespace cantorix {
namespace {

using namespace std::chrono_literals;

// A user who cancels at the first chance, or never.
class User : public Progress {
 public:
  explicit User(bool cancels) : cancels_(cancels) {}
  void Begin(std::string_view text, double total) override {
    ++shown;
    texts += text;
    EXPECT_EQ(total, 0.0) << "nobody knows how long";
  }
  bool Step(double) override { return cancels_; }
  void End() override { --shown; }

  std::atomic<int> shown = 0;  // also looked at by calls in their threads
  std::string texts;

 private:
  bool cancels_;
};

TEST(Apart, WhatComesBackAtOnceIsNotShown) {
  User user(true);
  int done = 0;
  DoApart({user, "text"}, [&] { done = 1; });
  EXPECT_EQ(done, 1);
  EXPECT_THROW(DoApart({user, "text"}, [] { throw FileError("reason"); }), FileError);
  EXPECT_EQ(user.texts, "");
}

TEST(Apart, WhatComesBackIsOverAndWasNotWaitedForInVain) {
  User user(false);
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < 200; ++i) {
    auto used = std::make_shared<int>(0);
    const std::weak_ptr<int> left = used;
    DoApart({user, "text"}, [used = std::move(used)] { std::this_thread::sleep_for(100us); });
    ASSERT_TRUE(left.expired());
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 10s) << "a lost notice costs 0.2 s";
}

TEST(Apart, AUserWhoDoesNotCancelGetsWhatComesLate) {
  User user(false);
  int done = 0;
  DoApart({user, "text"}, [&] {
    std::this_thread::sleep_for(400ms);
    done = user.shown;
  });
  EXPECT_EQ(done, 1) << "and the wait was shown";
  EXPECT_EQ(user.shown, 0);
  EXPECT_EQ(user.texts, "text");
}

TEST(Apart, WhatDoesNotComeBackIsLeftWithAllThatItUses) {
  User user(true);
  std::promise<void> answer;
  auto used = std::make_shared<int>(0);
  const std::weak_ptr<int> left = used;
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_THROW(DoApart({user, "text"},
                       [used = std::move(used), awaited = std::make_shared<std::future<void>>(
                                                    answer.get_future())] { awaited->wait(); }),
               Abandoned);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
  EXPECT_EQ(user.shown, 0);
  EXPECT_FALSE(left.expired());
  answer.set_value();
  for (int i = 0; i < 1000 && !left.expired(); ++i) std::this_thread::sleep_for(10ms);
  EXPECT_TRUE(left.expired()) << "the call came back, and what it used is still there";
}

TEST(RemoteFile, IsLookedForAmongAllThatIsMounted) {
  const auto has = [](const std::string& table) {
    std::istringstream mounts(table);
    return HasRemoteFileSystem(mounts);
  };
  const std::string own =
      "/dev/sda1 / ext4 rw 0 0\nfuse /sys/fs/fuse/connections fusectl rw 0 0\n"
      "nfs /mnt/my\\040nfs tmpfs rw 0 0\n";
  EXPECT_FALSE(has(""));
  EXPECT_FALSE(has(own));
  for (const std::string kind :
       {"nfs", "nfs4", "cifs", "smb3", "smbfs", "fuse", "fuseblk", "fuse.sshfs", "9p", "ceph",
        "afs", "coda", "gfs2", "ocfs2", "lustre"}) {
    EXPECT_TRUE(has(own + "host:/lab /lab " + kind + " rw 0 0\n" + own)) << kind;
  }
}

TEST(RemoteFile, GivesTheBytesOfTheFile) {
  const TemporaryFolder folder;
  WriteBytes(folder / "name", std::as_bytes(std::span("0123456789", 10)));
  User user(false);
  const RemoteFile file(
      std::make_shared<const Descriptor>(OpenAt(AT_FDCWD, folder / "name", O_RDONLY)),
      {user, "text"});
  EXPECT_EQ(file.Size(), 10);
  std::string text(6, '-');
  EXPECT_EQ(file.ReadSome(2, std::as_writable_bytes(std::span(text))), 6U);
  EXPECT_EQ(text, "234567");
  EXPECT_EQ(file.ReadSome(7, std::as_writable_bytes(std::span(text))), 3U);
  EXPECT_EQ(text, "789567") << "behind the end nothing is touched";
  file.ReadAll(4, std::as_writable_bytes(std::span(text)));
  EXPECT_EQ(text, "456789");
  EXPECT_THROW(file.ReadAll(5, std::as_writable_bytes(std::span(text))), FileError);
}

TEST(RemoteFile, IsToldByTheNumberOfItsFileSystem) {
  const TemporaryFolder folder;
  WriteBytes(folder / "name", std::as_bytes(std::span("0123456789", 10)));
  const Descriptor descriptor = OpenAt(AT_FDCWD, folder / "name", O_RDONLY);
  const auto mayKeepWaiting = [&](unsigned kind) {
    fileSystemOfAll = kind;
    return MayKeepWaiting(descriptor.number());
  };
  constexpr unsigned kGfs2 = 0x01161970, kLustre = 0x0BD00BD0;
  for (const unsigned kind :
       {unsigned{NFS_SUPER_MAGIC}, unsigned{SMB_SUPER_MAGIC}, unsigned{CIFS_SUPER_MAGIC},
        unsigned{SMB2_SUPER_MAGIC}, unsigned{FUSE_SUPER_MAGIC}, unsigned{V9FS_MAGIC},
        unsigned{CEPH_SUPER_MAGIC}, unsigned{AFS_SUPER_MAGIC}, unsigned{CODA_SUPER_MAGIC}, kGfs2,
        unsigned{OCFS2_SUPER_MAGIC}, kLustre}) {
    EXPECT_TRUE(mayKeepWaiting(kind)) << kind;
  }
  for (const unsigned kind : {EXT4_SUPER_MAGIC, XFS_SUPER_MAGIC, TMPFS_MAGIC, ISOFS_SUPER_MAGIC}) {
    EXPECT_FALSE(mayKeepWaiting(kind)) << kind;
  }
  fileSystemOfAll = NFS_SUPER_MAGIC;
  User user(false);
  for (const bool forOpens : {true, false}) {
    File file;
    file = File::OpenForReading(folder / "name", {user, "text", forOpens});
    EXPECT_EQ(file.Size(), 10);
    std::string text(6, '-');
    file.ReadExactly(4, std::as_writable_bytes(std::span(text)));
    EXPECT_EQ(text, "456789");
  }
  fileSystemOfAll = 0;
  EXPECT_TRUE(MayKeepWaiting(-1)) << "one that gives no answer";
}

TEST(RemoteFile, AFileThatIsMissingIsToldOfAsWithoutPatience) {
  const TemporaryFolder folder;
  User user(false);
  EXPECT_THROW(File::OpenForReading(folder / "missing", {user, "text"}), FileError);
}

}  // namespace
}  // namespace cantorix
