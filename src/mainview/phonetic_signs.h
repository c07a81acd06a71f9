// phonetic_signs.h - the signs of the International Phonetic Alphabet (chart of 2020) in the places
// that they have in its chart, and the two keys that give each of them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace cantorix {

// The tables of the chart.
enum class SignGroup { kConsonants, kVowels, kOthers, kSuprasegmentals, kDiacritics };

struct PhoneticSign {
  std::string_view sign;  // UTF-8
  std::string_view keys;  // two, one after the other; one that a keyboard has: itself
  SignGroup group;
  std::int32_t row;     // of its table
  std::int32_t column;  // consonants and vowels stand in pairs: voiceless left, unrounded left
  std::string_view name = {};  // empty: that of its row and column
};

std::span<const PhoneticSign> PhoneticSigns();
std::string_view TitleOf(SignGroup group);
// "voiced velar nasal", "open front unrounded vowel".
std::string NameOf(const PhoneticSign& sign);
// Whether the sign stands over or below the one before it.
bool IsCombining(const PhoneticSign& sign);

// The text with the two keys before `cursor` (bytes) replaced by their sign, and the cursor behind
// that; nothing when they are no pair.
struct SignedText {
  std::string text;
  std::size_t cursor = 0;
};
std::optional<SignedText> WithSign(std::string_view text, std::size_t cursor);

}  // namespace cantorix
