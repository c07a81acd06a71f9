// label_import.h - labels from a text file of lines "Time<tab>Label".
// The caller reads the file, chooses the tier and adds the labels at its end, in order.
#pragma once

#include <string_view>
#include <vector>

#include "document/label_import_options.h"

namespace cantorix {

struct Label;

// The labels of the whole file `bytes`, in its order; times are not compared with the recording.
// A UTF-8 mark at its start is skipped. Lines end at every CR and every LF. A line is ignored
// unless it begins with a digit or a point, has fewer than 1000 bytes and a time that is a finite
// number. The label's text is everything after the line's first TAB, cut to kMaxLabelBytes; it may
// be empty.
std::vector<Label> ReadLabelLines(std::string_view bytes, const LabelImportOptions& options);

}  // namespace cantorix
