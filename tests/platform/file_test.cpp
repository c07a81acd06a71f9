// file_test.cpp - who may open a file beside whom, and what reading and writing say.
#include "platform/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "platform/file_fixture.h"
#include "support/child_process.h"

namespace cantorix {
namespace {

TEST(File, IsSharedByReadersAndHeldByOneWriter) {
  using Opener = File (*)(const std::string&);
  const Opener read = File::OpenForReading;
  const Opener peek = File::OpenUnlocked;
  const Opener update = File::OpenForUpdate;
  const Opener create = File::Create;
  struct Row {
    Opener first, second;
    bool bothSucceed;
  };
  const Row rows[] = {{read, read, true},    {read, update, false}, {read, create, false},
                      {update, read, false}, {create, read, false}, {update, update, false},
                      {update, peek, true},  {peek, update, true}};
  for (const Row& row : rows) {
    const TemporaryFolder folder;
    WriteBytes(folder / "talk", Filled(5, 0));
    const File first = row.first(folder / "talk");
    const auto size = first.Size();
    EXPECT_EQ(ReasonOf([&] { row.second(folder / "talk"); }), row.bothSucceed ? "" : kInUse)
        << &row - rows;
    EXPECT_EQ(first.Size(), size) << &row - rows << ": a refused file keeps its bytes";
  }
}

TEST(File, ReadsAndWritesAtItsPlacesAndSaysWhereItEnds) {
  const TemporaryFolder folder;
  File file = File::Create(folder / "new");
  const std::vector<std::byte> content = {std::byte{1}, std::byte{2}, std::byte{3}};
  file.Write(2, content);
  EXPECT_EQ(file.Size(), 5);
  std::vector<std::byte> some(9, std::byte{0xEE});
  EXPECT_EQ(file.ReadSome(3, some), 2U);
  EXPECT_EQ(some[0], std::byte{2});
  EXPECT_EQ(some[2], std::byte{0xEE});
  EXPECT_EQ(ReasonOf([&] { file.ReadExactly(3, some); }), "The file ends at byte 5, too early.");
  file.Resize(3);
  file.Close();
  EXPECT_EQ(ReadWholeFile(file.path()).size(), 3U);
}

TEST(File, LeavesNoDescriptorBehind) {
  const TemporaryFolder folder;
  WriteBytes(folder / "talk", std::vector<std::byte>(5));
  const auto before = OpenDescriptors();
  {
    File file = File::OpenForReading(folder / "talk");
    File moved = std::move(file);
    moved = File::OpenUnlocked(folder / "talk");  // the first one goes, and its lock with it
    EXPECT_EQ(ReasonOf([&] { File::OpenForReading(folder.path()); }), "Is a directory.");
    EXPECT_EQ(ReasonOf([&] { File::OpenForUpdate(moved.path()); }), "") << "it is unlocked";
    File closed = File::OpenForReading(folder / "talk");
    closed.Close();
    EXPECT_FALSE(closed.isOpen());
  }
  EXPECT_EQ(OpenDescriptors(), before);
  const int failures = InChild([&] {
    const File file = File::OpenForReading(folder / "talk");
    const rlimit none{3, 3};
    ::setrlimit(RLIMIT_NOFILE, &none);
    const std::string reasons =
        ReasonOf([&] { file.Duplicate(); }) + ReasonOf([&] { File::OpenUnlocked(file.path()); });
    return reasons == "Too many open files.Too many open files." ? 0 : 1;
  });
  EXPECT_EQ(failures, 0);
}

}  // namespace
}  // namespace cantorix
