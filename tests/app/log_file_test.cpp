// log_file_test.cpp - the measurement log's table, and that table through a text file.
#include "app/log_file.h"

#include <gmock/gmock.h>

#include <span>

#include "platform/file.h"
#include "support/file_size_limit.h"
#include "support/folder_sync_failure.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

using testing::ElementsAre;

constexpr const char* kOpenError = "message: Error in opening the file.";

LogTable TableOf(std::vector<std::string> captions, std::vector<LogTable::Row> rows) {
  LogTable log;
  log.Replace(std::move(captions), std::move(rows));
  return log;
}

TEST(LogTableTest, GrowsColumnsWithItsLongestRowAndLosesRows) {
  LogTable log = TableOf({"F", "G", "H"}, {{"0"}, {"1"}, {"2"}, {"3"}});
  for (const auto& wrong : {std::vector<std::size_t>{4}, {0, 9}}) {
    EXPECT_THROW(log.RemoveRows(wrong), std::out_of_range);
  }
  log.RemoveRows({});
  EXPECT_EQ(log.rows().size(), 4U);
  EXPECT_FALSE(log.isModified());
  log.RemoveRows(std::vector<std::size_t>{0, 2});
  EXPECT_THAT(log.rows(), ElementsAre(ElementsAre("1"), ElementsAre("3")));
  EXPECT_TRUE(log.isModified());
  EXPECT_FALSE(log.Append({"a.wav", "Pitch", {"1.0", "2.0"}}));
  EXPECT_THAT(log.captions(), ElementsAre("F", "G", "H", "Entry 2")) << "captioned by their place";
  EXPECT_EQ(*log.Cell(2, 3), "2.0");
  EXPECT_EQ(log.Cell(1, 3), nullptr);
}

TEST(LogTableTest, TakesTheLastChangeBack) {
  LogTable log = TableOf({"F", "G"}, {{"0"}, {"1"}, {"2"}, {"3"}});
  EXPECT_FALSE(log.canUndo());
  log.RemoveRows(std::vector<std::size_t>{0, 1, 3});
  log.Append({"4", "", {}});
  log.Undo();
  EXPECT_THAT(log.rows(), ElementsAre(ElementsAre("0"), ElementsAre("1"), ElementsAre("2"),
                                      ElementsAre("3"), ElementsAre("4", "")));
  EXPECT_FALSE(log.canUndo()) << "one step";
  log.SetCell(1, 1, "a\tb\r\nc");
  EXPECT_THAT(log.rows()[1], ElementsAre("1", "a b  c"));
  EXPECT_TRUE(log.isModified());
  log.Undo();
  EXPECT_THAT(log.rows()[1], ElementsAre("1")) << "no cell there before";
  EXPECT_THROW(log.SetCell(0, 2, "x"), std::out_of_range);
  EXPECT_THROW(log.SetCell(9, 0, "x"), std::out_of_range);
  log.RemoveRows(std::vector<std::size_t>{4});
  log.SetCell(0, 0, "x");
  log.Undo();
  EXPECT_EQ(log.rows().size(), 4U) << "of the edit alone";
  log.RemoveRows(std::vector<std::size_t>{0});
  log.Replace({"F"}, {});
  EXPECT_FALSE(log.canUndo()) << "of another file";
}

TEST(LogTextTest, CommasQuotesAndLineEndsSurviveInCsv) {
  const LogTable log =
      TableOf({"Source", "Entry, kind", "E"}, {{"a.wav", "say \"a\"", "1.0"}, {"\xE4\nb"}});
  EXPECT_EQ(LogCsv(log),
            "Source,\"Entry, kind\",E\r\na.wav,\"say \"\"a\"\"\",1.0\r\n\"\xC3\xA4\nb\",,\r\n");
}

TEST(LogTextTest, ReadsLinesHoweverTheyEnd) {
  struct Row {
    std::string text;
    LogReading reading = LogReading::kRead;
    std::vector<std::string> captions;
    std::vector<LogTable::Row> rows;
  };
  const LogReading kRead = LogReading::kRead;
  const LogReading kLong = LogReading::kLineTooLong;
  const Row table[] = {
      {"A\tB\t\r\n1\t2\t\r\n", kRead, {"A", "B"}, {{"1", "2"}}},
      {"A\tB\t\r1\t2\t\r", kRead, {"A", "B"}, {{"1", "2"}}},
      {"\n\nA\tB\t\n\r\n1\t2\t", kRead, {"A", "B"}, {{"1", "2"}}},
      {"A\tB\tx\n1\t2\n", kRead, {"A", "B"}, {{"1"}}},  // text after the last TAB
      {"A\t\n1\t2\t\n", kRead, {"A", ""}, {{"1", "2"}}},
      {"A\t\nx\n", kRead, {"A"}, {{}}},
      {"\t\t\n\t\n", kRead, {"", ""}, {{""}}},
      {"\r\n\r\n", LogReading::kNotALog, {}, {}},
      {"A\n1\n", LogReading::kNotALog, {}, {}},
      {"A\t" + std::string(997, 'x') + "\n", kRead, {"A"}, {}},
      {"A\t\n\t" + std::string(998, 'x'), kRead, {"A"}, {{""}}},
      {"A\t\n\t" + std::string(999, 'x') + "\n", kLong, {}, {}},
      {std::string(1000, 'x'), kLong, {}, {}},
  };
  for (const Row& row : table) {
    LogTable log = TableOf({"old"}, {{"kept"}});
    ASSERT_EQ(ReadLogText(row.text, log), row.reading) << row.text;
    const bool read = row.reading == kRead;
    EXPECT_EQ(log.captions(), read ? row.captions : std::vector<std::string>{"old"}) << row.text;
    EXPECT_EQ(log.rows(), read ? row.rows : std::vector<LogTable::Row>{{"kept"}}) << row.text;
  }
}

