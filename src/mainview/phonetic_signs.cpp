// phonetic_signs.cpp - long because it is one table: a sign, its keys, its place.
#include "mainview/phonetic_signs.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace cantorix {
namespace {

using enum SignGroup;

// clang-format off
constexpr PhoneticSign kSigns[] = {
    {"p", "p", kConsonants, 0, 0}, {"b", "b", kConsonants, 0, 1}, {"t", "t", kConsonants, 0, 6},
    {"d", "d", kConsonants, 0, 7}, {"ʈ", "t>", kConsonants, 0, 10},
    {"ɖ", "d>", kConsonants, 0, 11}, {"c", "c", kConsonants, 0, 12},
    {"ɟ", "j#", kConsonants, 0, 13}, {"k", "k", kConsonants, 0, 14},
    {"ɡ", "g=", kConsonants, 0, 15}, {"q", "q", kConsonants, 0, 16},
    {"ɢ", "g&", kConsonants, 0, 17}, {"ʔ", "?=", kConsonants, 0, 20},
    {"m", "m", kConsonants, 1, 1}, {"ɱ", "m>", kConsonants, 1, 3}, {"n", "n", kConsonants, 1, 7},
    {"ɳ", "n>", kConsonants, 1, 11}, {"ɲ", "n+", kConsonants, 1, 13},
    {"ŋ", "n=", kConsonants, 1, 15}, {"ɴ", "n&", kConsonants, 1, 17},
    {"ʙ", "b&", kConsonants, 2, 1}, {"r", "r", kConsonants, 2, 7}, {"ʀ", "r&", kConsonants, 2, 17},
    {"ⱱ", "v>", kConsonants, 3, 3}, {"ɾ", "r=", kConsonants, 3, 7},
    {"ɽ", "r>", kConsonants, 3, 11},
    {"ɸ", "f=", kConsonants, 4, 0}, {"β", "b=", kConsonants, 4, 1}, {"f", "f", kConsonants, 4, 2},
    {"v", "v", kConsonants, 4, 3}, {"θ", "t=", kConsonants, 4, 4}, {"ð", "d=", kConsonants, 4, 5},
    {"s", "s", kConsonants, 4, 6}, {"z", "z", kConsonants, 4, 7}, {"ʃ", "s=", kConsonants, 4, 8},
    {"ʒ", "z=", kConsonants, 4, 9}, {"ʂ", "s>", kConsonants, 4, 10},
    {"ʐ", "z>", kConsonants, 4, 11}, {"ç", "c=", kConsonants, 4, 12},
    {"ʝ", "j=", kConsonants, 4, 13}, {"x", "x", kConsonants, 4, 14},
    {"ɣ", "g+", kConsonants, 4, 15}, {"χ", "x=", kConsonants, 4, 16},
    {"ʁ", "r#", kConsonants, 4, 17}, {"ħ", "h=", kConsonants, 4, 18},
    {"ʕ", "?+", kConsonants, 4, 19}, {"h", "h", kConsonants, 4, 20},
    {"ɦ", "h&", kConsonants, 4, 21},
    {"ɬ", "l=", kConsonants, 5, 6}, {"ɮ", "l#", kConsonants, 5, 7},
    {"ʋ", "v=", kConsonants, 6, 3}, {"ɹ", "r+", kConsonants, 6, 7},
    {"ɻ", "r@", kConsonants, 6, 11}, {"j", "j", kConsonants, 6, 13},
    {"ɰ", "w=", kConsonants, 6, 15},
    {"l", "l", kConsonants, 7, 7}, {"ɭ", "l>", kConsonants, 7, 11},
    {"ʎ", "l+", kConsonants, 7, 13}, {"ʟ", "l&", kConsonants, 7, 15},
    {"i", "i", kVowels, 0, 0}, {"y", "y", kVowels, 0, 1}, {"ɨ", "i=", kVowels, 0, 4},
    {"ʉ", "u=", kVowels, 0, 5}, {"ɯ", "u+", kVowels, 0, 8}, {"u", "u", kVowels, 0, 9},
    {"ɪ", "i+", kVowels, 1, 2}, {"ʏ", "y=", kVowels, 1, 3}, {"ʊ", "u&", kVowels, 1, 7},
    {"e", "e", kVowels, 2, 0}, {"ø", "o+", kVowels, 2, 1}, {"ɘ", "e#", kVowels, 2, 4},
    {"ɵ", "o=", kVowels, 2, 5}, {"ɤ", "o#", kVowels, 2, 8}, {"o", "o", kVowels, 2, 9},
    {"ə", "e=", kVowels, 3, 4},
    {"ɛ", "e+", kVowels, 4, 0}, {"œ", "o&", kVowels, 4, 1}, {"ɜ", "e&", kVowels, 4, 4},
    {"ɞ", "e@", kVowels, 4, 5}, {"ʌ", "u#", kVowels, 4, 8}, {"ɔ", "o<", kVowels, 4, 9},
    {"æ", "a+", kVowels, 5, 0}, {"ɐ", "a&", kVowels, 5, 4},
    {"a", "a", kVowels, 6, 0}, {"ɶ", "o@", kVowels, 6, 1}, {"ɑ", "a=", kVowels, 6, 8},
    {"ɒ", "a#", kVowels, 6, 9},
    {"ʘ", "p!", kOthers, 0, 0, "bilabial click"},
    {"ǀ", "t!", kOthers, 0, 1, "dental click"},
    {"ǃ", "!=", kOthers, 0, 2, "alveolar click"},
    {"ǂ", "c!", kOthers, 0, 3, "palatoalveolar click"},
    {"ǁ", "l!", kOthers, 0, 4, "lateral click"},
    {"ɓ", "b<", kOthers, 1, 0, "bilabial implosive"},
    {"ɗ", "d<", kOthers, 1, 1, "alveolar implosive"},
    {"ʄ", "j<", kOthers, 1, 2, "palatal implosive"},
    {"ɠ", "g<", kOthers, 1, 3, "velar implosive"},
    {"ʛ", "g@", kOthers, 1, 4, "uvular implosive"},
    {"ʼ", "'=", kOthers, 1, 5, "ejective"},
    {"ʍ", "w&", kOthers, 2, 0, "voiceless labial-velar fricative"},
    {"w", "w", kOthers, 2, 1, "voiced labial-velar approximant"},
    {"ɥ", "y+", kOthers, 2, 2, "voiced labial-palatal approximant"},
    {"ʜ", "h#", kOthers, 2, 3, "voiceless epiglottal fricative"},
    {"ʢ", "?&", kOthers, 2, 4, "voiced epiglottal fricative"},
    {"ʡ", "?#", kOthers, 2, 5, "epiglottal plosive"},
    {"ɕ", "c+", kOthers, 3, 0, "voiceless alveolo-palatal fricative"},
    {"ʑ", "z+", kOthers, 3, 1, "voiced alveolo-palatal fricative"},
    {"ɺ", "l@", kOthers, 3, 2, "voiced alveolar lateral flap"},
    {"ɧ", "x+", kOthers, 3, 3, "simultaneous ʃ and x"},
    {"\u0361", "_=", kOthers, 3, 4, "tie bar"},
    {"ˈ", "'+", kSuprasegmentals, 0, 0, "primary stress"},
    {"ˌ", ",=", kSuprasegmentals, 0, 1, "secondary stress"},
    {"ː", ":=", kSuprasegmentals, 0, 2, "long"},
    {"ˑ", ":+", kSuprasegmentals, 0, 3, "half-long"},
    {"\u0306", ":&", kSuprasegmentals, 0, 4, "extra-short"},
    {"|", "|", kSuprasegmentals, 0, 5, "minor group"},
    {"‖", "|=", kSuprasegmentals, 0, 6, "major group"},
    {".", ".", kSuprasegmentals, 0, 7, "syllable break"},
    {"‿", "_+", kSuprasegmentals, 0, 8, "linking"},
    {"↗", "/=", kSuprasegmentals, 0, 9, "global rise"},
    {"↘", "\\=", kSuprasegmentals, 0, 10, "global fall"},
    {"˥", "5=", kSuprasegmentals, 1, 0, "extra high tone"},
    {"˦", "4=", kSuprasegmentals, 1, 1, "high tone"},
    {"˧", "3=", kSuprasegmentals, 1, 2, "mid tone"},
    {"˨", "2=", kSuprasegmentals, 1, 3, "low tone"},
    {"˩", "1=", kSuprasegmentals, 1, 4, "extra low tone"},
    {"\u030B", "5+", kSuprasegmentals, 1, 5, "extra high tone over a vowel"},
    {"\u0301", "4+", kSuprasegmentals, 1, 6, "high tone over a vowel"},
    {"\u0304", "3+", kSuprasegmentals, 1, 7, "mid tone over a vowel"},
    {"\u0300", "2+", kSuprasegmentals, 1, 8, "low tone over a vowel"},
    {"\u030F", "1+", kSuprasegmentals, 1, 9, "extra low tone over a vowel"},
    {"\u0325", "o^", kDiacritics, 0, 0, "voiceless"},
    {"\u032C", "v^", kDiacritics, 0, 1, "voiced"},
    {"ʰ", "h^", kDiacritics, 0, 2, "aspirated"},
    {"\u0339", ")^", kDiacritics, 0, 3, "more rounded"},
    {"\u031C", "(^", kDiacritics, 0, 4, "less rounded"},
    {"\u031F", "+^", kDiacritics, 0, 5, "advanced"},
    {"\u0320", "-^", kDiacritics, 0, 6, "retracted"},
    {"\u0308", "\"^", kDiacritics, 0, 7, "centralized"},
    {"\u033D", "x^", kDiacritics, 0, 8, "mid-centralized"},
    {"\u0329", ",^", kDiacritics, 0, 9, "syllabic"},
    {"\u032F", "u^", kDiacritics, 0, 10, "non-syllabic"},
    {"˞", "r^", kDiacritics, 0, 11, "rhoticity"},
    {"\u0324", ":^", kDiacritics, 1, 0, "breathy voiced"},
    {"\u0330", "~^", kDiacritics, 1, 1, "creaky voiced"},
    {"\u033C", "m^", kDiacritics, 1, 2, "linguolabial"},
    {"ʷ", "w^", kDiacritics, 1, 3, "labialized"},
    {"ʲ", "j^", kDiacritics, 1, 4, "palatalized"},
    {"ˠ", "g^", kDiacritics, 1, 5, "velarized"},
    {"ˤ", "?^", kDiacritics, 1, 6, "pharyngealized"},
    {"\u0334", "=^", kDiacritics, 1, 7, "velarized or pharyngealized"},
    {"\u031D", "t^", kDiacritics, 1, 8, "raised"},
    {"\u031E", "d^", kDiacritics, 1, 9, "lowered"},
    {"\u0318", "<^", kDiacritics, 1, 10, "advanced tongue root"},
    {"\u0319", ">^", kDiacritics, 1, 11, "retracted tongue root"},
    {"\u032A", "b^", kDiacritics, 2, 0, "dental"},
    {"\u033A", "a^", kDiacritics, 2, 1, "apical"},
    {"\u033B", "q^", kDiacritics, 2, 2, "laminal"},
    {"\u0303", "~=", kDiacritics, 2, 3, "nasalized"},
    {"ⁿ", "n^", kDiacritics, 2, 4, "nasal release"},
    {"ˡ", "l^", kDiacritics, 2, 5, "lateral release"},
    {"\u031A", "]^", kDiacritics, 2, 6, "no audible release"},
};
// clang-format on

constexpr std::array kPlaces{"bilabial",     "labiodental", "dental",  "alveolar",
                             "postalveolar", "retroflex",   "palatal", "velar",
                             "uvular",       "pharyngeal",  "glottal"};
constexpr std::array kManners{"plosive",     "nasal",
                              "trill",       "tap or flap",
                              "fricative",   "lateral fricative",
                              "approximant", "lateral approximant"};
constexpr std::array kHeights{"close",    "near-close", "close-mid", "mid",
                              "open-mid", "near-open",  "open"};
constexpr std::array kBacknesses{"front", "near-front", "central", "near-back", "back"};

std::size_t Index(std::int32_t place) { return static_cast<std::size_t>(place); }

// U+0300 ... U+036F as UTF-8.
bool IsCombiningText(std::string_view text) {
  return text.size() == 2 && (text[0] == '\xCC' || text[0] == '\xCD');
}

}  // namespace

