// sound_scope_test.cpp - the running trace: what stands in which column, and what is painted again.
#include <gtest/gtest.h>

#include "desktop/sound/scope_trace.h"

namespace cantorix {
namespace {

constexpr QSize kSize{100, 65};
constexpr int kMiddle = 32;
// 4 seconds over 100 columns.
constexpr std::uint32_t kRateHz = 1000;
constexpr int kPerColumn = 40;

class ScopeTraceTest : public testing::TestWithParam<PaletteKind> {
 protected:
  ScopeTraceTest() { Begin(1.0); }
  void Begin(double ratio) {
    trace.Begin(kSize, ratio, style);
    trace.SetRate(kRateHz);
    empty = trace.image();
  }
  QRegion Draw(std::size_t count, std::int16_t value) {
    return trace.Draw(std::vector<std::int16_t>(count, value));
  }
  // First and last row of the trace's colour in a column; -1 where there is none.
  std::pair<int, int> Rows(int column, const QColor& color) const {
    int first = -1;
    int last = -1;
    for (int row = 0; row < trace.image().height(); ++row) {
      if (trace.image().pixelColor(column, row) != color) continue;
      if (first < 0) first = row;
      last = row;
    }
    return {first, last};
  }
  using Found = std::pair<int, int>;

  PaintStyle style = StyleOf(GetParam());
  ScopeTrace trace;
  QImage empty;
};

TEST_P(ScopeTraceTest, AColumnReachesFromItsLowestToItsHighestSample) {
  EXPECT_TRUE(Draw(kPerColumn - 1, 0).isEmpty()) << "no whole column yet";
  EXPECT_EQ(trace.image(), empty);
  EXPECT_FALSE(Draw(1, 0).isEmpty());
  EXPECT_EQ(Rows(0, style.waveform), Found(kMiddle, kMiddle));
  std::vector<std::int16_t> wave(kPerColumn, 0);
  wave[3] = 16384;
  wave[20] = -8192;
  trace.Draw(wave);
  EXPECT_EQ(Rows(1, style.waveform), Found(16, 40));
  wave[3] = 32767;
  trace.Draw(wave);
  EXPECT_EQ(Rows(2, style.waveform).first, -1);
  EXPECT_EQ(Rows(2, style.spectrumLpc), Found(0, 40)) << "another colour where it was clipped";
  // From a sample at the end of one column to the next one, without a hole.
  wave.assign(kPerColumn, -8192);
  trace.Draw(wave);
  EXPECT_EQ(Rows(3, style.waveform), Found(kMiddle, 40));
}

TEST_P(ScopeTraceTest, StartsAgainAtTheLeftBehindItsGap) {
  Draw(95 * kPerColumn, 16384);
  EXPECT_EQ(Rows(94, style.waveform).first, 16);
  EXPECT_EQ(trace.image().copy(95, 0, 5, 65), empty.copy(95, 0, 5, 65));
  EXPECT_EQ(trace.image().copy(0, 0, 7, 65), empty.copy(0, 0, 7, 65)) << "12 columns ahead";
  EXPECT_NE(trace.image().copy(7, 0, 1, 65), empty.copy(7, 0, 1, 65));
  const QRegion changed = Draw(3 * kPerColumn, -16384);
  EXPECT_EQ(changed, QRegion(95, 0, 5, 65) | QRegion(0, 0, 10, 65));
  Draw(4 * kPerColumn, -16384);
  EXPECT_EQ(Rows(1, style.waveform).first, 48);
  EXPECT_EQ(Rows(2, style.waveform).first, -1);
}

TEST_P(ScopeTraceTest, AFinerScreenHasTwiceTheColumns) {
  Begin(2.0);
  EXPECT_EQ(trace.image().size(), QSize(200, 130));
  const QRegion changed = Draw(20, 0);
  EXPECT_EQ(changed.boundingRect(), QRect(0, 0, 13, 65));
  const auto [first, last] = Rows(0, style.waveform);
  EXPECT_EQ(last - first, 1) << "as thick as on another screen";
  Draw(20, 32767);
  EXPECT_EQ(Rows(1, style.spectrumLpc).first, 0);
}

INSTANTIATE_TEST_SUITE_P(BothPalettes, ScopeTraceTest,
                         testing::Values(PaletteKind::kLight, PaletteKind::kDark),
                         [](const auto& kind) {
                           return kind.param == PaletteKind::kDark ? "Dark" : "Light";
                         });

}  // namespace
}  // namespace cantorix
