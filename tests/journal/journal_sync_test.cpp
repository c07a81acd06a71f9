// journal_sync_test.cpp - how often a journal goes through to the disk, and what a disk that
// refuses it, or hangs, comes to.
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "journal/background_sync.h"
#include "journal/journal_file.h"
#include "journal/journal_guard.h"
#include "platform/file_error.h"
#include "support/eventually.h"
#include "support/temporary_folder.h"

namespace {

std::atomic<int> syncs{0};
std::atomic<bool> diskFails{false}, diskHangs{false};

}  // namespace

// Stands in for the C library's call.
extern "C" int fdatasync(int descriptor) {
  ++syncs;
  while (diskHangs) ::usleep(100);
  if (!diskFails) return static_cast<int>(::syscall(SYS_fdatasync, descriptor));
  errno = EIO;
  return -1;
}

namespace cantorix {
namespace {

TEST(JournalSync, IsBegunOnceASecondAndOnlyForWhatIsNew) {
  const TemporaryFolder folder;
  JournalWriter writer(
      {[&] { return folder.path() + "/"; }, [] { return std::string("20261121-143005"); }},
      kDocumentJournals);
  const auto commitAndSync = [&](double nowMs) {
    writer.Commit(1, "stamp");
    writer.SyncNowAndThen(nowMs);
  };
  syncs = 0;
  commitAndSync(5000.0);
  EXPECT_TRUE(Eventually([] { return syncs == 1; }));
  for (const double nowMs : {5001.0, 5500.0, 5899.0}) commitAndSync(nowMs);
  EXPECT_EQ(syncs, 1);
  // Goes on until the first is known to be done.
  double nowMs = 5900.0;
  EXPECT_TRUE(Eventually([&] {
    writer.SyncNowAndThen(nowMs += 1000.0);
    return syncs >= 2;
  }));
  for (int i = 0; i < 1000; ++i) writer.SyncNowAndThen(nowMs += 1000.0);
  EXPECT_LE(syncs, 4) << "one more may have begun each time before the end was known";

  diskFails = true;
  const auto fails = [&] {
    try {
      commitAndSync(nowMs += 1000.0);
      return false;
    } catch (const FileError& error) {
      EXPECT_STREQ(error.what(), "Input/output error.");
      return true;
    }
  };
  EXPECT_TRUE(Eventually(fails));
  EXPECT_THROW(writer.Sync(), FileError);
  diskFails = false;
}

TEST(JournalGuard, StopsAtTheFirstFailureAndTellsOfItOnce) {
  const auto begin = [] { return std::string("Lost. "); };
  JournalGuard guard, scarce;
  int done = 0;
  EXPECT_TRUE(guard.Do([&] { ++done; }));
  EXPECT_EQ(guard.Tell(begin), std::nullopt);
  EXPECT_FALSE(guard.Do([] { throw FileError("Why."); }));
  EXPECT_FALSE(guard.Do([&] { ++done; }));
  EXPECT_EQ(done, 1);
  EXPECT_TRUE(guard.failed());
  EXPECT_EQ(guard.Tell(begin), "Lost. Why.");
  EXPECT_EQ(guard.Tell(begin), std::nullopt);
  EXPECT_FALSE(scarce.Do([] { throw std::bad_alloc(); }));
  EXPECT_EQ(scarce.Tell(begin), "Lost. There is not enough memory.");
}

TEST(BackgroundSync, TellsUpToWhereWhenItIsDone) {
  const TemporaryFolder folder;
  const File file = File::Create(folder / "file");
  BackgroundSync sync;
  EXPECT_EQ(sync.synced(), 0);
  sync.Begin(file, 7);
  EXPECT_TRUE(Eventually([&] { return sync.synced() == 7; }));
  diskHangs = true;
  sync.Begin(file, 9);
  EXPECT_EQ(sync.synced(), 7);
  sync.Begin(file, 11);  // while the one before is on its way
  EXPECT_EQ(sync.synced(), 7);
  diskHangs = false;
  EXPECT_TRUE(Eventually([&] { return sync.synced() == 9; }));
}

}  // namespace
}  // namespace cantorix
