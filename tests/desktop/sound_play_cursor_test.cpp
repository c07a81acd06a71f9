// sound_play_cursor_test.cpp - where a recording sounds, in its windows, and that nothing else is
// painted for it.
#include <QPaintEvent>

#include "desktop/analysis_fixture.h"
#include "mainview/editing.h"
#include "mainview/time_axis.h"
#include "mainview/view_commands.h"
#include "mainview/zoom.h"

namespace cantorix {
namespace {

// Notes what a widget is asked to paint.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& watched) { watched.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      painted |= static_cast<QPaintEvent*>(event)->region();
    }
    return false;
  }
  QRegion Take() {
    QApplication::processEvents();
    return std::exchange(painted, {});
  }
  QRegion painted;
};

class PlayCursorTest : public AnalysisDesktopTest {
 protected:
  static QColor ColorOf(const QWidget& canvas) { return StyleFor(canvas.palette()).played; }
  // Columns of the line in the middle of the picture.
  static std::vector<int> Columns(QWidget& canvas) {
    const QImage image = canvas.grab().toImage();
    std::vector<int> columns;
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, image.height() / 3) == ColorOf(canvas)) columns.push_back(x);
    }
    return columns;
  }
};

TEST_F(PlayCursorTest, StandsAtItsTimeAndLeavesTheSight) {
  CSonadexView& view = OpenSample();
  MainViewWidget& picture = Picture();
  EXPECT_TRUE(Columns(picture).empty());
  const auto columnOf = [&](double ms) {
    return static_cast<int>(TimeAxisOf(view.channel(), view.layout.axisWidth()).X(ms));
  };
  for (const double ms : {0.0, 1234.5, 5400.0}) {
    picture.ShowPlayed(ms);
    EXPECT_THAT(Columns(picture), testing::ElementsAre(columnOf(ms), columnOf(ms) + 1)) << ms;
  }
  picture.ShowPlayed(100.0);
  SelectSpan(view, 1000.0, 2000.0);
  ZoomView(view, Zoom::kSelection);
  EXPECT_TRUE(Columns(picture).empty()) << "not in sight";
  picture.ShowPlayed(1500.0);
  EXPECT_THAT(Columns(picture), testing::ElementsAre(columnOf(1500.0), columnOf(1500.0) + 1));
  EXPECT_EQ(view.channel().visibleStart.ms, 1000.0) << "the stretch stays";
  picture.ShowPlayed(std::nullopt);
  EXPECT_TRUE(Columns(picture).empty());
}

TEST_F(PlayCursorTest, PaintsItsOldAndNewColumnAloneFromWhatIsKept) {
  CSonadexView& view = OpenSample();
  windows.Open(view, {WindowKind::kSpectrogram, Stretch::kAll});
  windows.Open(view, {WindowKind::kPitch, Stretch::kWindow});
  QApplication::processEvents();
  AnalysisFrame& levels = *windows.Find(view, WindowKind::kSpectrogram);
  AnalysisCanvas& spectrogram = levels.canvas();
  AnalysisCanvas& pitch = windows.Find(view, WindowKind::kPitch)->canvas();
  const std::pair<QWidget*, std::function<void(double)>> rows[] = {
      {&Picture(), [&](double ms) { Picture().ShowPlayed(ms); }},
      {&spectrogram, [&](double ms) { windows.ShowPlayed(view.document(), ms); }},
      {&pitch, [&](double ms) { windows.ShowPlayed(view.document(), ms); }},
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return !levels.model().UpdateDue(); }));
  // Whoever computed or painted anew would show other samples.
  std::ranges::fill(view.channel().samples.samples(), std::int16_t{0});
  for (const auto& [canvas, show] : rows) {
    SCOPED_TRACE(canvas->accessibleName().toStdString());
    const QImage before = canvas->grab().toImage();
    show(2000.0);
    ASSERT_EQ(Columns(*canvas).size(), 2U);
    const int old = Columns(*canvas)[0];
    PaintWatch watch(*canvas);
    watch.Take();
    show(3000.0);
    const int now = Columns(*canvas)[0];
    watch.painted = {};
    show(2000.0);
    for (const QRect& part : watch.Take()) {
      EXPECT_LE(part.width(), 10);
      const int middle = part.center().x();
      EXPECT_TRUE(std::abs(middle - old) <= 5 || std::abs(middle - now) <= 5) << middle;
    }
    show(2000.0);
    EXPECT_TRUE(watch.Take().isEmpty()) << "it stands";
    show(-1.0);
    EXPECT_EQ(canvas->grab().toImage(), before);
  }
}

TEST_F(PlayCursorTest, StaysAwayFromAnotherRecordingAndFromWhatWasBeforeAnEdit) {
  CSonadexView& view = OpenSample();
  windows.Open(view, {WindowKind::kSpectrogram, Stretch::kAll});
  AnalysisCanvas& spectrogram = windows.Find(view, WindowKind::kSpectrogram)->canvas();
  CSonadexDoc other(app.host);
  windows.ShowPlayed(other, 2000.0);
  EXPECT_TRUE(Columns(spectrogram).empty());
  windows.ShowPlayed(view.document(), 2000.0);
  EXPECT_EQ(Columns(spectrogram).size(), 2U);
  windows.Find(view, WindowKind::kSpectrogram)
      ->model()
      .DocumentChanged(DocumentChange::kSamples, nullptr);
  EXPECT_TRUE(Columns(spectrogram).empty()) << "its times are those of the earlier recording";
}

}  // namespace
}  // namespace cantorix
