// text_test.cpp - what is UTF-8, what Windows-1252 stands for, and where lines end.
#include "platform/text.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/numbers.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

TEST(Utf8, IsWellFormedToItsLastByte) {
  for (const std::string good :
       {"", "\x01\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xE1\x80\x80", "\xEC\xBF\xBF",
        "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF1\x80\x80\x80",
        "\xF3\xBF\xBF\xBF", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(IsUtf8("a" + good + good + "z")) << good;
    EXPECT_EQ(ToUtf8(good), good);
    if (good.size() > 2) {
      EXPECT_FALSE(IsUtf8("a" + good.substr(0, good.size() - 1)));
    }
  }
  for (const std::string bad :
       {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC2\x7F", "\xC2\xC0", "\xDF\xFF", "\xE0\x9F\xBF",
        "\xE1\x80\x40", "\xE1\x80\xC0", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF1\x80\x80\x7F",
        "\xF1\x80\xC0\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"}) {
    EXPECT_FALSE(IsUtf8("a" + bad + "z")) << bad;
  }
}

// The upper half of the code table as another program gives it, sixteen to a line. Bytes without a
// character keep their number.
TEST(Windows1252, IsReadWhereTextIsNotUtf8) {
  std::string text;
  for (int row = 0x80; row < 0x100; row += 0x10) {
    std::string bytes = "~\x7F";
    for (int byte = row; byte < row + 0x10; ++byte) bytes += static_cast<char>(byte);
    text += ToUtf8(bytes).substr(2) + '\n';
  }
  ExpectText("platform/expected/Windows1252.txt", text);
}

TEST(TakeLine, GivesTheLinesThatAreNotEmpty) {
  std::string_view rest = "\n\rone\r\n two \rthree\n\n";
  std::string lines;
  for (auto line = TakeLine(rest); !line.empty(); line = TakeLine(rest)) {
    lines += "[" + std::string(line) + "]";
  }
  EXPECT_EQ(lines, "[one][ two ][three]");
}

TEST(LeadingNumber, IsWhatATextBeginsWith) {
  for (const auto& [text, number] : {std::pair{"", 0.0},
                                     {"x1", 0.0},
                                     {" -2.5e1 Hz", -25.0},
                                     {"1,5", 1.0},
                                     {"0x10", 16.0},
                                     {"1e999", HUGE_VAL}}) {
    EXPECT_EQ(LeadingNumber(text), number) << text;
  }
}

}  // namespace
}  // namespace cantorix
