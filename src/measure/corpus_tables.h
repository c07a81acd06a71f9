// corpus_tables.h - the long tables of a corpus: a row for each stretch from a label to the next of
// its tier, with the label's context and what was measured there.
// A recording without labels is one stretch. "-" stands for what there is not.
//
//   NAME          at the label's time
//   NAME_mean     over the stretch: pitch over voiced entries, intensity as the level of the mean
//                 power, formants over the columns that have them
//   NAME_slope    of the line of least squares through them, in units for each second
//   NAME_1 ... N  in the middle of each of N equal parts of the stretch
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "measure/analyses.h"

namespace cantorix {

enum class CorpusTable { kPitchTable, kIntensityTable, kFormantTable, kLabelTable };

struct CorpusWork {
  std::vector<CorpusTable> tables;
  int points = 5;           // N above
  bool exact = false;       // 17 significant digits, else one decimal
  std::string labelEnding;  // of the label files beside the recordings; empty: there are none
  MeasureOptions options;   // of the formants: the LPC order
};

inline constexpr int kMostCorpusPoints = 1000;

// "pitch", "intensity", "formants", "labels"
std::string_view NameOf(CorpusTable table);
// The tables of a list "pitch,labels", in its order. Throws WrongUsage.
std::vector<CorpusTable> CorpusTablesOf(std::string_view names);

// The line of names, with its line feed.
std::string CorpusHeader(CorpusTable table, const std::vector<std::string>& leading, int points);
// The rows of each table, in the order of the work; each begins with `leading`. Throws what the
// measurements throw.
std::vector<std::string> CorpusRows(CSonadexDoc& document, const CorpusWork& work,
                                    const std::string& leading, const Remark& remark);

}  // namespace cantorix
