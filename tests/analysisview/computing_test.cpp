// computing_test.cpp - what the spectrum and spectrogram windows check before they compute, what
// they say, and what they hold afterwards.
#include <gtest/gtest.h>

#include "analysisview/fft_lpc_view.h"
#include "analysisview/spectrogram_view.h"
#include "analysisview/window_fixture.h"
#include "platform/abandon.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

// A line for settings that do not fit a rate, a transform, a picture or the memory, or just do.
TEST(FftLpcView, ChecksSettingsAndMemoryAndKeepsItsResultsWhenTheyDoNotFit) {
  std::string text = "rate, range, order, points, bytes, columns: said\n";
  const auto note = [&text](double rateHz, std::int32_t rangeHz, std::int32_t order,
                            std::int32_t points = 256, std::uint64_t bytes = 65536,
                            int columns = 100) {
    RecordingFixture recording(testing::Noise(2000, 5000), 11025.0);
    CFFTLPCView view(recording.document);
    ASSERT_TRUE(view.AnalyseSpectrum({500.0, {}}, 77));
    const auto before = view.spectrum().fftDb;
    FftLpcSettings& settings = recording.document.settings.fftLpc;
    settings.rangeHz = rangeHz;
    settings.lpcOrder = order;
    settings.points = points;
    settings.stepMs = 12;
    recording.document.channel().sampleRateHz = rateHz;
    recording.world.memory.limitBytes = bytes;
    const bool computed = view.AnalyseSpectrum({900.0, {}}, columns);
    text +=
        Joined(rateHz, rangeHz, order, points, bytes, columns, computed ? "computed" : "refused");
    for (std::string said : recording.world.prompts.TakeTranscript()) {
      std::replace(said.begin(), said.end(), '\n', ' ');
      text += " | " + said;
    }
    text += '\n';
    EXPECT_EQ(view.texts().stepMs, computed ? "12" : "10");
    EXPECT_EQ(view.place().position, computed ? 900.0 : 500.0);
    EXPECT_TRUE(view.computed());
    EXPECT_EQ(view.spectrum().fftDb == before, !computed);
  };
  for (const double rateHz : {0.0, 1999.0, 11025.0, 11999.9, 12000.0}) {
    for (const std::int32_t rangeHz : {0, 1, 5000, 5001, 6000}) {
      for (const std::int32_t order : {5, 11, 21, 22}) note(rateHz, rangeHz, order);
    }
  }
  for (const std::int32_t points : {0, 31, 32, 100, 16384}) note(11025.0, 5000, 14, points);
  note(11025.0, 5000, 14, 256, 65535);
  note(11025.0, 5000, 14, 256, 65536, 0);
  ExpectText("analysisview/expected/Checks.txt", text);
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
  recording.world.memory.limitBytes = std::uint64_t{10} * (5 * 16 + 18);
  EXPECT_TRUE(view.Show({0.0, 2000.0}));
  --recording.world.memory.limitBytes;
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
