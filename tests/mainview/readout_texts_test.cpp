// readout_texts_test.cpp - the strip's texts in both time bases.
#include "mainview/readout_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace cantorix {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> Strip(const Readouts& readouts, std::int32_t timeBase) {
  std::vector<std::string> texts;
  for (const ReadoutText& text : ReadoutTexts(readouts, 22050.9, timeBase)) {
    texts.push_back(std::string(text.label) + "|" + text.value);
  }
  return texts;
}

TEST(ReadoutTexts, NameTheTimeBaseAndHaveOneDecimal) {
  const Readouts readouts{.pitchHz = 123.46,
                          .intensityDb = -std::numeric_limits<double>::infinity(),
                          .durationMs = 98765.4,
                          .cursorMs = 1234.5,
                          .averagePitchHz = 0.0};
  EXPECT_THAT(Strip(readouts, 0), ElementsAre("Sample Rate(Hz)=|22050", "Pitch(Hz)=|123.5",
                                              "Int.(dB)=|-inf", "Duration(ms)= |98765.4",
                                              "Cursor(ms)= |1234.5", "Average Pitch(Hz)=|0.0"));
  EXPECT_THAT(Strip(readouts, 1),
              ElementsAre("Sample Rate(Hz)=|22050", "Pitch(Hz)=|123.5", "Int.(dB)=|-inf",
                          "Duration(sec)= |98.8", "Cursor(sec)= |1.2", "Average Pitch(Hz)=|0.0"));
}

}  // namespace
}  // namespace cantorix
