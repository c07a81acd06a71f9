// statistics_frame_test.cpp - the window of what a selection measures.
#include "desktop/statistics_frame.h"

#include <QClipboard>
#include <QPushButton>
#include <QTableWidget>

#include "desktop/analysis_fixture.h"
#include "desktop/dialog_sheet.h"
#include "desktop/log_frame.h"
#include "mainview/editing.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

class StatisticsFrameTest : public AnalysisDesktopTest {
 protected:
  StatisticsFrame& Window() { return frame.statistics(); }
  // "Pitch mean 203.7 Hz", as it is shown.
  std::string Line(int row) {
    QStringList cells;
    for (int i = 0; i < 3; ++i) cells << Window().table().item(row, i)->text();
    return cells.join(' ').toStdString();
  }
  bool Shows(int row, const std::string& line) {
    return QTest::qWaitFor([&] { return Line(row) == line; });
  }
};

TEST_F(StatisticsFrameTest, FollowsTheSelectionInFront) {
  CSonadexView& view = OpenSample();
  Perform(Command::kStatistics);
  EXPECT_FALSE(Window().isVisible()) << "greyed without a selection";
  Select(view, 100.0, 350.5);
  Perform(Command::kStatistics);
  EXPECT_TRUE(Shows(2, "Duration 250.5 ms"));
  EXPECT_EQ(Line(5), "Pitch mean \u2013 Hz");
  EXPECT_TRUE(Window().note().startsWith("No pitch yet."));
  Perform(Command::kPitchAll);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Line(5) != "Pitch mean \u2013 Hz"; }));
  EXPECT_TRUE(Window().note().startsWith("Pitch: AutoCorrolation, 27 voiced of 27 entries, "))
      << Window().note().toStdString();
  EXPECT_TRUE(Window().note().contains("Mean of the voiced entries. 'Average Pitch' below"));
  EXPECT_EQ(Line(13), "F1 \u2013 Hz");
  view.document().settings.spectrogram.trackFormants = 1;
  windows.Open(view, {WindowKind::kSpectrogram, Stretch::kSelection});
  Select(view, 100.0, 300.0);
  EXPECT_TRUE(Shows(2, "Duration 200.0 ms"));
  EXPECT_NE(Line(13), "F1 \u2013 Hz");
  EXPECT_TRUE(Window().note().contains("order 14, 64 points"));
  view.document().settings.display.timeBase = 1;
  view.Changed(DocumentChange::kSettings);
  EXPECT_TRUE(Shows(2, "Duration 0.200 s"));
  frame.NewDocument();
  EXPECT_TRUE(Shows(2, "Duration \u2013 ms")) << "of the one in front, which has none";
}

TEST_F(StatisticsFrameTest, TwiceTheCommandIsOneRow) {
  CSonadexView& view = OpenSample();
  Select(view, 100.0, 350.5);
  Perform(Command::kStatistics);
  Perform(Command::kStatistics);
  EXPECT_FALSE(app.log) << "and no log is begun for it";
  EXPECT_TRUE(Shows(2, "Duration 250.5 ms"));
  std::string seen = SheetOf(Window());
  Perform(Command::kLogNew);
  ExpectText("desktop/expected/Statistics.txt", seen + SheetOf(Window()));
  Select(view, 100.0, 300.0);
  Perform(Command::kStatistics);
  ASSERT_EQ(app.log->rows().size(), 1U);
  EXPECT_EQ(app.log->rows()[0][1].substr(0, 27), "Statistics Entry: start, en");
  EXPECT_EQ(app.log->rows()[0][4], "200.0") << "the selection as it is now";
  EXPECT_TRUE(frame.log().isWindowModified());
  Window().Copy();
  EXPECT_EQ(QApplication::clipboard()->text().section('\n', 2, 2), "Duration\t200.0\tms");
  Window().Dock(true);
  QTest::keyClick(&Window().table(), Qt::Key_Escape);
  EXPECT_TRUE(Window().isVisible());
  Window().Dock(false);
  QTest::keyClick(&Window().table(), Qt::Key_Escape);
  EXPECT_FALSE(Window().isVisible());
}

}  // namespace
}  // namespace cantorix
