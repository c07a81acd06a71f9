// option_texts.h - the texts of options that hold several values. Each function throws
// CLI::ValidationError, which names the option, for a text that does not hold them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "batch/request.h"

namespace cantorix::batch {

// The parts between the separators; at most `most` of them, the last one whole.
std::vector<std::string> Split(std::string_view text, char separator, std::size_t most);

// Whether `path` ends in `ending`, which is in small letters, in letters of any size.
bool HasEnding(std::string_view path, std::string_view ending);
// The number that `text` is, NaN when it is none.
double NumberOrNan(const std::string& text);

// "GROUP.FIELD=VALUE"
Assignment ParseAssignment(const std::string& text);
// "HEADER,RATE,8|16,low|high,binary|ascii"
GenericParameters ParseGeneric(const std::string& text);
// "cut", "select:MS:MS", "gain:PERCENT:REFERENCE", "label:TIER:MS:TEXT" and so on
EditStep ParseEditStep(const std::string& text);

// The keys of the label formats as a list, and the refusal of a key that none of them
// has, empty for others.
std::string LabelFormatKeys();
std::string IsLabelFormat(const std::string& key);

}  // namespace cantorix::batch
