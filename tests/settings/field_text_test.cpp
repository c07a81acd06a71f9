// field_text_test.cpp - settings by name: what is taken, what is refused and with which sentence.
#include "settings/field_text.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/settings.h"

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

TEST(SetFieldFromText, TakesNumbersAndTextsAsTheyStand) {
  struct Row {
    const char *name, *text, *expected;
  };
  const Row rows[] = {
      {"pitch.stepMs", "5", "5"},
      {"pitch.stepMs", "0.1", "0.1"},
      {"pitch.highHz", "1e3", "1000"},
      {"zoom.rangeMs", "1234.7", "1234.7"},
      {"gain.reference", "-12", "-12"},
      {"display.timeBase", "-2147483648", "-2147483648"},
      {"fftlpc.points", "512", "512"},
      {"tiers.name1", "", ""},
      {"tiers.name10", "a b=c.d", "a b=c.d"},
  };
  for (const Row& row : rows) {
    Settings settings;
    EXPECT_EQ(SetFieldFromText(settings, row.name, row.text), std::nullopt) << row.name;
    EXPECT_EQ(FieldText(settings, *FindField(row.name)), row.expected) << row.name;
  }
}

TEST(SetFieldFromText, SaysWhyAndChangesNothing) {
  const std::string longName(64, 'n');
  struct Row {
    std::string name, text, reason;
  };
  const Row rows[] = {
      {"pitch.step", "5", "There is no setting \"pitch.step\"."},
      {"pitch", "5", "There is no setting \"pitch\"."},
      {"", "", "There is no setting \"\"."},
      {"pitchXstepMs", "5", "There is no setting \"pitchXstepMs\"."},
      {"pitch.stepMs", "", "pitch.stepMs: \"\" is not a number."},
      {"pitch.stepMs", " 5", "pitch.stepMs: \" 5\" is not a number."},
      {"pitch.stepMs", "5,5", "pitch.stepMs: \"5,5\" is not a number."},
      {"pitch.stepMs", "5ms", "pitch.stepMs: \"5ms\" is not a number."},
      {"pitch.stepMs", "nan", "pitch.stepMs: \"nan\" is not a finite number."},
      {"pitch.stepMs", "-inf", "pitch.stepMs: \"-inf\" is not a finite number."},
      {"pitch.stepMs", "1e999", "pitch.stepMs: \"1e999\" is out of range."},
      {"pitch.method", "1.0", "pitch.method: \"1.0\" is not a whole number."},
      {"pitch.method", "0x1", "pitch.method: \"0x1\" is not a whole number."},
      {"pitch.method", "2147483648", "pitch.method: \"2147483648\" is out of range."},
      {"fftlpc.points", "300", "fftlpc.points: \"300\" is not a possible value."},
      {"intensity.stepMs", "0", "intensity.stepMs: \"0\" is not a possible value."},
      {"document.referenceRateHz", "50000",
       "document.referenceRateHz: \"50000\" is not a possible value."},
      {"tiers.name1", longName, "tiers.name1: \"" + longName + "\" is longer than 63 bytes."},
      {"tiers.name1", std::string("a\0b", 3),
       "tiers.name1: \"" + std::string("a\0b", 3) + "\" holds a zero byte."},
  };
  for (const Row& row : rows) {
    Settings settings;
    EXPECT_EQ(SetFieldFromText(settings, row.name, row.text), row.reason);
    for (const Field& field : Fields()) {
      EXPECT_EQ(FieldText(settings, field), FieldText(Settings{}, field)) << row.reason;
    }
  }
}

}  // namespace
}  // namespace cantorix