// Nothing is quoted: programs that read the file split it at TABs.
TEST(LogTextTest, TabsAndLongRowsDoNotReadBackIsKept) {
  LogTable again;
  ASSERT_EQ(ReadLogText(LogText(TableOf({"A"}, {{"x\ty"}})), again), LogReading::kRead);
  EXPECT_THAT(again.rows(), ElementsAre(ElementsAre("x", "y")));
  const LogTable wide = TableOf({"A"}, {{std::string(999, 'x')}});
  EXPECT_EQ(ReadLogText(LogText(wide), again), LogReading::kLineTooLong);
}

class LogFileTest : public testing::Test {
 protected:
  LogFileTest() { log.Append({"a.wav", "Pitch", {"1.0", "\xE9"}}); }
  void Store(const std::string& text) { WriteBytes(path, std::as_bytes(std::span(text))); }
  std::string Stored() const { return ReadWholeFile(path); }

  TemporaryFolder folder;
  std::string path = folder / "measures.txt";
  ScriptedPrompts prompts;
  LogTable log;
};

TEST_F(LogFileTest, SavedLogOpensAsTheSameTable) {
  log.Append({"b.wav", "Time", {}});
  Store("an older and longer file, of which nothing may stay behind in the new one, not a byte");
  ASSERT_TRUE(SaveLog(log, path, prompts));
  EXPECT_EQ(Stored(),
            "Source\tEntry Type\tEntry 1\tEntry 2\t\r\n"
            "a.wav\tPitch\t1.0\t\xE9\t\r\n"
            "b.wav\tTime\t\t\t\r\n");
  EXPECT_FALSE(log.isModified());
  EXPECT_EQ(log.title(), "measures.txt");

  LogTable opened;
  opened.Append({"x", "y", {}});
  ASSERT_TRUE(OpenLog(opened, path, prompts));
  EXPECT_FALSE(opened.isModified());
  EXPECT_EQ(opened.path(), path);
  EXPECT_EQ(LogText(opened), Stored());
}

TEST_F(LogFileTest, RefusedAndHeldFilesLeaveTheLogAsItWas) {
  const std::string before = LogText(log);
  struct Row {
    std::string file, content;
    std::vector<std::string> said;
  };
  const Row rows[] = {
      {"missing.txt", "", {"beep", kOpenError}},
      {".", "", {"beep", kOpenError}},
      {"measures.txt", "", {"beep", "message: The file has zero length."}},
      {"measures.txt", "some text", {"message: This is not a valid log file."}},
      {"measures.txt", "A\t\n" + std::string(1000, 'x'), {}},
  };
  for (const Row& row : rows) {
    Store(row.content);
    EXPECT_FALSE(OpenLog(log, folder / row.file, prompts)) << row.file;
    EXPECT_EQ(prompts.TakeTranscript(), row.said);
  }
  EXPECT_FALSE(SaveLog(log, folder / "gone/log.txt", prompts));
  Store("A\tB\t\r\n");
  {
    const File held = File::OpenForUpdate(path);
    EXPECT_FALSE(SaveLog(log, path, prompts) || OpenLog(log, path, prompts));
  }
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("beep", kOpenError, "beep", kOpenError, "beep", kOpenError));
  EXPECT_EQ(Stored(), "A\tB\t\r\n");
  EXPECT_EQ(LogText(log), before);
  EXPECT_TRUE(log.isModified());
  EXPECT_EQ(log.title(), "Untitled Log");
  {
    const FileSizeLimit limit(5);
    EXPECT_FALSE(SaveLog(log, path, prompts));
  }
  EXPECT_EQ(prompts.TakeTranscript().at(0).find("message: " + path + " could not be saved."), 0U);
  const FolderSyncFailure failure;
  EXPECT_TRUE(SaveLog(log, path, prompts));
  EXPECT_EQ(prompts.TakeTranscript().at(0).find("message: " + path + " is saved, but perhaps"), 0U);
}

}  // namespace
}  // namespace cantorix
