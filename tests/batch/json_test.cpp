// json_test.cpp - JSON of texts in any bytes and of numbers that JSON has none for.
#include "batch/json.h"

#include <gtest/gtest.h>

#include <limits>

namespace cantorix::batch {
namespace {

TEST(JsonLine, EscapesAndConvertsTexts) {
  struct Row {
    std::string bytes;
    std::string expected;
  };
  const Row rows[] = {
      {"plain", "plain"},
      {"a\"b\\c", "a\\\"b\\\\c"},
      {"tab\there", "tab\\u0009here"},
      {"\xC3\xA9", "\xC3\xA9"},                          // UTF-8 as it stands
      {"caf\xE9 \x80", "caf\xC3\xA9 \xE2\x82\xAC"},      // Windows-1252
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                  // overlong, so not UTF-8
      {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},  // a surrogate
  };
  for (const Row& row : rows) {
    JsonLine json;
    EXPECT_EQ(json.BeginObject().Text("t", row.bytes).EndObject().Take(),
              "{\"t\": \"" + row.expected + "\"}\n");
  }
}

TEST(JsonLine, NestsAndKeepsDigits) {
  JsonLine json;
  json.BeginObject().Number("x", 0.1).BeginArray("list").Number("", 1e300).Integer("", -3);
  json.BeginObject().EndObject().EndArray();
  json.Number("none", std::numeric_limits<double>::quiet_NaN()).Flag("yes", true).EndObject();
  EXPECT_EQ(json.Take(),
            "{\"x\": 0.1, \"list\": [1e+300, -3, {}], \"none\": \"nan\", \"yes\": true}\n");
}

}  // namespace
}  // namespace cantorix::batch
