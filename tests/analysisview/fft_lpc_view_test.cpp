// fft_lpc_view_test.cpp - what the FFT/LPC window checks, says and holds.
#include "analysisview/fft_lpc_view.h"

#include <gtest/gtest.h>

#include "analysisview/window_fixture.h"
#include "platform/abandon.h"

namespace cantorix {
namespace {

const std::vector<std::string> kRangeMessage{
    "message: Frequency range is beyond allowable value.\n"
    "Use Option->FFT/LPC and make sure the frequency range is up to 1/2 of sample rate."};
const std::vector<std::string> kOrderMessage{
    "message: Number of LPC coefficients is beyond allowable value.\n"
    "Use Option->FFT/LPC and make it is in the proper range."};

TEST(FftLpcView, ChecksTheRangeAndThenTheOrderAgainstTheRate) {
  struct Row {
    double rateHz;
    std::int32_t rangeHz, order;
    std::vector<std::string> said;
  };
  const Row rows[] = {
      {11025.0, 5000, 21, {}},
      {11025.0, 5001, 14, kRangeMessage},
      {11025.0, 5000, 22, kOrderMessage},
      {11025.0, 5001, 22, kRangeMessage},
      {11999.9, 5000, 21, {}},
      {12000.0, 6000, 22, {}},
      {1999.0, 0, 11, {}},
      {1999.0, 1, 11, kRangeMessage},
  };
  for (const Row& row : rows) {
    RecordingFixture recording(testing::Noise(2000, 5000), row.rateHz);
    recording.inMemory.settings.fftLpc.rangeHz = row.rangeHz;
    recording.inMemory.settings.fftLpc.lpcOrder = row.order;
    CFFTLPCView view(recording.inMemory);
    EXPECT_EQ(view.AnalyseSpectrum({500.0, {}}, 100), row.said.empty());
    EXPECT_EQ(view.computed(), row.said.empty());
    EXPECT_EQ(recording.world.prompts.TakeTranscript(), row.said)
        << row.rateHz << " Hz, range " << row.rangeHz << ", order " << row.order;
  }
}

TEST(FftLpcView, BeepsAndSpeaksWhenItsBufferCannotBeHad) {
  RecordingFixture recording(testing::Noise(2000, 5000));
  recording.world.memory.limitBytes = 65535;
  CFFTLPCView view(recording.inMemory);
  EXPECT_FALSE(view.AnalyseSpectrum({500.0, {}}, 100));
  EXPECT_EQ(recording.world.prompts.TakeTranscript(),
            (std::vector<std::string>{"beep", "message: Out of memory."}));
}

TEST(FftLpcView, KeepsItsResultsWhenTheSettingsDoNotFit) {
  RecordingFixture recording(testing::Noise(2000, 5000));
  CFFTLPCView view(recording.inMemory);
  ASSERT_TRUE(view.AnalyseSpectrum({500.0, {}}, 100));
  const auto before = view.spectrum().fftDb;
  recording.inMemory.settings.fftLpc.rangeHz = 9000;
  recording.inMemory.settings.fftLpc.stepMs = 77;
  EXPECT_FALSE(view.AnalyseSpectrum({900.0, {}}, 100));
  EXPECT_EQ(recording.world.prompts.TakeTranscript(), kRangeMessage);
  EXPECT_TRUE(view.computed());
  EXPECT_EQ(view.spectrum().fftDb, before);
  EXPECT_EQ(view.texts().stepMs, "10");
}

TEST(FftLpcView, GivesTheSameSpectraFromMemoryAndFromTheStore) {
  RecordingFixture recording(testing::Noise(9000, 5000));
  CFFTLPCView memory(recording.inMemory), store(recording.onDisk);
  for (const SpectrumPlace& place :
       {SpectrumPlace{1000.5, {}}, SpectrumPlace{8900.0, {}}, SpectrumPlace{9500.0, {}},
        SpectrumPlace{0.0, SampleRange{1000.25, 6000.0}},
        SpectrumPlace{0.0, SampleRange{8000.0, 9000.0}}}) {
    ASSERT_TRUE(memory.AnalyseSpectrum(place, 333));
    ASSERT_TRUE(store.AnalyseSpectrum(place, 333));
    EXPECT_EQ(memory.spectrum().fftDb, store.spectrum().fftDb);
    EXPECT_EQ(memory.spectrum().lpcDb, store.spectrum().lpcDb);
    EXPECT_EQ(memory.spectrum().formants.frequencyHz, store.spectrum().formants.frequencyHz);
  }
}

TEST(FftLpcView, TakesThePreEmphasisOfTheSpectrogram) {
  RecordingFixture recording(testing::Noise(2000, 5000));
  CFFTLPCView view(recording.inMemory);
  view.AnalyseSpectrum({500.0, {}}, 100);
  const auto emphasised = view.spectrum().fftDb;
  recording.inMemory.settings.spectrogram.preEmphasis = 0.0;
  view.AnalyseSpectrum({500.0, {}}, 100);
  EXPECT_NE(view.spectrum().fftDb, emphasised);
}

TEST(FftLpcView, NamesItsSettingsAsWholeNumbers) {
  RecordingFixture recording(testing::Noise(2000, 5000), 11127.7);
  CFFTLPCView view(recording.inMemory);
  ASSERT_TRUE(view.AnalyseSpectrum({500.0, {}}, 100));
  const FftLpcTexts& texts = view.texts();
  EXPECT_EQ(texts.points + " " + texts.lpcOrder + " " + texts.rateHz + " " + texts.windowMs + " " +
                texts.stepMs,
            "256 14 11127 23 10");
}

TEST(FftLpcView, HasNoResultAfterACancelledAverage) {
  RecordingFixture recording(testing::Noise(9000, 5000));
  CFFTLPCView view(recording.inMemory);
  ASSERT_TRUE(view.AnalyseSpectrum({500.0, {}}, 100));
  recording.world.progress = CancellingProgress(2);
  EXPECT_THROW(view.AnalyseSpectrum({0.0, SampleRange{0.0, 9000.0}}, 100), Abandoned);
  EXPECT_FALSE(view.computed());
  EXPECT_TRUE(view.spectrum().fftDb.empty());
}

TEST(FftLpcView, RefusesQuietlyWhatNoDialogGives) {
  RecordingFixture recording(testing::Noise(2000, 5000));
  CFFTLPCView view(recording.inMemory);
  EXPECT_FALSE(view.AnalyseSpectrum({500.0, {}}, 0));
  for (const std::int32_t points : {-1, 0, 31, 100, 16384}) {
    recording.inMemory.settings.fftLpc.points = points;
    EXPECT_FALSE(view.AnalyseSpectrum({500.0, {}}, 100)) << points;
  }
  EXPECT_FALSE(view.computed());
}

}  // namespace
}  // namespace cantorix
