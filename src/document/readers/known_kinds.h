// known_kinds.h - kinds of sound file that are told by their first letters, whether or not anything
// here can decode them: nobody should be asked how to read a file whose kind is known.
#pragma once

#include <string_view>

namespace cantorix {

class File;

// "a FLAC file"; empty for a file of none of these kinds.
std::string_view KnownKindOf(const File& file);

}  // namespace cantorix
