// spectrogram_view_test.cpp - what the spectrogram window holds and says.
#include "analysisview/spectrogram_view.h"

#include <gtest/gtest.h>

#include "analysisview/window_fixture.h"
#include "platform/abandon.h"

namespace cantorix {
namespace {

TEST(SpectrogramView, GivesTheSamePictureFromMemoryAndFromTheStore) {
  RecordingFixture recording(testing::Noise(9000, 5000));
  CSpectrogramView memory(recording.inMemory), store(recording.onDisk);
  ASSERT_TRUE(memory.ComputeSpectrogram({0.0, 9000.0}, {50, 40}));
  ASSERT_TRUE(store.ComputeSpectrogram({0.0, 9000.0}, {50, 40}));
  for (std::int64_t c = 0; c < 50; ++c) {
    const auto left = memory.spectrogram().Column(c);
    const auto right = store.spectrogram().Column(c);
    EXPECT_TRUE(std::equal(left.begin(), left.end(), right.begin())) << c;
  }
  EXPECT_EQ(memory.spectrogram().formants, store.spectrogram().formants);
}

TEST(SpectrogramView, LimitsTheRangeToTheRateAndLeavesTheSettingAlone) {
  RecordingFixture recording(testing::Noise(2000, 5000), 4000.0);
  CSpectrogramView view(recording.inMemory);
  ASSERT_TRUE(view.ComputeSpectrogram({0.0, 2000.0}, {5, 40}));
  EXPECT_EQ(view.spectrogram().maxHz, 2000.0);
  EXPECT_EQ(recording.inMemory.settings.spectrogram.rangeHz, 5000);
}

TEST(SpectrogramView, HasNoResultAfterACancel) {
  RecordingFixture recording(testing::Noise(9000, 5000));
  CSpectrogramView view(recording.inMemory);
  ASSERT_TRUE(view.ComputeSpectrogram({0.0, 9000.0}, {10, 5}));
  recording.world.progress = CancellingProgress(7);
  EXPECT_THROW(view.ComputeSpectrogram({0.0, 9000.0}, {10, 5}), Abandoned);
  EXPECT_FALSE(view.computed());
  EXPECT_EQ(view.spectrogram().levels, nullptr);
  EXPECT_TRUE(view.spectrogram().formants.empty());
  EXPECT_EQ(recording.world.progress.endCount, 1);
}

TEST(SpectrogramView, RefusesAPictureWithoutASize) {
  RecordingFixture recording(testing::Noise(2000, 5000));
  CSpectrogramView view(recording.inMemory);
  EXPECT_FALSE(view.ComputeSpectrogram({0.0, 2000.0}, {0, 40}));
  EXPECT_FALSE(view.computed());
}

}  // namespace
}  // namespace cantorix
