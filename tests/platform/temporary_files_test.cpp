// temporary_files_test.cpp - temporary files are the program's own: nothing else is written to or
// deleted in their place, and what a killed program left goes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/claimed_file.h"
#include "platform/file_fixture.h"
#include "platform/leftovers.h"
#include "platform/save_place.h"
#include "support/child_process.h"
#include "support/environment_variable.h"

namespace cantorix {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

const std::vector<std::byte> kContent = Filled(9, 7);

// Claims the first free name of "t1", "t2", ... in `folder`.
File ClaimIn(const TemporaryFolder& folder, Leftover leftover) {
  int number = 0;
  return ClaimFile([&] { return folder / ("t" + std::to_string(++number)); }, leftover);
}

struct Obstacle {
  const char* what;
  void (*put)(const TemporaryFolder& folder);  // under the name "t1"
  Leftover leftover;
  const char* claimed;
};

const Obstacle kObstacles[] = {
    {"nothing", [](auto&) {}, Leftover::kReplaced, "t1"},
    {"a link to a file", [](auto& f) { fs::create_symlink("precious", f / "t1"); },
     Leftover::kReplaced, "t2"},
    {"a link to nothing", [](auto& f) { fs::create_symlink("absent", f / "t1"); },
     Leftover::kReplaced, "t2"},
    {"a second name of a file", [](auto& f) { fs::create_hard_link(f / "precious", f / "t1"); },
     Leftover::kReplaced, "t1"},
    {"a folder", [](auto& f) { fs::create_directory(f / "t1"); }, Leftover::kReplaced, "t2"},
    {"a pipe", [](auto& f) { EXPECT_EQ(::mkfifo((f / "t1").c_str(), 0666), 0); },
     Leftover::kReplaced, "t2"},
    {"a leftover", [](auto& f) { WriteBytes(f / "t1", kContent); }, Leftover::kReplaced, "t1"},
    {"a leftover to keep", [](auto& f) { WriteBytes(f / "t1", kContent); }, Leftover::kKept, "t2"},
};

TEST(ClaimFile, OpensNothingThatStoodThereBefore) {
  for (const Obstacle& row : kObstacles) {
    SCOPED_TRACE(row.what);
    const TemporaryFolder folder;
    WriteBytes(folder / "precious", kContent);
    row.put(folder);
    const mode_t before = ::umask(0);
    File claimed = ClaimIn(folder, row.leftover);
    ::umask(before);
    EXPECT_EQ(claimed.path(), folder / row.claimed);
    EXPECT_EQ(claimed.Size(), 0);
    claimed.Write(0, std::vector<std::byte>(3));
    EXPECT_EQ(ModeOf(claimed.path()), 0600U);
    EXPECT_EQ(ReadBytes(folder / "precious"), kContent);
    EXPECT_FALSE(fs::exists(folder / "absent"));
    if (row.leftover == Leftover::kKept) {
      EXPECT_EQ(ReadBytes(folder / "t1"), kContent);
    }
  }
}

TEST(ClaimFile, HoldsItsNameUntilItIsDeleted) {
  const TemporaryFolder folder;
  {
    const File first = ClaimIn(folder, Leftover::kReplaced);
    const File second = ClaimIn(folder, Leftover::kReplaced);
    EXPECT_EQ(second.path(), folder / "t2");
    EXPECT_TRUE(HasItsName(first));
    DeleteClaimed(first);
    EXPECT_THAT(folder.Names(), ElementsAre("t2"));
    EXPECT_FALSE(HasItsName(first));
    WriteBytes(first.path(), kContent);  // the name is another's now
    DeleteClaimed(first);
    EXPECT_EQ(ReadBytes(folder / "t1"), kContent);
  }
  EXPECT_THROW(ClaimFile([&] { return folder / "no/t"; }, Leftover::kReplaced), FileError);
  EXPECT_THROW(ClaimFile([&] { return folder.path(); }, Leftover::kReplaced), FileError)
      << "a name that is always taken";
}

TEST(RemoveLeftovers, TakesOnlyFilesOfItsNamesThatNobodyHolds) {
  const TemporaryFolder folder;
  for (const char* name : {"t1", "t22", "t", "other", "tail"}) WriteBytes(folder / name, kContent);
  fs::create_symlink("other", folder / "t3");
  fs::create_directory(folder / "t4");
  const File held = File::OpenForReading(folder / "t22");
  const auto isTemporary = [](std::string_view name) { return IsNumberedName(name, "t"); };
  RemoveLeftovers(folder.path(), isTemporary);
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("t22", "other", "tail", "t3", "t4"));
  RemoveLeftovers(folder / "absent", isTemporary);
  RemoveLeftovers(folder / "other", isTemporary);
}

TEST(RemoveLeftovers, LeavesTheFilesOfOtherUsers) {
  if (::getuid() != 0) GTEST_SKIP() << "needs root to set up foreign files";
  const TemporaryFolder folder;
  WriteBytes(folder / "t1", kContent);
  ASSERT_EQ(::chown((folder / "t1").c_str(), kOtherUser, kOtherUser), 0);
  EXPECT_EQ(ClaimIn(folder, Leftover::kReplaced).path(), folder / "t2");
  EXPECT_EQ(ReadBytes(folder / "t1"), kContent);
}

TEST(SiblingName, IsKnownAgainAndNothingElseIs) {
  EXPECT_TRUE(IsSiblingName(SiblingName("talk.qrv")));
  EXPECT_NE(SiblingName("talk.qrv"), SiblingName("talk.qrw"));
  for (const char* name : {"", "talk.qrv", ".cantorix-save-", ".cantorix-save-0123456789abcde",
                           ".cantorix-save-0123456789abcdef0", ".cantorix-save-0123456789abcdeg",
                           "xcantorix-save-0123456789abcdef"}) {
    EXPECT_FALSE(IsSiblingName(name)) << name;
  }
}

TEST(PrivateFolder, GoesWithItsOwnerOrWithTheNextOneAfterAKill) {
  const TemporaryFolder place;
  const EnvironmentVariable temporary("TMPDIR", place.path().c_str());
  fs::create_directory(place / "far");
  WriteBytes(place / "far/file", kContent);
  fs::create_directory_symlink("far", place / "mine-abcdef");
  fs::create_directory(place / "mine-longer-name");
  EXPECT_EQ(InChild([] {
              static const auto* const folder = new PrivateFolder("mine-");
              WriteBytes(folder->path() + "/inside", kContent);
              return 0;  // leaves without a destructor, as a killed program does
            }),
            0);
  EXPECT_EQ(place.Names().size(), 4U);
  {
    const PrivateFolder first("mine-");
    WriteBytes(first.path() + "/inside", kContent);
    EXPECT_EQ(place.Names().size(), 4U) << "the killed program's is gone";
    const PrivateFolder second("mine-");
    EXPECT_EQ(ReadBytes(first.path() + "/inside"), kContent) << "a living one stays";
    EXPECT_NE(first.path(), second.path());
    EXPECT_EQ(ModeOf(first.path()), 0700U);
  }
  EXPECT_THAT(place.Names(), UnorderedElementsAre("far", "mine-abcdef", "mine-longer-name"));
  EXPECT_EQ(ReadBytes(place / "far/file"), kContent);
}

}  // namespace
}  // namespace cantorix
