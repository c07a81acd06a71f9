// label_import_test.cpp - which lines of a text file become labels, and with what time and text.
#include "mainview/label_import.h"

#include <gtest/gtest.h>

#include <string>

#include "document/label.h"
#include "support/joined.h"

namespace cantorix {
namespace {

constexpr auto kMs = TimeStampUnit::kMilliseconds;
constexpr auto kSeconds = TimeStampUnit::kSeconds;

TEST(LabelImportTest, ReadsALabelFromEachLineThatBeginsLikeANumber) {
  const std::string huge(400, '9');
  const struct {
    const char* name;
    std::string bytes;
    TimeStampUnit unit;
    std::string labels;
  } cases[] = {
      {"nothing", "", kMs, ""},
      {"CR LF", "1\ta\r\n2\tb\r\n", kMs, "1:a 2:b"},
      {"LF, unsorted", "2\ta\n1\tb", kMs, "2:a 1:b"},
      {"CR", "\r1\ta\r\r2\tb", kMs, "1:a 2:b"},
      {"later tabs stay", "12.5\thello\tworld\n", kSeconds, "12500:hello\tworld"},
      {"point first", ".5\tx", kMs, "0.5:x"},
      {"a point alone", ".\tx", kMs, "0:x"},
      {"exponent", "3e2\tx", kMs, "300:x"},
      {"text after the number", "4 ms, about\tx", kMs, "4:x"},
      {"decimal comma", "4,5\tx", kMs, "4:x"},
      {"hexadecimal", "0x10\ta\n0X1p4", kMs, "0:a 0:"},
      {"UTF-8 mark", std::string("\xEF\xBB\xBF") + "1\ta\n\xEF\xBB\xBF" + "2\tb", kMs, "1:a"},
      {"no tab", "7", kSeconds, "7000:"},
      {"empty text", "7\t", kMs, "7:"},
      {"other first characters", " 1\ta\n\t2\n-3\tb\n+4\tc\nx5\td\ninf\te\n", kMs, ""},
      {"999 bytes", "1" + std::string(998, 'x'), kMs, "1:"},
      {"1000 bytes", "1" + std::string(999, 'x') + "\n2\tb", kMs, "2:b"},
      {"too large", huge + "\ta\n2\tb", kMs, "2:b"},
      {"too large in ms", "1e307\ta\n2\tb", kSeconds, "2000:b"},
      {"long text", "1\t" + std::string(256, 'x'), kMs, "1:" + std::string(255, 'x')},
      {"zero byte", std::string("1\0002\ta\0b", 7), kMs, std::string("1:a\0b", 5)},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(
        JoinedEach(ReadLabelLines(c.bytes, {.unit = c.unit}),
                   [](const Label& label) { return Joined(label.timeMs) + ":" + label.text; }),
        c.labels)
        << c.name;
  }
}

TEST(LabelImportTest, GivesEveryLabelTheChosenPlaceAndTheFreshLooks) {
  const auto labels = ReadLabelLines("1\ta\n", {.alignment = kAlignRight, .addLine = true});
  ASSERT_EQ(labels.size(), 1U);
  Label expected;
  expected.timeMs = 1.0;
  expected.text = "a";
  expected.alignment = 2;
  expected.flag = 1;
  EXPECT_EQ(labels[0], expected);
  EXPECT_EQ(labels[0].verticalPosition, 0.7);
  EXPECT_EQ(labels[0].font.faceName(), "Arial");
}

}  // namespace
}  // namespace cantorix
