// log_file_test.cpp - the measurement log's table, and that table through a text file.
#include "app/log_file.h"

#include <gmock/gmock.h>

#include <span>

#include "platform/file.h"
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

class LogFileTest : public testing::Test {
 protected:
  void Store(const std::string& text) { WriteBytes(path, std::as_bytes(std::span(text))); }
  std::string Stored() const {
    std::string text;
    for (const std::byte b : ReadBytes(path)) text += static_cast<char>(b);
    return text;
  }

  TemporaryFolder folder;
  std::string path = folder / "measures.txt";
  ScriptedPrompts prompts;
};

TEST(LogTableTest, GrowsColumnsWithItsLongestRowAndLosesRows) {
  LogTable log;
  EXPECT_THAT(log.captions(), ElementsAre("Source", "Entry Type"));
  EXPECT_EQ(log.title(), "Untitled Log");
  EXPECT_FALSE(log.isModified());
  EXPECT_FALSE(log.Append({"a.wav", "Pitch", {"1.0", "2.0"}}));
  EXPECT_FALSE(log.Append({"b.wav", "Time", {"3.0"}}));
  EXPECT_TRUE(log.isModified());
  EXPECT_THAT(log.captions(), ElementsAre("Source", "Entry Type", "Entry 1", "Entry 2"));
  EXPECT_EQ(*log.Cell(1, 2), "3.0");
  EXPECT_EQ(log.Cell(1, 3), nullptr);
  log = TableOf({"F", "G", "H"}, {{"0"}, {"1"}, {"2"}, {"3"}});
  for (const auto& wrong : {std::vector<std::size_t>{4}, {0, 9}}) {
    EXPECT_THROW(log.RemoveRows(wrong), std::out_of_range);
  }
  log.RemoveRows({});
  EXPECT_EQ(log.rows().size(), 4U);
  EXPECT_FALSE(log.isModified());
  log.RemoveRows(std::vector<std::size_t>{0, 2});
  EXPECT_THAT(log.rows(), ElementsAre(ElementsAre("1"), ElementsAre("3")));
  EXPECT_TRUE(log.isModified());
  log.Append({"a.wav", "Pitch", {"1.0", "2.0"}});
  EXPECT_THAT(log.captions(), ElementsAre("F", "G", "H", "Entry 2")) << "captioned by their place";
}

TEST(LogTextTest, ReadsLinesHoweverTheyEnd) {
  const struct {
    const char* name;
    std::string text;
    LogReading reading;
    std::vector<std::string> captions;
    std::vector<LogTable::Row> rows;
  } cases[] = {
      {"CR LF", "A\tB\t\r\n1\t2\t\r\n", LogReading::kRead, {"A", "B"}, {{"1", "2"}}},
      {"LF", "A\tB\t\n1\t2\t\n", LogReading::kRead, {"A", "B"}, {{"1", "2"}}},
      {"CR", "A\tB\t\r1\t2\t\r", LogReading::kRead, {"A", "B"}, {{"1", "2"}}},
      {"no last end", "\n\nA\tB\t\r\n\r\n1\t2\t", LogReading::kRead, {"A", "B"}, {{"1", "2"}}},
      {"text after the last TAB", "A\tB\tx\n1\t2\n", LogReading::kRead, {"A", "B"}, {{"1"}}},
      {"a row wider than the captions",
       "A\t\n1\t2\t\n",
       LogReading::kRead,
       {"A", ""},
       {{"1", "2"}}},
      {"a row without TAB", "A\t\nx\n", LogReading::kRead, {"A"}, {{}}},
      {"empty fields", "\t\t\n\t\n", LogReading::kRead, {"", ""}, {{""}}},
      {"only line ends", "\r\n\r\n", LogReading::kNotALog, {}, {}},
      {"no TAB", "A\n1\n", LogReading::kNotALog, {}, {}},
      {"999", "A\t" + std::string(997, 'x') + "\n", LogReading::kRead, {"A"}, {}},
      {"999 at the end", "A\t\n\t" + std::string(998, 'x'), LogReading::kRead, {"A"}, {{""}}},
      {"1000", "A\t\n\t" + std::string(999, 'x') + "\n", LogReading::kLineTooLong, {}, {}},
      {"1000 at the end", std::string(1000, 'x'), LogReading::kLineTooLong, {}, {}},
  };
  for (const auto& c : cases) {
    LogTable log = TableOf({"old"}, {{"kept"}});
    ASSERT_EQ(ReadLogText(c.text, log), c.reading) << c.name;
    const bool read = c.reading == LogReading::kRead;
    EXPECT_EQ(log.captions(), read ? c.captions : std::vector<std::string>{"old"}) << c.name;
    EXPECT_EQ(log.rows(), read ? c.rows : std::vector<LogTable::Row>{{"kept"}}) << c.name;
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

TEST_F(LogFileTest, SavedLogOpensAsTheSameTable) {
  LogTable log;
  log.Append({"a.wav", "Pitch", {"1.0", "\xE9"}});
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

TEST_F(LogFileTest, RefusedFilesLeaveTheLogAsItWas) {
  LogTable log;
  log.Append({"a.wav", "Pitch", {"1.0"}});
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
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("beep", kOpenError));
  EXPECT_EQ(LogText(log), before);
  EXPECT_TRUE(log.isModified());
  EXPECT_EQ(log.title(), "Untitled Log");
}

TEST_F(LogFileTest, FileInUseElsewhereIsNeitherReadNorReplaced) {
  Store("A\tB\t\r\n");
  LogTable log;
  {
    const File held = File::OpenForUpdate(path);
    EXPECT_FALSE(SaveLog(log, path, prompts));
    EXPECT_FALSE(OpenLog(log, path, prompts));
  }
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("beep", kOpenError, "beep", kOpenError));
  EXPECT_EQ(Stored(), "A\tB\t\r\n");
}

}  // namespace
}  // namespace cantorix
