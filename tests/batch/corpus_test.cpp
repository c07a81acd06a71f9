// corpus_test.cpp - the long tables of many recordings, against the tracks that they are taken from
// and labels known beforehand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>

#include "batch/command.h"
#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

const std::string kSpoken = SamplesDirectory() + "/vowels.qrv";

double Number(const std::string& cell) { return cell == "-" ? NAN : std::stod(cell); }

// A column of a verb's table over its times, and how the corpus table sums it up.
struct Quantity {
  std::string table;
  std::string name;
  Words verb;
  std::size_t column;
  std::function<bool(double)> counts;
};

class CorpusTest : public testing::Test {
 protected:
  std::size_t ColumnOf(const Table& table, const std::string& name) {
    const auto at = std::find(table.at(0).begin(), table.at(0).end(), name);
    EXPECT_NE(at, table[0].end()) << name;
    return static_cast<std::size_t>(at - table[0].begin());
  }

  // A stretch that ends with the recording holds its end, too.
  void ExpectSummed(const Table& rows, const Quantity& quantity, double durationMs) {
    const Table track = TableOf(OutOf(quantity.verb + Words{"--exact"}));
    const std::size_t first = ColumnOf(rows, quantity.name);
    const Words endings{"", "_mean", "_slope", "_1", "_2"};
    for (std::size_t k = 0; k < endings.size(); ++k) {
      ASSERT_EQ(rows[0].at(first + k), quantity.name + endings[k]);
    }
    for (std::size_t i = 1; i < rows.size(); ++i) {
      const double startMs = Number(rows[i][5]), endMs = Number(rows[i][6]);
      double frames = 0, n = 0, t = 0, v = 0, tt = 0, tv = 0, power = 0;
      // Entries of pitch span the recording, those of the others are 10 ms.
      const auto at = [&](double ms) {
        const std::size_t count = track.size() - 1;
        const double entryMs =
            quantity.table == "pitch" ? durationMs / static_cast<double>(count) : 10.0;
        const auto entry = static_cast<std::size_t>(ms / entryMs);
        return Number(track[std::min(entry, count - 1) + 1][quantity.column]);
      };
      for (std::size_t k = 1; k < track.size(); ++k) {
        const double ms = Number(track[k][0]);
        const double value = Number(track[k][quantity.column]);
        if (ms < startMs || (endMs == durationMs ? ms > endMs : ms >= endMs)) continue;
        ++frames;
        if (!quantity.counts(value)) continue;
        const double s = (ms - startMs) / 1000.0;
        ++n, t += s, v += value, tt += s * s, tv += s * value;
        power += std::pow(10.0, value / 10.0);
      }
      const double mean = quantity.table == "intensity" ? 10.0 * std::log10(power / frames) : v / n;
      const double slope = n < 2 ? NAN : (n * tv - t * v) / (n * tt - t * t);
      const double middles[] = {startMs, NAN, NAN, startMs + 0.25 * (endMs - startMs),
                                startMs + 0.75 * (endMs - startMs)};
      for (std::size_t k = 0; k < std::size(middles); ++k) {
        const double found = Number(rows[i][first + k]);
        double expected = k == 1 ? mean : slope;
        if (!std::isnan(middles[k])) {
          // A time where two entries meet may be either's.
          expected = at(middles[k] - 1e-6);
          if (found != expected) expected = at(middles[k] + 1e-6);
        }
        if (std::isnan(found) && std::isnan(expected)) continue;
        EXPECT_NEAR(found, expected, 1e-6 * (1.0 + std::abs(found))) << rows[0][first + k] << i;
      }
    }
  }

  CommandResult Corpus(const Words& words) {
    std::filesystem::remove_all(folder_ / "out");
    return RunBatch(Words{"corpus"} + words + Words{"-o", folder_ / "out", "-j", "2"});
  }
  std::string Text(const std::string& table) {
    return FileText(folder_ / ("out/" + table + ".tsv"));
  }

  TemporaryFolder folder_;
};

