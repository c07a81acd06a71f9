// strip_fields_test.cpp - the fields in the strip of an analysis window, wide and narrow.
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <QToolBar>

#include "desktop/analysis_fixture.h"
#include "desktop/windows/spectrogram_frame.h"

namespace cantorix {
namespace {

class StripFieldsTest : public AnalysisDesktopTest {};

// Beside a spectrum on a screen of 1280 pixels, with letters a little wider than usual.
TEST_F(StripFieldsTest, ANarrowStripShowsAllItsFields) {
  CSonadexView& view = OpenSample();
  Perform(Command::kSpectrogramAll);
  AnalysisFrame& window = Find(view, WindowKind::kSpectrogram);
  const auto namesShown = [&](int width) {
    window.resize(width, 300);
    QApplication::processEvents();
    int names = 0;
    for (const QLabel* const name : window.findChild<QToolBar*>()->findChildren<QLabel*>()) {
      names += name->isVisible() ? 1 : 0;
    }
    return names;
  };
  EXPECT_EQ(namesShown(930), 0);
  const auto numbers = window.findChildren<QSpinBox*>();
  ASSERT_EQ(numbers.size(), 3);
  EXPECT_EQ(numbers[0]->text(), "LPC 14");
  for (const QSpinBox* const number : numbers) EXPECT_TRUE(number->isVisible());
  const auto& colors = dynamic_cast<CSpectrogramFrame&>(window).colors();
  EXPECT_TRUE(colors.isVisible());
  EXPECT_LE(colors.geometry().right(), 930 - 8);
  EXPECT_EQ(namesShown(1900), 5);
  EXPECT_EQ(numbers[0]->text(), "14");
}

}  // namespace
}  // namespace cantorix
