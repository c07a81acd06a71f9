// sound_texts_test.cpp - every text about a recording, a playback and a level.
#include "mainview/sound_texts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace cantorix {
namespace {

constexpr double kSilence = -std::numeric_limits<double>::infinity();

TEST(SoundTexts, SayTimesLevelsAndLosses) {
  struct Row {
    std::string text;
    std::string wanted;
  };
  const LevelReading talk{-13.04, -12.31, -24.06, 0, -1};
  const LevelReading loud{-0.0, -0.04, -9.96, 3, 20000};
  const Row rows[] = {
      {ClockText(0.99), "0:00"},
      {ClockText(59.999), "0:59"},
      {ClockText(60.0), "1:00"},
      {ClockText(3599.9), "59:59"},
      {ClockText(3600.0), "1:00:00"},
      {ClockText(39845.0), "11:04:05"},
      {PeakText(talk), "Peak -12.3 dB"},
      {RmsText(talk), "RMS -24.1 dB"},
      {RmsText({kSilence, kSilence, kSilence, 0, -1}), "RMS -\u221e dB"},
      {ClippedText({16000, talk}), "Not clipped"},
      {ClippedText({16000, {-0.0, -0.0, -3.0, 1, 0}}), "Clipped 1 time, first at 0.0 s"},
      {ClippedText({16000, loud}), "Clipped 3 times, first at 1.2 s"},
      {RecordingText({7.8, 3723.0, 0}, {16000, talk}),
       "Recording...   press mouse to stop   0:07   1:02:03 left on the disk   Peak -12.3 dB   "
       "Not clipped   No gaps"},
      {RecordingText({0.0, std::nullopt, 1}, {16000, loud}),
       "Recording...   press mouse to stop   0:00   Peak -0.0 dB   "
       "Clipped 3 times, first at 1.2 s   1 sample lost"},
      {RecordingText({0.0, std::nullopt, 400}, {16000, talk}),
       "Recording...   press mouse to stop   0:00   Peak -12.3 dB   Not clipped   "
       "400 samples lost"},
      {PlayingText(1234.5), "Playing   1.2 s"},
  };
  for (const Row& row : rows) EXPECT_EQ(row.text, row.wanted);
}

}  // namespace
}  // namespace cantorix
