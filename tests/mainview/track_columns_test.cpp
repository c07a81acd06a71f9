// track_columns_test.cpp - entries and extents under a column.
#include "mainview/track_columns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace cantorix {
namespace {

TEST(TrackColumns, HoldTheEntriesThatStandInThem) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  std::vector<double> values(1000);
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = i % 7 == 0 ? 0.0 : i % 11 == 0 ? nan : 100.0 + 50.0 * std::sin(double(i));
  }
  for (const TrackPlace place :
       {TrackPlace{0.0, 0.1}, TrackPlace{-40.3, 0.37}, TrackPlace{12.0, 0.05}, TrackPlace{0.0, 3.0},
        TrackPlace{5000.0, 1.0}}) {
    const auto columns = TrackColumns(values, place, 90, 0.0);
    for (std::size_t c = 0; c < columns.size(); ++c) {
      ValueExtent expected;
      for (std::size_t i = 0; i < values.size(); ++i) {
        const double x = place.X(static_cast<double>(i));
        if (x < static_cast<double>(c) || x >= static_cast<double>(c + 1)) continue;
        if (!(values[i] > 0.0)) continue;
        const bool first = expected.empty();
        expected.low = first ? values[i] : std::min(expected.low, values[i]);
        expected.high = first ? values[i] : std::max(expected.high, values[i]);
      }
      EXPECT_EQ(columns[c].low, expected.low) << place.step << ' ' << c;
      EXPECT_EQ(columns[c].high, expected.high) << place.step << ' ' << c;
    }
  }
}

TEST(TrackColumns, ALineRunsOnToTheEdges) {
  const TrackPlace place{0.0, 10.0};
  struct Row {
    double from, to;
    std::size_t first, last;
  };
  for (const Row& row : {Row{25.0, 55.0, 2, 7}, Row{-5.0, 5.0, 0, 2}, Row{85.0, 500.0, 8, 10},
                         Row{1000.0, 2000.0, 9, 10}, Row{-50.0, -20.0, 0, 1}}) {
    const EntryRange range = EntriesAround(10, place, row.from, row.to);
    EXPECT_EQ(range.first, row.first) << row.from;
    EXPECT_EQ(range.last, row.last) << row.from;
  }
}

}  // namespace
}  // namespace cantorix
