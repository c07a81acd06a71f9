// computing_test.cpp - what the spectrum and spectrogram windows check before they compute, what
// they say, and what they hold afterwards.
#include <gtest/gtest.h>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/spectrogram_view.h"
#include "analysisview/window_fixture.h"
#include "platform/abandon.h"

namespace cantorix {
namespace {

const std::string kRangeMessage =
    "message: Frequency range is beyond allowable value.\n"
    "Use Option->FFT/LPC and make sure the frequency range is up to 1/2 of sample rate.";
const std::string kOrderMessage =
    "message: Number of LPC coefficients is beyond allowable value.\n"
    "Use Option->FFT/LPC and make it is in the proper range.";

TEST(FftLpcView, ChecksSettingsAndMemoryAndKeepsItsResultsWhenTheyDoNotFit) {
  struct Row {
    double rateHz;
    std::int32_t rangeHz, order, points;
    std::vector<std::string> said;
    bool computed;
    std::uint64_t bytes = 65536;
    int displayPoints = 100;
  };
  const Row rows[] = {
      {11025.0, 5000, 21, 256, {}, true},
      {11025.0, 5001, 14, 256, {kRangeMessage}, false},
      {11025.0, 5000, 22, 256, {kOrderMessage}, false},
      {11025.0, 5001, 22, 256, {kRangeMessage}, false},
      {11999.9, 5000, 21, 256, {}, true},
      {12000.0, 6000, 22, 256, {}, true},
      {1999.0, 0, 11, 256, {}, true},
      {1999.0, 1, 11, 256, {kRangeMessage}, false},
      {11025.0, 5000, 14, 256, {"beep", "message: Out of memory."}, false, 65535},
      // What no dialog gives is refused quietly.
      {11025.0, 5000, 14, 256, {}, false, 65536, 0},
      {11025.0, 5000, 14, 31, {}, false},
      {11025.0, 5000, 14, 100, {}, false},
      {11025.0, 5000, 14, 16384, {}, false},
      {11025.0, 5000, 14, 0, {}, false},
      {0.0, 0, 5, 256, {}, false},
  };
  for (const Row& row : rows) {
    RecordingFixture recording(testing::Noise(2000, 5000), 11025.0);
    CFFTLPCView view(recording.document);
    ASSERT_TRUE(view.AnalyseSpectrum({500.0, {}}, 77));
    const auto before = view.spectrum().fftDb;
    FftLpcSettings& settings = recording.document.settings.fftLpc;
    settings.rangeHz = row.rangeHz;
    settings.lpcOrder = row.order;
    settings.points = row.points;
    settings.stepMs = 12;
    recording.document.channel().sampleRateHz = row.rateHz;
    recording.world.memory.limitBytes = row.bytes;
    EXPECT_EQ(view.AnalyseSpectrum({900.0, {}}, row.displayPoints), row.computed)
        << row.rateHz << " Hz, range " << row.rangeHz << ", order " << row.order;
    EXPECT_EQ(recording.world.prompts.TakeTranscript(), row.said);
    EXPECT_EQ(view.texts().stepMs, row.computed ? "12" : "10");
    EXPECT_EQ(view.place().position, row.computed ? 900.0 : 500.0);
    EXPECT_TRUE(view.computed());
    EXPECT_EQ(view.spectrum().fftDb == before, !row.computed);
  }
}

TEST(FftLpcView, TakesThePreEmphasisOfTheSpectrogram) {
  RecordingFixture recording(testing::Noise(2000, 5000));
  CFFTLPCView view(recording.document);
  view.AnalyseSpectrum({500.0, {}}, 100);
  const auto emphasised = view.spectrum().fftDb;
  recording.document.settings.spectrogram.preEmphasis = 0.0;
  view.AnalyseSpectrum({500.0, {}}, 100);
  EXPECT_NE(view.spectrum().fftDb, emphasised);
}

TEST(AnalysisWindows, HoldNothingAfterACancelOrWithoutMemory) {
  RecordingFixture recording(testing::Noise(9000, 5000));
  CFFTLPCView spectrum(recording.document);
  CSpectrogramView spectrogram(recording.document);
  ASSERT_TRUE(spectrum.AnalyseSpectrum({500.0, {}}, 100));
  ASSERT_TRUE(spectrogram.ComputeSpectrogram({0.0, 9000.0}, {10, 5}));
  recording.world.progress = CancellingProgress(7);
  EXPECT_THROW(spectrogram.ComputeSpectrogram({0.0, 9000.0}, {10, 5}), Abandoned);
  EXPECT_THROW(spectrum.AnalyseSpectrum({0.0, SampleRange{0.0, 9000.0}}, 100), Abandoned);
  EXPECT_EQ(recording.world.progress.endCount, 2);
  EXPECT_FALSE(spectrum.computed() || spectrogram.computed());
  EXPECT_TRUE(spectrum.spectrum().fftDb.empty());
  EXPECT_EQ(spectrogram.spectrogram().levels, nullptr);
  EXPECT_TRUE(spectrogram.spectrogram().formants.empty());

  recording.world.progress = CancellingProgress();
  recording.world.memory.limitBytes = std::uint64_t{10} * (5 * 8 + 18);
  EXPECT_TRUE(spectrogram.ComputeSpectrogram({0.0, 9000.0}, {10, 5}));
  EXPECT_THROW(spectrogram.ComputeSpectrogram({0.0, 9000.0}, {10, 6}), Abandoned);
  EXPECT_FALSE(spectrogram.computed());
  EXPECT_TRUE(spectrogram.ComputeSpectrogram({0.0, 9000.0}, {10, 6, false})) << "formants alone";
  EXPECT_FALSE(spectrogram.ComputeSpectrogram({0.0, 9000.0}, {0, 40})) << "no picture";
}

TEST(SpectrogramView, SaysWhenMemoryIsShortAtFirstAndLater) {
  const std::string advice =
      "Please close some windows and try again.\n"
      "If the problem persists, please save work, close application and start again.";
  RecordingFixture recording(testing::Noise(2000, 5000), 4000.0);
  CSpectrogramView view(recording.document);
  view.WantSize({10, 5});
  recording.world.memory.limitBytes = 100;
  EXPECT_THROW(view.Show({0.0, 2000.0}), Abandoned);
  EXPECT_THROW(view.Update(), Abandoned);
  const std::vector<std::string> said{
      "message: Error in setting up display.\nThis could be due to low memory. " + advice,
      "message: Low memory error\n" + advice};
  EXPECT_EQ(recording.world.prompts.TakeTranscript(), said);
}

TEST(SpectrogramView, LimitsTheRangeToTheRateAndLeavesTheSettingAlone) {
  RecordingFixture recording(testing::Noise(2000, 5000), 4000.0);
  CSpectrogramView view(recording.document);
  view.cursorHz = 4000.0;
  ASSERT_TRUE(view.ComputeSpectrogram({0.0, 2000.0}, {5, 40}));
  EXPECT_EQ(view.spectrogram().maxHz, 2000.0);
  EXPECT_EQ(view.cursorHz, 2000.0);
  EXPECT_EQ(recording.document.settings.spectrogram.rangeHz, 5000);
}

}  // namespace
}  // namespace cantorix
