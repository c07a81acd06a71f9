// statistics_texts.h - the statistics of a selection as a table that one can read, and what the
// numbers are the numbers of.
#pragma once

#include <string>
#include <vector>

#include "mainview/selection_statistics.h"

namespace cantorix {

struct StatisticsLine {
  std::string name;   // "Pitch mean"
  std::string value;  // one decimal; "–" for none
  std::string unit;   // "Hz"; empty for none
};

// Every value in the order of kStatisticsNames, times in the time base of the display. Without
// statistics: the names alone.
std::vector<StatisticsLine> StatisticsLines(const CSonadexView& view,
                                            const SelectionStatistics* statistics);

// What was measured how: method and step of the pitch, columns, order and points of the formants,
// and that the mean is not the average below the view. A sentence a line; empty without statistics.
// `settings` are those that the formants were computed with.
std::string StatisticsNote(const CSonadexView& view, const SelectionStatistics& statistics,
                           const SpectrogramSettings* settings);

}  // namespace cantorix
