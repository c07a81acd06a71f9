// suggested_settings_test.cpp - what is suggested at the usual rates, and when a window says so.
#include "settings/suggested_settings.h"

#include <gtest/gtest.h>

#include "settings/local_settings.h"

namespace cantorix {
namespace {

TEST(SuggestedSettings, FollowTheRate) {
  struct Row {
    double rateHz;
    std::int32_t order, points, index, fftPoints, fftIndex;
  };
  const Row rows[] = {{8000.0, 10, 64, 2, 256, 3},       {11025.0, 13, 64, 2, 256, 3},
                      {16000.0, 18, 128, 3, 512, 4},     {22050.0, 24, 128, 3, 512, 4},
                      {44100.0, 46, 256, 4, 1024, 5},    {48000.0, 50, 256, 4, 1024, 5},
                      {192000.0, 100, 1024, 6, 4096, 7}, {1000.0, 4, 32, 1, 32, 0}};
  for (const Row& row : rows) {
    const SpectrogramSettings spectrogram = Suggested(SpectrogramSettings(), row.rateHz);
    EXPECT_EQ(spectrogram.lpcOrder, row.order) << row.rateHz;
    EXPECT_EQ(spectrogram.points, row.points) << row.rateHz;
    EXPECT_EQ(spectrogram.sizeIndex, row.index) << row.rateHz;
    EXPECT_EQ(spectrogram.dynamicRangeDb, 60);
    const FftLpcSettings spectrum = Suggested(FftLpcSettings(), row.rateHz);
    EXPECT_EQ(spectrum.lpcOrder, row.order) << row.rateHz;
    EXPECT_EQ(spectrum.points, row.fftPoints) << row.rateHz;
    EXPECT_EQ(spectrum.sizeIndex, row.fftIndex) << row.rateHz;
  }
}

TEST(SuggestedSettings, AreNamedOnlyWhereTheSettingsDoNotFit) {
  struct Row {
    double rateHz;
    std::int32_t order, points, tracks;
    const char *text, *button;
    std::int32_t usedOrder, usedPoints;
  };
  constexpr const char* kLow = "LPC order 14 is low for 44100 Hz (usual: 46).";
  constexpr const char* kWide =
      "Bandwidth 689 Hz (64 points) hides formants (usual: 172 Hz, 256 points).";
  const std::string both = std::string(kLow) + ' ' + kWide;
  const Row rows[] = {
      {8000.0, 14, 64, 1, "", "", 14, 64},
      {11025.0, 14, 64, 1, "", "", 14, 64},
      {11025.0, 14, 32, 1,
       "Bandwidth 344 Hz (32 points) hides formants (usual: 172 Hz, 64 points).", "Use 64", 14, 64},
      {16000.0, 18, 64, 1, "", "", 18, 64},
      {44100.0, 14, 256, 1, kLow, "Use 46", 46, 256},
      {44100.0, 46, 64, 1, kWide, "Use 256", 46, 256},
      {44100.0, 14, 64, 0, kWide, "Use 256", 14, 256},
      {44100.0, 14, 64, 1, both.c_str(), "Use both", 46, 256},
      {48000.0, 49, 512, 1, "LPC order 49 is low for 48000 Hz (usual: 50).", "Use 50", 50, 512},
      {0.0, 1, 64, 1, "", "", 1, 64},
  };
  for (const Row& row : rows) {
    SpectrogramSettings settings;
    settings.lpcOrder = row.order;
    settings.points = row.points;
    settings.trackFormants = row.tracks;
    const RateHint hint = HintFor(settings, row.rateHz);
    EXPECT_EQ(hint.text, row.text);
    EXPECT_EQ(hint.button, row.button) << row.text;
    Use(hint, settings);
    EXPECT_EQ(settings.lpcOrder, row.usedOrder) << row.text;
    EXPECT_EQ(settings.points, row.usedPoints) << row.text;
  }
  FftLpcSettings spectrum;
  EXPECT_EQ(HintFor(spectrum, 44100.0).text, kLow);
  spectrum.points = 128;
  EXPECT_EQ(HintFor(spectrum, 44100.0).points, 1024);
}

// A strip takes 46 and 60 for the recording; then a dialog is confirmed with other points.
TEST(LocalSettings, StayOutOfTheFileButForWhatADialogChanged) {
  DocumentSettings settings;
  LocalSettings local;
  local.Begin(settings.spectrogram);
  settings.spectrogram = Suggested(settings.spectrogram, 44100.0);
  local.Begin(settings.spectrogram);
  settings.spectrogram.drawAudio = 1;
  SpectrogramSettings dialog = settings.spectrogram;
  dialog.points = 512;
  dialog.sizeIndex = 5;
  local.Confirm(settings.spectrogram, dialog);
  settings.spectrogram = dialog;
  const SpectrogramSettings file = local.ForFile(settings).spectrogram;
  EXPECT_EQ(file.lpcOrder, 14);
  EXPECT_EQ(file.dynamicRangeDb, 35);
  EXPECT_EQ(file.points, 512);
  EXPECT_EQ(file.sizeIndex, 5);
  EXPECT_EQ(file.drawAudio, 1) << "no matter of the rate";
}

}  // namespace
}  // namespace cantorix
