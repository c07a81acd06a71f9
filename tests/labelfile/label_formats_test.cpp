// label_formats_test.cpp - labels out into every format and in again, and what is said of that
// which a format cannot hold.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

#include "labelfile/fit_to_format.h"
#include "labelfile/told_labels.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

constexpr double kRateHz = 16000.0;
constexpr double kLengthS = 5.5;
// Its stem holds the letters at the borders of what a URL needs no escape for.
const std::string kStem = "aZ-talk_09.~ \xC3\xA9@[`{:";

LabelFile Recording(std::vector<LabelFileTier> tiers) {
  LabelFile file;
  file.tiers = std::move(tiers);
  file.lengthS = kLengthS;
  file.rateHz = kRateHz;
  file.recordingName = kStem + ".wav";
  return file;
}

LabelFile ReadBack(const LabelFormat& format, const std::string& bytes, const std::string& stem) {
  const std::string path = stem + ".txt";
  return ReadLabelFile(bytes, path, &format, {kRateHz, false, kStem}).file;
}

// Labels at random times, unsorted, with texts that every format can hold.
LabelFileTier RandomTier(std::mt19937& random, const std::string& name, std::size_t count) {
  static const char* const kTexts[] = {"a",         "\"quoted\"", "a, b; c",     "\xC9\x99\xCB\x90",
                                       "<&>'",      "-1.5 x",     "back\\slash", "# x",
                                       "two  words"};
  LabelFileTier tier{name, false, {}};
  std::uniform_real_distribution<double> time(0.0, kLengthS);
  for (std::size_t i = 0; i < count; ++i) {
    const double seconds = time(random);
    tier.labels.push_back({seconds, seconds, kTexts[random() % std::size(kTexts)]});
  }
  return tier;
}

TEST(LabelFormats, OutAndInLosesNoLabelNoTextAndNoMoreTimeThanTheFormatResolves) {
  std::mt19937 random(12);
  for (const LabelFormat& format : LabelFormats()) {
    const double tick =
        1.0 / (format.holds.ticksPerSecond > 0.0 ? format.holds.ticksPerSecond : kRateHz);
    for (const bool intervals : {false, true}) {
      std::vector<LabelFileTier> tiers{RandomTier(random, "one", 40)};
      if (format.holds.tiers) tiers.push_back(RandomTier(random, "two \"words\"", 25));
      // As near to each other as a format may hold them, and at both ends.
      tiers[0].labels[0].startS = 0.0;
      tiers[0].labels[1].startS = kLengthS;
      const FittedLabels fitted = FitToFormat(Recording(tiers), format, intervals);
      const LabelFile back = ReadBack(format, format.write(fitted.file), "one");
      ASSERT_EQ(back.tiers.size(), tiers.size()) << format.key;
      EXPECT_EQ(
          JoinedEach(back.notes, std::identity()) + JoinedEach(fitted.losses, std::identity()), "")
          << format.key;
      for (std::size_t i = 0; i < tiers.size(); ++i) {
        auto& sent = tiers[i].labels;
        std::stable_sort(sent.begin(), sent.end(),
                         [](const auto& a, const auto& b) { return a.startS < b.startS; });
        auto came = back.tiers[i].labels;
        std::erase_if(came, [](const TimedLabel& label) {
          return label.text.empty();
        });  // the gap before the first
        ASSERT_EQ(came.size(), sent.size()) << format.key;
        EXPECT_EQ(back.tiers[i].name, tiers[i].name) << format.key;
        for (std::size_t k = 0; k < sent.size(); ++k) {
          EXPECT_EQ(came[k].text, sent[k].text) << format.key;
          EXPECT_LE(std::abs(came[k].startS - sent[k].startS), tick * 0.5 + 1e-12) << format.key;
        }
      }
    }
  }
}

TEST(LabelFormats, WhatAFormatCannotHoldIsSaidAndTheRestIsWritten) {
  const LabelFile hard = Recording({{"w",
                                     false,
                                     {{2.0, 2.0, "late"},
                                      {1.0, 1.0, " a\tb\nc\x01"},
                                      {1.0, 1.0, "same"},
                                      {1.0, 1.0, ""},
                                      {5.5, 5.5, "end"},
                                      {5.5, 5.5, "end too"}}},
                                    {"w", false, {{0.5, 0.5, "x"}}},
                                    {"", false, {}}});
  std::string told;
  for (const LabelFormat& format : LabelFormats()) {
    std::string asPoints;
    told += "=== " + std::string(format.name) + " (" + std::string(format.patterns) + ") ." +
            std::string(format.ending) + '\n';
    for (const bool intervals : {false, true}) {
      const FittedLabels fitted = FitToFormat(hard, format, intervals);
      const std::string written = format.write(fitted.file);
      if (written == asPoints) continue;  // the format leaves no choice
      asPoints = written;
      told += "== " + std::string(format.key) + (intervals ? ", intervals\n" : ", points\n");
      for (const std::string& loss : fitted.losses) told += loss + '\n';
      told +=
          "-- written\n" + written + "-- read\n" + Told(ReadBack(format, written, "w")) + "\n\n";
    }
  }
  ExpectText("labelfile/expected/Hard.txt", told);
}

}  // namespace
}  // namespace cantorix
