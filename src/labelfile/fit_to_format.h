// fit_to_format.h - labels as a format can hold them, and in words what it cannot.
#pragma once

#include <string>
#include <vector>

#include "labelfile/label_formats.h"

namespace cantorix {

struct FittedLabels {
  LabelFile file;                   // what the format's writer takes
  std::vector<std::string> losses;  // a sentence for each thing that does not come back
};

// `file` holds points, in any order. As intervals they last until the next label of their tier, the
// last one until the end; a format that has only one of the two decides by itself.
FittedLabels FitToFormat(LabelFile file, const LabelFormat& format, bool asIntervals);

}  // namespace cantorix
