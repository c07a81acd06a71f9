// bytes.cpp - fixed-width text fields.
#include "platform/bytes.h"

#include <algorithm>

namespace cantorix {
namespace {

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

// Length in bytes of the UTF-8 character that `lead` begins; 1 for a byte that begins none.
std::size_t CharacterBytes(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  if (byte >= 0xF0 && byte < 0xF8) return 4;
  if (byte >= 0xE0) return byte < 0xF0 ? 3 : 1;
  return byte >= 0xC0 ? 2 : 1;
}

}  // namespace

std::string LoadText(std::span<const std::byte> block, std::size_t offset, std::size_t width) {
  detail::RequireInside(offset, width, block.size());
  std::string text(width, '\0');
  std::memcpy(text.data(), block.data() + offset, width);
  text.resize(std::min(text.find('\0'), width));
  return text;
}

void StoreText(std::span<std::byte> block, std::size_t offset, std::size_t width,
               std::string_view text) {
  detail::RequireInside(offset, width, block.size());
  const std::string_view kept = CutText(text.substr(0, text.find('\0')), width - 1);
  std::fill_n(block.begin() + static_cast<std::ptrdiff_t>(offset), width, std::byte{0});
  std::memcpy(block.data() + offset, kept.data(), kept.size());
}

std::string_view CutText(std::string_view text, std::size_t maxBytes) {
  if (text.size() <= maxBytes) return text;
  // Step back to the lead byte of the character that the cut falls into.
  std::size_t lead = maxBytes;
  while (lead > 0 && maxBytes - lead < 3 && IsContinuation(text[lead])) --lead;
  const bool splitsCharacter = lead < maxBytes && lead + CharacterBytes(text[lead]) > maxBytes;
  return text.substr(0, splitsCharacter ? lead : maxBytes);
}

}  // namespace cantorix
