// printable.cpp - control characters are those below 32, 127, and 128 to 159 in either coding.
#include "measure/printable.h"

#include "platform/text.h"

namespace cantorix {
namespace {

bool IsUpperControl(unsigned char byte) { return byte >= 0x80 && byte <= 0x9F; }

void AppendEscape(std::string& text, unsigned char byte) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  text.append("\\x") += kDigits[byte >> 4U];
  text += kDigits[byte & 15U];
}

}  // namespace

std::string Printable(std::string_view bytes, Tabs tabs) {
  const bool utf8 = IsUtf8(bytes);
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (byte == '\n' || byte == '\r' || (byte == '\t' && tabs == Tabs::kBlanks)) {
      text += ' ';
    } else if (byte == '\t') {
      text += '\t';
    } else if (byte < 0x20 || byte == 0x7F || (!utf8 && IsUpperControl(byte))) {
      AppendEscape(text, byte);
    } else if (utf8 && byte == 0xC2 && IsUpperControl(static_cast<unsigned char>(bytes[i + 1]))) {
      AppendEscape(text, static_cast<unsigned char>(bytes[++i]));
    } else {
      text += bytes[i];
    }
  }
  return text;
}

}  // namespace cantorix
