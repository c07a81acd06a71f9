// field_text_test.cpp - settings by name: what is taken, what is refused and with which sentence.
#include "settings/field_text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "settings/settings.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

TEST(FieldText, ReadsBackAsTheSameValueForEveryField) {
  const Settings settings{{}, DefaultDocumentSettings(44100.0)};
  for (const Field& field : Fields()) {
    const std::string name = std::string(field.group) + "." + std::string(field.name);
    ASSERT_EQ(FindField(name), &field) << "two fields are called " << name;
    Settings other = settings;
    ASSERT_EQ(SetFieldFromText(other, name, FieldText(settings, field)), std::nullopt) << name;
    EXPECT_EQ(FieldText(other, field), FieldText(settings, field)) << name;
  }
}

// Lines "name=text -> value" and "name=text -> refusal".
TEST(SetFieldFromText, TakesNumbersAndTextsAsTheyStandOrSaysWhyAndChangesNothing) {
  const std::string path = "settings/field_words.txt";
  std::istringstream lines(Approved(path));
  std::string all;
  for (std::string line; std::getline(lines, line);) {
    const std::string words = line.substr(0, line.find(" -> "));
    const std::string name = words.substr(0, words.find('='));
    Settings settings;
    const auto refusal = SetFieldFromText(settings, name, words.substr(name.size() + 1));
    all += words + " -> " + refusal.value_or("") +
           (refusal ? "" : FieldText(settings, *FindField(name))) + '\n';
    for (const Field& field : Fields()) {
      if (!refusal) break;
      EXPECT_EQ(FieldText(settings, field), FieldText(Settings{}, field)) << words;
    }
  }
  ExpectText(path, all);
  Settings settings;
  EXPECT_EQ(SetFieldFromText(settings, "tiers.name1", std::string("a\0b", 3)),
            "tiers.name1: \"" + std::string("a\0b", 3) + "\" holds a zero byte.");
}

}  // namespace
}  // namespace cantorix
