// axis_ticks_test.cpp - steps, texts and ends of axes, and the texts of the readout strip.
#include "mainview/axis_ticks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "mainview/readout_texts.h"
#include "support/expected_text.h"
#include "support/joined.h"

namespace cantorix {
namespace {

std::string Texts(const std::vector<AxisTick>& ticks) {
  return JoinedEach(ticks, [](const AxisTick& tick) { return tick.text; });
}

TEST(AxisTicks, StandAtRoundNumbersInsideTheSpan) {
  std::string text;
  for (const auto& [span, leastPixels] : {std::pair{AxisSpan{0.0, 1.0, 100.0}, 50.0},
                                          {{-1.0, 1.0, 100.0}, 50.0},
                                          {{0.0, 0.3, 300.0}, 100.0},
                                          {{1234.5, 1240.2, 285.0}, 50.0},
                                          {{36000000.0, 36000000.05, 100.0}, 40.0},
                                          {{0.0, 190.0, 200.0}, 45.0}}) {
    text += Texts(NiceTicks(span, leastPixels)) + '\n';
  }
  text += Texts(TimeTicks({0.0, 1000.0, 200.0}, 90.0, 0)) + '\n';
  text += Texts(TimeTicks({0.0, 1000.0, 200.0}, 90.0, 1)) + '\n';
  ExpectText("mainview/expected/Ticks.txt", text);
  for (const AxisSpan& none :
       {AxisSpan{0.0, 0.0, 100.0}, {0.0, 1.0, 0.0}, {0.0, NAN, 100.0}, {0.0, HUGE_VAL, 100.0}}) {
    EXPECT_TRUE(NiceTicks(none, 50.0).empty());
  }
  EXPECT_TRUE(TicksEvery({0.0, 1e9, 100.0}, 1.0).empty()) << "a grid too dense to be seen";
}

TEST(AxisTicks, AreNeverCloserThanAskedAndNeverFarApart) {
  for (int power = 0; power < 43; ++power) {
    const double length = 0.0137 * std::pow(1.7, power);
    const AxisSpan span{length * 0.31, length * 1.31, 640.0};
    const double pixels = NiceStep(span, 60.0) / length * 640.0;
    EXPECT_GE(pixels, 60.0 * (1.0 - 1e-6)) << length;
    EXPECT_LE(pixels, 60.0 * 2.5 * (1.0 + 1e-6)) << length;
  }
}

TEST(AxisTicks, AreInStepWithAGrid) {
  struct Row {
    double high, pixels, leastPixels, gridStep, step;
  };
  for (const Row& row :
       {Row{450.0, 400.0, 30.0, 20.0, 40.0}, Row{5000.0, 500.0, 20.0, 1000.0, 200.0},
        Row{5000.0, 500.0, 40.0, 300.0, 600.0}, Row{5000.0, 500.0, 40.0, 0.0, 500.0},
        Row{80.0, 400.0, 25.0, 20.0, 5.0}}) {
    EXPECT_DOUBLE_EQ(StepBesideGrid({0.0, row.high, row.pixels}, row.leastPixels, row.gridStep),
                     row.step)
        << row.gridStep;
  }
}

TEST(ReadoutTexts, NameTheTimeBaseAndHaveOneDecimal) {
  const Readouts readouts{.pitchHz = 123.46,
                          .intensityDb = -std::numeric_limits<double>::infinity(),
                          .durationMs = 98765.4,
                          .cursorMs = 1234.5,
                          .averagePitchHz = 0.0};
  const auto strip = [&](std::int32_t timeBase) {
    return JoinedEach(ReadoutTexts(readouts, 22050.9, timeBase), [](const ReadoutText& text) {
      return std::string(text.label) + "|" + text.value;
    });
  };
  EXPECT_EQ(strip(0),
            "Sample Rate(Hz)=|22050 Pitch(Hz)=|123.5 Int.(dB)=|-inf Duration(ms)= |98765.4 "
            "Cursor(ms)= |1234.5 Average Pitch(Hz)=|0.0");
  EXPECT_EQ(strip(1),
            "Sample Rate(Hz)=|22050 Pitch(Hz)=|123.5 Int.(dB)=|-inf Duration(sec)= |98.8 "
            "Cursor(sec)= |1.2 Average Pitch(Hz)=|0.0");
}

}  // namespace
}  // namespace cantorix
