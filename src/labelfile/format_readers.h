// format_readers.h - the readers of all formats of label files. Each takes the whole text in UTF-8
// without a byte order mark, gives what can be read of it, with a note for what cannot, and throws
// LabelFileError when the text is not of its format. None recurses or allocates by a count that the
// text states.
#pragma once

#include <string>
#include <string_view>

#include "labelfile/label_file.h"

namespace cantorix {

// What a file of labels leaves open.
struct LabelReading {
  double rateHz = 0.0;        // of the recording: some formats count its samples
  bool milliseconds = false;  // unit of plain text; else seconds
  std::string recordingStem;  // the recording's name without folder and ending
};

// Praat's text files, long and short.
LabelFile ReadTextGrid(std::string_view text, const LabelReading& how);
// ELAN's .eaf.
LabelFile ReadElan(std::string_view text, const LabelReading& how);
// EMU's _annot.json.
LabelFile ReadEmu(std::string_view text, const LabelReading& how);
// Audacity's label tracks, whose lines of frequencies are passed over.
LabelFile ReadAudacity(std::string_view text, const LabelReading& how);
// .phn and .wrd: start and end in samples.
LabelFile ReadSampleLines(std::string_view text, const LabelReading& how);
// ESPS/xwaves: a head up to a line "#", then times in seconds, at which segments end, or which are
// points.
LabelFile ReadEspsSegments(std::string_view text, const LabelReading& how);
LabelFile ReadEspsPoints(std::string_view text, const LabelReading& how);
// HTK: start and end in units of 100 ns.
LabelFile ReadHtk(std::string_view text, const LabelReading& how);
// A table with a heading, separated by commas, semicolons or tabs.
LabelFile ReadTable(std::string_view text, const LabelReading& how);
// Lines "Time<tab>Label".
LabelFile ReadPlainText(std::string_view text, const LabelReading& how);

}  // namespace cantorix
