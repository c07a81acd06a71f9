// widget_drawings_test.cpp - widgets that draw themselves, shape by shape, as somebody has approved
// them.
#include <gtest/gtest.h>

#include <limits>

#include "desktop/paint/drawing_recorder.h"
#include "desktop/sound/level_meter_view.h"
#include "desktop/sound/scope_view.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

std::string Shapes(QWidget& widget, QSize size) {
  widget.resize(size);
  DrawingRecorder recorder(size);
  widget.render(&recorder);
  return recorder.drawing.shapes.toStdString() + '\n';
}

TEST(WidgetDrawings, LevelsAreAsApproved) {
  constexpr double kNone = -std::numeric_limits<double>::infinity();
  const std::optional<InputLevel> kLevels[] = {
      std::nullopt,
      InputLevel{44100, {kNone, kNone, kNone, 0, -1}},
      InputLevel{44100, {-12.0, -9.0, -24.0, 0, -1}},
      InputLevel{44100, {-3.0, -0.5, -15.0, 2, 800}},
  };
  std::string sheets;
  for (const auto& level : kLevels) {
    LevelMeterView bar(Qt::Horizontal, nullptr);
    LevelMeterView column(Qt::Vertical, nullptr);
    bar.Show(level);
    column.Show(level);
    sheets += Shapes(bar, bar.sizeHint()) + Shapes(column, column.sizeHint());
  }
  LevelMeterView low(Qt::Vertical, nullptr);
  sheets += "too low for all numbers\n" + Shapes(low, {46, 60});
  ExpectText("desktop/expected/Levels.txt", sheets);
}

TEST(WidgetDrawings, AScopeShowsItsTrace) {
  ScopeCanvas canvas(nullptr);
  canvas.SetRate(1000);
  EXPECT_EQ(Shapes(canvas, {300, 90}).substr(0, 12), "image 300x90");
}

}  // namespace
}  // namespace cantorix
