// text_decoding.h - the bytes of a text file of any of the usual encodings as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace cantorix {

// The text of `bytes` without its byte order mark. A mark decides between UTF-8 and UTF-16 of
// either order. Without one it is UTF-16 when its first characters have a zero byte each in the
// same half, UTF-8 when it is well-formed, and Windows-1252, which holds Latin-1, otherwise. Half
// surrogates become U+FFFD; a last odd byte of UTF-16 is dropped.
std::string DecodeText(std::string_view bytes);

}  // namespace cantorix
