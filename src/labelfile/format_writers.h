// format_writers.h - the writers of all formats of label files. Each gives the whole file in UTF-8
// for labels that were made fit for its format (fit_to_format.h).
#pragma once

#include <string>

#include "labelfile/label_file.h"

namespace cantorix {

std::string WriteTextGrid(const LabelFile& file);
std::string WriteElan(const LabelFile& file);
std::string WriteEmu(const LabelFile& file);
std::string WriteAudacity(const LabelFile& file);
std::string WriteSampleLines(const LabelFile& file);
std::string WriteEspsSegments(const LabelFile& file);
std::string WriteEspsPoints(const LabelFile& file);
std::string WriteHtk(const LabelFile& file);
std::string WriteCommaTable(const LabelFile& file);
std::string WriteTabTable(const LabelFile& file);
// Times in seconds, or in milliseconds.
std::string WritePlainText(const LabelFile& file);
std::string WritePlainTextMs(const LabelFile& file);

}  // namespace cantorix
