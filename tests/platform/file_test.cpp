// file_test.cpp - who may open a file beside whom, and what reading and writing say.
#include "platform/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "platform/file_error.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

constexpr const char* kInUse = "Another program is using it.";

std::string ReasonOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const FileError& error) {
    return error.what();
  }
  return {};
}

TEST(File, IsSharedByReadersAndHeldByOneWriter) {
  using Opener = File (*)(const std::string&);
  const Opener read = File::OpenForReading;
  const Opener peek = File::OpenUnlocked;
  const Opener update = File::OpenForUpdate;
  const Opener create = File::Create;
  struct Row {
    const char* name;
    Opener first, second;
    bool bothSucceed;
  };
  for (const Row& row :
       {Row{"two readers", read, read, true}, Row{"reader, writer", read, update, false},
        Row{"reader, creator", read, create, false}, Row{"writer, reader", update, read, false},
        Row{"creator, reader", create, read, false}, Row{"two writers", update, update, false},
        Row{"writer, unlocked", update, peek, true}, Row{"unlocked, writer", peek, update, true}}) {
    const TemporaryFolder folder;
    WriteBytes(folder / "talk", std::vector<std::byte>(5));
    const File first = row.first(folder / "talk");
    const auto size = first.Size();
    EXPECT_EQ(ReasonOf([&] { row.second(folder / "talk"); }), row.bothSucceed ? "" : kInUse)
        << row.name;
    EXPECT_EQ(first.Size(), size) << row.name << ": a refused file keeps its bytes";
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
  const auto open = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto before = open();
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
  EXPECT_EQ(open(), before);
}

}  // namespace
}  // namespace cantorix