std::span<const PhoneticSign> PhoneticSigns() { return kSigns; }

std::string_view TitleOf(SignGroup group) {
  static constexpr std::array<std::string_view, 5> kTitles{
      "Consonants (pulmonic)", "Vowels", "Other consonants", "Suprasegmentals and tones",
      "Diacritics"};
  return kTitles.at(static_cast<std::size_t>(group));
}

std::string NameOf(const PhoneticSign& sign) {
  if (!sign.name.empty()) return std::string(sign.name);
  const bool isRight = sign.column % 2 != 0;
  if (sign.group == kConsonants) {
    return std::string(isRight ? "voiced " : "voiceless ") + kPlaces.at(Index(sign.column / 2)) +
           ' ' + kManners.at(Index(sign.row));
  }
  // These two are neither rounded nor unrounded.
  const bool hasLips = sign.sign != "\u0259" && sign.sign != "\u0250";
  return std::string(kHeights.at(Index(sign.row))) + ' ' + kBacknesses.at(Index(sign.column / 2)) +
         (hasLips ? isRight ? " rounded vowel" : " unrounded vowel" : " vowel");
}

bool IsCombining(const PhoneticSign& sign) { return IsCombiningText(sign.sign); }

std::optional<SignedText> WithSign(std::string_view text, std::size_t cursor) {
  constexpr std::size_t kKeys = 2;
  if (cursor < kKeys || cursor > text.size()) return std::nullopt;
  const std::string_view keys = text.substr(cursor - kKeys, kKeys);
  const auto* const sign =
      std::find_if(std::begin(kSigns), std::end(kSigns),
                   [keys](const PhoneticSign& other) { return other.keys == keys; });
  if (sign == std::end(kSigns)) return std::nullopt;
  SignedText result{std::string(text.substr(0, cursor - kKeys)), 0};
  result.text += sign->sign;
  result.cursor = result.text.size();
  result.text += text.substr(cursor);
  return result;
}

}  // namespace cantorix
