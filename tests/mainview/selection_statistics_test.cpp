// selection_statistics_test.cpp - the extremes of a stretch, read and from the pyramid.
#include "mainview/selection_statistics.h"

#include <gtest/gtest.h>

#include "mainview/view_fixture.h"
#include "mainview/waveform_pyramid.h"

namespace cantorix {
namespace {

TEST(SelectionStatisticsTest, ExtremesAreThoseOfExactlyTheStretch) {
  ViewWorld around;
  CSonadexDoc document{around.test.host};
  Samples samples(10000, 0);
  // Sample 500 to 2499, which neither begin nor end a piece of the pyramid.
  for (const auto& [at, value] : {std::pair{499, 900},
                                  {500, 5},
                                  {511, -7},
                                  {1024, 20},
                                  {1500, -30},
                                  {2304, 11},
                                  {2499, 40},
                                  {2500, -900}}) {
    samples[static_cast<std::size_t>(at)] = static_cast<std::int16_t>(value);
  }
  Hold(document, samples, 10000.0);
  CSonadexView view{document, around.Services()};
  view.Begin({1045, 500});
  const WaveformPyramid pyramid(document.Samples());
  struct Row {
    double startMs, endMs;
    int least, most;
  };
  for (const Row& row : {Row{50.0, 250.0, -30, 40},
                         {50.1, 249.9, -30, 20},
                         {50.0, 51.1, 0, 5},
                         {50.0, 51.2, -7, 5},
                         {49.9, 240.0, -30, 900},
                         {60.0, 250.1, -900, 40}}) {
    for (const WaveformPyramid* const from :
         {&pyramid, static_cast<const WaveformPyramid*>(nullptr)}) {
      const auto found = StatisticsOf(view, {row.startMs, row.endMs}, nullptr, from);
      EXPECT_EQ(found.leastSample, row.least) << row.startMs << ' ' << row.endMs;
      EXPECT_EQ(found.mostSample, row.most) << row.startMs << ' ' << row.endMs;
    }
  }
  EXPECT_FALSE(StatisticsOf(view, {50.0, 50.0}, nullptr, &pyramid).leastSample) << "none in it";
}

}  // namespace
}  // namespace cantorix
