// spectrogram_test.cpp - levels and formants against plain steps, and the rules at the edges.
#include "analysis/spectrogram.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "analysis/plain_spectrogram.h"
#include "analysis/spectrogram_column.h"
#include "support/cancelling_progress.h"

namespace cantorix {
namespace {

using testing::CopyingSource;
using testing::Samples;

constexpr double kRateHz = 12000.0;

// Speech where the system has some, else noise that swells.
Samples Voice() {
  Samples voice = testing::Speech(4);
  if (!voice.empty()) return voice;
  voice = testing::Noise(16000, 4000);
  for (std::size_t i = 0; i < voice.size(); ++i) {
    voice[i] = static_cast<std::int16_t>(voice[i] * static_cast<int>(i % 4000) / 4000);
  }
  return voice;
}

SpectrogramRequest Whole(const Samples& samples, std::int64_t columns, int rows) {
  const auto total = static_cast<double>(samples.size());
  return {{0.0, total}, total, kRateHz, columns, rows, true};
}

SpectrogramSettings Points(std::int32_t points, std::int32_t formants = 1) {
  SpectrogramSettings settings;
  settings.points = points;
  settings.trackFormants = formants;
  return settings;
}

Spectrogram Compute(const SampleSource& samples, const SpectrogramRequest& request,
                    const SpectrogramSettings& settings) {
  NoProgress none;
  return ComputeSpectrogram(samples, request, settings, none);
}

std::vector<double> AllLevels(const Spectrogram& spectrogram) {
  std::vector<double> all;
  for (std::int64_t c = 0; c < spectrogram.columns; ++c) {
    const auto column = spectrogram.Column(c);
    all.insert(all.end(), column.begin(), column.end());
  }
  return all;
}

TEST(Spectrogram, HasTheDigitsOfThePlainStepsFromMemoryAndFromAStore) {
  const Samples voice = Voice();
  const auto total = static_cast<double>(voice.size());
  struct Row {
    std::string name;
    SpectrogramRequest request;
    SpectrogramSettings settings;
  };
  Row rows[] = {
      {"defaults", Whole(voice, 90, 60), {}},
      {"no pre-emphasis", Whole(voice, 31, 7), Points(256)},
      {"levels alone", Whole(voice, 50, 100), Points(512, 0)},
      {"narrow band", Whole(voice, 9, 33), Points(8192)},
      {"range between samples", {{1000.25, 9876.5}, total, kRateHz, 57, 40, true}, {}},
      {"steps below a sample", {{5000.0, 5020.0}, total, kRateHz, 64, 40, true}, {}},
      {"last samples", {{total - 300.0, total}, total, kRateHz, 40, 20, true}, Points(128)},
      {"high order", Whole(voice, 12, 20), Points(64)},
      {"range above half the rate", Whole(voice, 12, 20), Points(64)},
      {"other rate", {{0.0, total}, total, 22050.0, 40, 20, true}, {}},
  };
  rows[1].settings.preEmphasis = 0.0;
  rows[7].settings.lpcOrder = 60;
  rows[8].settings.rangeHz = 20000;
  rows[9].settings.lpcOrder = 26;
  for (const Row& row : rows) {
    const auto plain = testing::ComputePlainSpectrogram(voice, row.request, row.settings);
    const auto memory = Compute(SpanSource(voice), row.request, row.settings);
    const auto store = Compute(CopyingSource(voice), row.request, row.settings);
    ASSERT_TRUE(memory.computed()) << row.name;
    std::vector<double> expected;
    for (const auto& column : plain.levels) {
      expected.insert(expected.end(), column.begin(), column.end());
    }
    EXPECT_EQ(AllLevels(memory), expected) << row.name;
    EXPECT_EQ(AllLevels(store), expected) << row.name;
    EXPECT_EQ(memory.formants, plain.formants) << row.name;
    EXPECT_EQ(store.formants, plain.formants) << row.name;
  }
}

TEST(Spectrogram, FindsTheSameFormantsWithoutKeepingItsLevels) {
  const Samples voice = Voice();
  SpectrogramRequest request = Whole(voice, 90, 60);
  const auto full = Compute(SpanSource(voice), request, {});
  request.keepLevels = false;
  const auto track = Compute(SpanSource(voice), request, {});
  EXPECT_EQ(track.formants, full.formants);
  EXPECT_TRUE(track.formantsFound);
  EXPECT_EQ(track.levels, nullptr);
}

TEST(Spectrogram, ReachesFromTheDynamicRangeDownToZero) {
  const Samples voice = Voice();
  SpectrogramSettings settings;
  settings.dynamicRangeDb = 50;
  const auto levels = AllLevels(Compute(SpanSource(voice), Whole(voice, 80, 50), settings));
  EXPECT_EQ(*std::max_element(levels.begin(), levels.end()), 50.0);
  EXPECT_EQ(*std::min_element(levels.begin(), levels.end()), 0.0);
}

// The frame's rest is what the last whole frame left, not silence: near the end of a recording the
// columns repeat.
TEST(Spectrogram, LeftOverFrameNearTheEndIsKept) {
  const Samples noise = testing::Noise(2000, 8000);
  const SpectrogramRequest request{{1600.0, 2000.0}, 2000.0, kRateHz, 400, 16, true};
  const auto result = Compute(SpanSource(noise), request, Points(128));
  // The last frame that fits with its margin starts at 1862.
  const auto last = result.Column(262);
  const auto before = result.Column(261);
  EXPECT_FALSE(std::equal(last.begin(), last.end(), before.begin()));
  for (std::int64_t c = 263; c < 400; ++c) {
    const auto column = result.Column(c);
    ASSERT_TRUE(std::equal(last.begin(), last.end(), column.begin())) << c;
  }
}

TEST(Spectrogram, FrameThatNeverFitsCopiesToTheCountOfWhatIsLeftIsKept) {
  const Samples noise = testing::Noise(100, 8000);
  FrameBuffer buffer(128, 10);
  const SpanSource source(noise);
  FrameReader reader(source);
  buffer.Load(reader, 30.0, 100.0);  // positions 30 ... 69
  std::vector<double> expected(138);
  std::copy(noise.begin() + 30, noise.begin() + 70, expected.begin());
  EXPECT_TRUE(std::equal(expected.begin(), expected.end(), buffer.samples().begin()));
  buffer.Load(reader, 50.0, 100.0);  // none
  EXPECT_TRUE(std::equal(expected.begin(), expected.end(), buffer.samples().begin()));
}

TEST(Spectrogram, LpcFrameOfWholeSamplesPerMsIsKept) {
  // 572 samples at 22050 Hz and order 26: the pre-emphasis reaches one sample further, no more.
  const auto formantsWith = [](std::size_t changed) {
    Samples noise = testing::Noise(2000, 100);
    noise[changed] = 32767;
    const CopyingSource source(noise);
    SpectrogramRequest request = Whole(noise, 1, 10);
    request.rateHz = 22050.0;
    SpectrogramSettings settings;
    settings.lpcOrder = 26;
    return ColumnFormants(source, request, settings).Find(0.0);
  };
  EXPECT_NE(formantsWith(572), formantsWith(573));
  EXPECT_EQ(formantsWith(573), formantsWith(574));
}

TEST(Spectrogram, OfSilenceIsFlatAndWithoutFormants) {
  const Samples silence(4000, 0);
  const auto result = Compute(SpanSource(silence), Whole(silence, 20, 10), {});
  ASSERT_TRUE(result.computed());
  EXPECT_EQ(AllLevels(result), std::vector<double>(200, 35.0));
  EXPECT_FALSE(result.formantsFound);
  FormantColumn none;
  none.fill(kNoFormantHz);
  EXPECT_EQ(result.formants, std::vector<FormantColumn>(20, none));
}

TEST(Spectrogram, SilencesTheFormantsOfColumnsBelowHalfOfTheDynamicRange) {
  Samples halves = testing::Noise(8000, 3);
  const Samples loud = testing::Noise(8000, 20000, 2);
  halves.insert(halves.end(), loud.begin(), loud.end());
  const auto result = Compute(SpanSource(halves), Whole(halves, 16, 40), {});
  EXPECT_EQ(result.formants[2], FormantColumn{});
  EXPECT_NE(result.formants[10], FormantColumn{});
}

TEST(Spectrogram, CountsColumnsAndLeavesNothingWhenCancelled) {
  const Samples noise = testing::Noise(3000, 5000);
  CancellingProgress patient;
  ComputeSpectrogram(SpanSource(noise), Whole(noise, 12, 8), {}, patient);
  EXPECT_EQ(patient.texts,
            std::vector<std::string>{" Processing Spectrogram...(Press mouse to cancel)"});
  EXPECT_EQ(patient.totals, std::vector<double>{12.0});
  EXPECT_EQ(patient.done.size(), 12U);

  CancellingProgress hasty(5);
  EXPECT_THROW(ComputeSpectrogram(SpanSource(noise), Whole(noise, 12, 8), {}, hasty), Abandoned);
  EXPECT_EQ(hasty.done.size(), 5U);
  EXPECT_EQ(hasty.endCount, 1);
}

TEST(Spectrogram, RefusesWhatCannotBeComputed) {
  const Samples noise = testing::Noise(3000, 5000);
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  struct Row {
    std::string name;
    SpectrogramRequest request;
    SpectrogramSettings settings;
  };
  Row rows[] = {
      {"no columns", Whole(noise, 0, 10), {}},
      {"negative columns", Whole(noise, -3, 10), {}},
      {"no rows", Whole(noise, 10, 0), {}},
      {"no power of two", Whole(noise, 10, 10), Points(100)},
      {"too short", Whole(noise, 10, 10), Points(16)},
      {"too long", Whole(noise, 10, 10), Points(16384)},
      {"rate 0", Whole(noise, 10, 10), {}},
      {"rate nan", Whole(noise, 10, 10), {}},
  };
  rows[6].request.rateHz = 0.0;
  rows[7].request.rateHz = notANumber;
  for (const Row& row : rows) {
    EXPECT_EQ(Compute(SpanSource(noise), row.request, row.settings).outcome,
              SpectrogramOutcome::kNothing)
        << row.name;
  }
}

TEST(Spectrogram, SurvivesExtremes) {
  const Samples noise = testing::Noise(700, 32767);
  struct Row {
    std::string name;
    double rateHz, start, end;
    std::int64_t columns;
    int rows;
    std::int32_t points, order, rangeHz;
  };
  const Row rows[] = {
      {"longest frame of a short recording", 4000.0, 0.0, 700.0, 5, 9, 8192, 14, 5000},
      {"more columns than samples", kRateHz, 10.0, 20.0, 3000, 3, 32, 4, 5000},
      {"empty range", kRateHz, 350.0, 350.0, 4, 3, 64, 14, 5000},
      {"range backwards", kRateHz, 350.0, 20.0, 4, 3, 64, 14, 5000},
      {"outside the recording", kRateHz, -50.0, 5000.0, 40, 3, 64, 14, 5000},
      {"rate below a kHz", 900.0, 0.0, 700.0, 4, 3, 64, 14, 5000},
      {"one row", 192000.0, 0.0, 700.0, 4, 1, 64, 14, 5000},
      {"negative range", kRateHz, 0.0, 700.0, 4, 5, 64, 14, -3000},
      {"order 0", kRateHz, 0.0, 700.0, 4, 5, 64, 0, 5000},
      {"order 400", kRateHz, 0.0, 700.0, 4, 5, 64, 400, 5000},
      {"negative order", kRateHz, 0.0, 700.0, 4, 5, 64, -9, 5000},
  };
  for (const Row& row : rows) {
    SpectrogramSettings settings = Points(row.points);
    settings.lpcOrder = row.order;
    settings.rangeHz = row.rangeHz;
    const SpectrogramRequest request{{row.start, row.end}, 700.0,    row.rateHz,
                                     row.columns,          row.rows, true};
    EXPECT_TRUE(Compute(CopyingSource(noise), request, settings).computed()) << row.name;
  }
}

TEST(Spectrogram, LeavesWhenMemoryCannotHoldIt) {
  const Samples noise = testing::Noise(700, 3000);
  NoProgress none;
  EXPECT_THROW(
      ComputeSpectrogram(SpanSource(noise),
                         Whole(noise, std::numeric_limits<std::int64_t>::max(), 100), {}, none),
      Abandoned);
  SpectrogramSettings settings;
  settings.lpcOrder = std::numeric_limits<std::int32_t>::max();
  EXPECT_THROW(ComputeSpectrogram(SpanSource(noise), Whole(noise, 2, 2), settings, none),
               Abandoned);
}

TEST(FormantSelection, LooksAtFiveCandidatesAndDropsWideOnes) {
  struct Row {
    std::string name;
    std::vector<Formant> candidates;
    FormantColumn expected;
  };
  constexpr std::uint16_t kNone = kNoFormantHz;
  const Row rows[] = {
      {"none", {}, {kNone, kNone, kNone, kNone, kNone}},
      {"too wide", {{500.0, 300.0}}, {kNone, kNone, kNone, kNone, kNone}},
      {"narrow enough", {{500.0, 200.0}}, {500, kNone, kNone, kNone, kNone}},
      {"just narrow enough", {{500.5, 250.0}}, {501, kNone, kNone, kNone, kNone}},
      {"sixth never looked at",
       {{100.0, 90.0},
        {700.7, 50.0},
        {800.0, 500.0},
        {1500.0, 80.0},
        {2500.0, 90.0},
        {3500.0, 9.0}},
       {701, 1500, 2500, kNone, kNone}},
      {"beyond 16 bits", {{900.0, 50.0}, {70000.0, 50.0}}, {900, kNone, kNone, kNone, kNone}},
  };
  for (const Row& row : rows) {
    FormantList list;
    for (const Formant& formant : row.candidates) {
      const auto i = static_cast<std::size_t>(list.candidates++);
      list.frequencyHz[i] = formant.frequencyHz;
      list.bandwidthHz[i] = formant.bandwidthHz;
    }
    EXPECT_EQ(InWholeHz(SelectFormants(list)), row.expected) << row.name;
  }
}

}  // namespace
}  // namespace cantorix
