// field_text.h - settings by name and text, for the command line: "pitch.stepMs=5".
// Numbers are read and written with a decimal point whatever the user's locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/field_table.h"

namespace cantorix {

// The value as text. A double has the fewest digits that read back as the same value.
std::string FieldText(const Settings& settings, const Field& field);

// Sets the field called "GROUP.FIELD" from `text`. Returns nothing on success, else one sentence
// that names the field and says why, with `settings` untouched: no such field, not a number, out
// of the range of the field, too long.
std::optional<std::string> SetFieldFromText(Settings& settings, std::string_view fullName,
                                            std::string_view text);

}  // namespace cantorix