TEST_F(CorpusTest, SumsUpTheTracksBetweenLabels) {
  ASSERT_EQ(
      Corpus({kSpoken, "--do", "pitch,intensity,formants", "--exact", "--points", "2"}).exitCode,
      0);
  const Table pitch = TableOf(Text("pitch"));
  const Table labels = TableOf(OutOf({"labels", kSpoken, "--exact"}));
  ASSERT_EQ(pitch.size(), labels.size());
  const double durationMs = Number(pitch.back()[6]);
  for (std::size_t i = 1; i < labels.size(); ++i) {
    const bool isFirst = labels[i - 1][0] != labels[i][0];
    const bool isLast = i + 1 == labels.size() || labels[i + 1][0] != labels[i][0];
    const double startMs = Number(labels[i][2]);
    const double endMs = isLast ? durationMs : Number(labels[i + 1][2]);
    EXPECT_EQ(pitch[i][1], labels[i][0]);
    EXPECT_EQ(pitch[i][2], labels[i][1]);
    EXPECT_EQ(pitch[i][3], isFirst ? "-" : labels[i - 1][1]);
    EXPECT_EQ(pitch[i][4], isLast ? "-" : labels[i + 1][1]);
    EXPECT_EQ(Number(pitch[i][5]), startMs);
    EXPECT_EQ(Number(pitch[i][6]), endMs);
    EXPECT_NEAR(Number(pitch[i][7]), endMs - startMs, 1e-9);
  }
  const auto above0 = [](double value) { return value > 0.0; };
  ExpectSummed(pitch, {"pitch", "pitch_hz", {"pitch", kSpoken}, 1, above0}, durationMs);
  ExpectSummed(TableOf(Text("intensity")),
               {"intensity",
                "intensity_db",
                {"intensity", kSpoken},
                1,
                [](double value) { return std::isfinite(value); }},
               durationMs);
  for (std::size_t f = 1; f <= 5; ++f) {
    ExpectSummed(
        TableOf(Text("formants")),
        {"formants", "F" + std::to_string(f), {"formants", kSpoken, "--step", "10"}, f, above0},
        durationMs);
  }
}

