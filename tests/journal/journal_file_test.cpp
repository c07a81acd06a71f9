// journal_file_test.cpp - the bytes of a journal: what a power cut leaves of it, and damage.
#include "journal/journal_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "journal/crc32.h"
#include "platform/file_error.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

std::span<const std::byte> BytesOf(std::string_view text) {
  return std::as_bytes(std::span(text.data(), text.size()));
}

class JournalFileTest : public testing::Test {
 protected:
  JournalPlace Place() {
    return {[this] { return folder.path() + "/"; }, [] { return std::string("20261121-143005"); }};
  }
  // "a", commit, "b", "c", commit.
  std::string WriteSmall() {
    JournalWriter writer(Place(), kDocumentJournals);
    writer.Append(RecordKind::kRows, BytesOf("a"));
    writer.Commit(1, "first");
    writer.Append(RecordKind::kRows, BytesOf("b"));
    writer.Append(RecordKind::kRows, BytesOf("c"));
    writer.Commit(2, "second");
    writer.Sync();
    return writer.file().path();
  }
  void Put(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
  }
  // "ab 3 second" of the committed records; a record "x" cannot be true.
  std::string Read(const std::string& path) {
    std::string text;
    const auto committed = ReadCommitted(
        File::OpenUnlocked(path), [&] { text.clear(); },
        [&](const JournalRecord& record) {
          const auto letter = static_cast<char>(record.content.at(0));
          if (letter == 'x') throw BadRecord();
          text += letter;
        });
    if (!committed) return "nothing";
    return text + " " + std::to_string(committed->changes) + " " + committed->stamp;
  }

  TemporaryFolder folder;
};

TEST_F(JournalFileTest, ChecksumIsTheCrcOfZipFiles) {
  EXPECT_EQ(Crc32(BytesOf("123456789")), 0xCBF43926U);
  EXPECT_EQ(Crc32(BytesOf("56789"), Crc32(BytesOf("1234"))), 0xCBF43926U);
  EXPECT_EQ(Crc32(BytesOf("The quick brown fox jumps over the lazy dog")), 0x414FA339U);
}

TEST_F(JournalFileTest, StandsAsItsHeadSays) {
  const std::string path = WriteSmall();
  EXPECT_EQ(std::filesystem::path(path).filename(), "Work-20261121-143005-1.journal");
  struct stat status {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  const std::string bytes = ReadWholeFile(path);
  // The checksum of the first record was worked out by another program.
  EXPECT_EQ(bytes.substr(0, 25), std::string("CXWORK\r\n\1\0\0\0\1\0\0\0\13\0\0\0", 20) +
                                     std::string("\x32\x60\x17\xBC", 4) + "a");
}

TEST_F(JournalFileTest, OfAFileCutAnywhereTheWholeCommitsCount) {
  const std::string path = WriteSmall();
  const std::string whole = ReadWholeFile(path);
  const std::size_t firstEnd = whole.find("first") + 5;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    Put(path, whole.substr(0, length));
    const char* const expected = length == whole.size() ? "abc 3 second"
                                 : length >= firstEnd   ? "a 1 first"
                                                        : "nothing";
    EXPECT_EQ(Read(path), expected) << length << " bytes";
  }
}

TEST_F(JournalFileTest, NothingBehindADamagedByteCounts) {
  const std::string path = WriteSmall();
  const std::string whole = ReadWholeFile(path);
  const std::size_t firstEnd = whole.find("first") + 5;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x20);
    Put(path, damaged);
    EXPECT_EQ(Read(path), at < firstEnd ? "nothing" : "a 1 first") << "byte " << at;
  }
}

TEST_F(JournalFileTest, ARecordThatCannotBeTrueTakesItsCommitAlong) {
  {
    JournalWriter writer(Place(), kDocumentJournals);
    for (const char* const text : {"a", "b", "x", "c"}) {
      writer.Append(RecordKind::kRows, BytesOf(text));
      if (*text != 'a') writer.Commit(1, text);
    }
  }
  EXPECT_EQ(Read(folder / "Work-20261121-143005-1.journal"), "ab 1 b");
}

TEST_F(JournalFileTest, LeftOnesAreThoseThatNobodyWrites) {
  const std::string left = WriteSmall();
  JournalWriter live(Place(), kDocumentJournals);
  live.Commit(1, "live");
  { JournalWriter(Place(), kDocumentJournals).Append(RecordKind::kRows, BytesOf("lost")); }
  { JournalWriter(Place(), kLogJournals).Commit(1, "log"); }
  Put(folder / "Work-of another version.journal", "CXWORK\r\n\2abcdefgh");
  std::filesystem::create_symlink(left, folder / "Work-link.journal");
  const auto found = OpenLeftJournals(folder.path() + "/", kDocumentJournals);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].path(), left);
  EXPECT_THROW(File::OpenTemporary(left), FileError);  // it is held now
  EXPECT_THAT(folder.Names(), testing::UnorderedElementsAre(
                                  "Work-20261121-143005-1.journal",
                                  "Work-20261121-143005-2.journal", "Log-20261121-143005-1.journal",
                                  "Work-of another version.journal", "Work-link.journal"));
}

TEST_F(JournalFileTest, GoesOnBehindTheLastCommit) {
  const std::string path = WriteSmall();
  Put(path, ReadWholeFile(path) + "torn");
  File file = File::OpenTemporary(path);
  const auto committed = ReadCommitted(
      file, [] {}, [](const JournalRecord&) {});
  ASSERT_TRUE(committed);
  JournalWriter writer(std::move(file), committed->bytes);
  writer.Append(RecordKind::kRows, BytesOf("d"));
  writer.Commit(1, "third");
  EXPECT_EQ(Read(path), "abcd 4 third");
}

}  // namespace
}  // namespace cantorix
