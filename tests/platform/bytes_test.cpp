// bytes_test.cpp - text fields, truncation and number texts at their borders.
#include "platform/bytes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "platform/numbers.h"
#include "platform/one_decimal.h"

namespace cantorix {
namespace {

TEST(CutText, FallsOnCharacterBorders) {
  struct Row {
    std::string text;
    std::size_t maxBytes;
    std::string expected;
  };
  const Row rows[] = {
      {"abc", 3, "abc"},
      {"abcd", 3, "abc"},
      {"ab\xC3\xA9", 3, "ab"},         // the two-byte character would be split
      {"a\xC3\xA9z", 3, "a\xC3\xA9"},  // it just fits
      {"\xF0\x9F\x98\x80z", 3, ""},    // four bytes do not fit into three
      {"\xF0\x9F\x98\x80z", 4, "\xF0\x9F\x98\x80"},
      {"\xE9\xE9\xE9\xE9", 2, "\xE9\xE9"},  // no continuation bytes: cut where it stands
      {"\x80\x80\x80\x80\x80\x80", 4, "\x80\x80\x80\x80"},  // no characters at all
      {"\xDF\xBF", 1, ""},
      {"\xE0\xA0\x80", 2, ""},
      {"\xEF\xBF\xBFz", 3, "\xEF\xBF\xBF"},
      {"\xF7\x80\x80\x80", 3, ""},
      {"\xF8\x80\x80\x80", 3, "\xF8\x80\x80"},  // begins no character
  };
  for (const Row& row : rows) EXPECT_EQ(CutText(row.text, row.maxBytes), row.expected) << row.text;
}

TEST(TextField, IsTerminatedZeroFilledAndStaysInItsPlace) {
  std::array<std::byte, 8> block;
  block.fill(std::byte{0xEE});
  StoreText(block, 1, 6, "abcdefgh");
  EXPECT_EQ(LoadText(block, 1, 6), "abcde");
  EXPECT_EQ(block[0], std::byte{0xEE});
  EXPECT_EQ(block[6], std::byte{0});
  EXPECT_EQ(block[7], std::byte{0xEE});
  StoreText(block, 1, 6, "x");
  for (std::size_t i = 2; i < 7; ++i) EXPECT_EQ(block[i], std::byte{0});
  EXPECT_THROW(LoadText(block, 4, 5), std::out_of_range);
  EXPECT_THROW(LoadLittle<std::uint32_t>(block, 5), std::out_of_range);
  EXPECT_THROW(StoreText(block, 4, 5, "x"), std::out_of_range);
  EXPECT_THROW(StoreLittle(std::span<std::byte>(block), 5, 1), std::out_of_range);
  EXPECT_THROW(LoadText(block, 9, 0), std::out_of_range);
  EXPECT_EQ(LoadText(block, 8, 0), "");
}

TEST(Truncate, GoesTowardZeroAndStaysInRange) {
  EXPECT_EQ(Truncate(-2.9), -2);
  EXPECT_EQ(Truncate(std::nan("")), 0);
  EXPECT_EQ(Truncate(0x1p63), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(TruncateToInt32(-1e10), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(TruncateToInt32(2147483647.9), 2147483647);
}

TEST(NumberText, IsThatOfPrintf) {
  std::vector<double> numbers{0.0,
                              -0.0,
                              0.05,
                              0.25,
                              0.35,
                              -1.25,
                              123456.75,
                              1.0 / 3.0,
                              1e22,
                              5e-324,
                              -0.04,
                              0.95,
                              9.95,
                              99.949999,
                              1e14,
                              1e15,
                              -1e14 - 1,
                              4503599627370495.5,
                              99999999999999.95};
  std::mt19937_64 random(20261122);
  for (int i = 0; i < 20000; ++i) {
    const auto whole = static_cast<double>(random() >> (11 + random() % 52));
    numbers.push_back(whole / static_cast<double>(std::uint64_t{1} << random() % 12));
    numbers.push_back(-whole / 20.0);
    numbers.push_back(std::nextafter(whole / 20.0, 0.0));
  }
  for (const double x : numbers) {
    char text[400];
    std::snprintf(text, sizeof text, "%.1f", x);
    EXPECT_EQ(FormatOneDecimal(x), text);
    std::string cell = "x";
    AppendOneDecimal(x, cell);
    EXPECT_EQ(cell, std::string("x") + text);
    std::snprintf(text, sizeof text, "%.17g", x);
    EXPECT_EQ(FormatExact(x), text);
  }
  EXPECT_EQ(FormatOneDecimal(-std::numeric_limits<double>::infinity()), "-inf");
  EXPECT_EQ(FormatExact(-std::nan("")), "nan");
}

}  // namespace
}  // namespace cantorix