class CorpusSourcesTest : public CorpusTest {
 protected:
  CorpusSourcesTest() {
    for (const char* const path : {"in/a-b", "in/a"}) {
      std::filesystem::create_directories(folder_ / path);
    }
    const std::string wave = Wave({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 1000);
    for (const char* const path : {"in/b.wav", "in/a/z.WAV", "in/a-b/1.wav", "in/a/notes.txt"}) {
      PutFile(folder_ / path, wave);
    }
    std::filesystem::create_symlink(folder_ / "in", folder_ / "in/a/back");
  }

  const std::string head_ = "tier\tlabel\tprevious\tnext\tstart_ms\tend_ms\tduration_ms\n";
  const std::string whole_ = "\t-\t-\t-\t-\t0.0\t10.0\t10.0\n";
};

TEST_F(CorpusSourcesTest, FoldersAreWalkedInTheOrderOfPathsAndWithoutLinks) {
  const std::string in = folder_ / "in";
  for (const std::string& folder : {in, in + "/"}) {
    EXPECT_EQ(Corpus({folder, in + "/b.wav", "--do", "labels,labels"}).exitCode, 0);
    EXPECT_EQ(Text("labels"), "recording\t" + head_ + in + "/a-b/1.wav" + whole_ + in + "/a/z.WAV" +
                                  whole_ + in + "/b.wav" + whole_ + in + "/b.wav" + whole_);
    EXPECT_EQ(Text("failed"), "recording\treason\n");
  }
}

TEST_F(CorpusSourcesTest, TablesHaveQuotesAndColumnsOfTheirOwn) {
  PutFile(folder_ / "all.csv",
          "speaker,\"the \"\"file\"\"\",age\r\n\"s,1\",in/b.wav,2\"0\n\ns\t2~\x7f,\"in/a/z.WAV\",\n"
          "\"\",in/none.wav,\"\"\"\"");
  const CommandResult result =
      Corpus({folder_ / "all.csv", "--column", "the \"file\"", "--do", "labels"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err,
            Filled("cantorix-batch: 1 recordings failed, see @/out/failed.tsv\n", folder_.path()));
  EXPECT_EQ(Text("labels"), "recording\tspeaker\tage\t" + head_ + "in/b.wav\ts,1\t2\"0" + whole_ +
                                "in/a/z.WAV\ts 2~\\x7f\t" + whole_);
  EXPECT_EQ(Text("failed"), Filled("recording\treason\nin/none.wav\t@/in/none.wav could not be "
                                   "opened. No such file or directory.\n",
                                   folder_.path()));
}

TEST_F(CorpusSourcesTest, LabelFilesStandBesideRecordings) {
  PutFile(folder_ / "in/b.csv", "tier,start_ms,end_ms,label\nw,2,4,x\nw,7,,z\nv,4,,y\n");
  EXPECT_EQ(Corpus({folder_ / "in/b.wav", "--do", "labels", "--labels", "csv"}).exitCode, 0);
  const std::string name = folder_ / "in/b.wav";
  EXPECT_EQ(Text("labels"), "recording\t" + head_ + name + "\tw\tx\t-\tz\t2.0\t7.0\t5.0\n" + name +
                                "\tw\tz\tx\t-\t7.0\t10.0\t3.0\n" + name +
                                "\tv\ty\t-\t-\t4.0\t10.0\t6.0\n");
  // At the very end the last column holds on.
  PutFile(folder_ / "in/b.csv", "tier,start_ms,end_ms,label\nw,10,,x\n");
  EXPECT_EQ(Corpus({name, "--do", "formants", "--labels", "csv", "--points", "0"}).exitCode, 0);
  const Table columns = TableOf(OutOf({"formants", name, "--step", "10"}));
  ASSERT_EQ(columns.size(), 2U);
  EXPECT_EQ(TableOf(Text("formants")).at(1).at(8), columns[1][1]);
  PutFile(folder_ / "in/b.csv", "tier,start_ms,end_ms,label\n");
  EXPECT_EQ(Corpus({folder_ / "in/b.wav", "--do", "labels", "--labels", "csv"}).exitCode, 1);
  EXPECT_EQ(Text("failed"),
            "recording\treason\n" + name + "\t" + (folder_ / "in/b.csv") + " holds no labels.\n");
}

TEST_F(CorpusSourcesTest, OfSeveralChannelsOneHasToBeNamed) {
  const std::string two = folder_ / "two.wav";
  PutFile(two, Wave({1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, 1000, 2));
  const std::string head = "recording\treason\n";
  const struct {
    Words words;
    std::string failed;
  } rows[] = {
      {{"--channel", "1"}, ""},
      {{"--channel", "2"}, ""},
      {{"--channel", "3"}, two + "\tchannel must be 1 to 2, not 3\n"},
      {{}, two + "\tchannel must be 1 to 2: the file has several\n"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Corpus(Words{two, "--do", "labels"} + row.words).exitCode,
              row.failed.empty() ? 0 : 1);
    EXPECT_EQ(Text("failed"), head + row.failed);
    EXPECT_EQ(Text("labels"), "recording\t" + head_ + (row.failed.empty() ? two + whole_ : ""));
  }
}

TEST_F(CorpusSourcesTest, RefusesWhatIsNoListOfRecordings) {
  PutFile(folder_ / "all.tsv", "file\tage\nin/b.wav\t1\n");
  PutFile(folder_ / "short.tsv", "file\tage\nin/b.wav\n");
  const struct {
    Words words;
    std::string fault;
  } rows[] = {
      {{"@/all.tsv", "--do", "labels", "--column", "path"}, "@/all.tsv: there is no column path"},
      {{"@/all.tsv", "@/in", "--do", "labels"}, "@/all.tsv: a table of recordings stands alone"},
      {{"@/short.tsv", "--do", "labels"}, "@/short.tsv: a row of 1 cells, not 2: in/b.wav"},
      {{"@/all.tsv", "--do", "labels,vowels"},
       "--do may hold pitch, intensity, formants and labels, not vowels"},
      {{"@/all.tsv", "--do", ""}, "--do must hold pitch, intensity, formants or labels"},
  };
  for (const auto& row : rows) {
    Words words;
    for (const std::string& word : row.words) words.push_back(Filled(word, folder_.path()));
    const CommandResult result = Corpus(words);
    EXPECT_EQ(result.exitCode, 2) << row.fault;
    EXPECT_EQ(result.err, "cantorix-batch: " + Filled(row.fault, folder_.path()) + "\n");
  }
}

}  // namespace
}  // namespace cantorix::batch
