// spectrogram_test.cpp - levels and formants against plain steps, and the rules at the edges.
#include "analysis/spectrogram.h"

#include <gtest/gtest.h>

#include <string>

#include "analysis/plain_frames.h"
#include "analysis/spectrogram_column.h"
#include "settings/settings.h"
#include "support/cancelling_progress.h"

namespace cantorix {
namespace {

using testing::CopyingSource;
using testing::kNan;
using testing::PlainFrames;
using testing::Samples;

constexpr double kRateHz = 12000.0;

SpectrogramRequest Request(const Samples& samples, std::int64_t columns, int rows,
                           double rateHz = kRateHz) {
  const auto total = static_cast<double>(samples.size());
  return {{0.0, total}, total, rateHz, columns, rows, true};
}

SpectrogramSettings Settings(std::int32_t points, std::int32_t order = 14,
                             std::int32_t rangeHz = 5000) {
  SpectrogramSettings settings;
  settings.points = points;
  settings.lpcOrder = order;
  settings.rangeHz = rangeHz;
  return settings;
}

Spectrogram Compute(const SampleSource& samples, const SpectrogramRequest& request,
                    const SpectrogramSettings& settings = {}) {
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

struct PlainSpectrogram {
  std::vector<double> levels;  // column by column
  std::vector<FormantColumn> formants;
  bool formantsFound = false;
};

PlainSpectrogram ComputePlainly(const Samples& samples, const SpectrogramRequest& request,
                                const SpectrogramSettings& settings) {
  const int highestHz = static_cast<int>(request.rateHz) / 2000 * 1000;
  const PowerSpectrumOptions options{settings.points,
                                     settings.preEmphasis,
                                     true,
                                     true,
                                     request.rows,
                                     std::min(settings.rangeHz, highestHz) * 1.0,
                                     request.rateHz};
  PlainFrames frames(static_cast<std::size_t>(settings.points) + 10);
  const int lpcLength = static_cast<int>(request.rateHz * 0.001) * settings.lpcOrder;
  PlainFrames lpcFrames(static_cast<std::size_t>(lpcLength) + 10);
  PlainSpectrogram plain;
  const double step =
      (request.range.end - request.range.start) / static_cast<double>(request.columns);
  for (std::int64_t c = 0; c < request.columns; ++c) {
    const double t = static_cast<double>(c) * step + request.range.start;
    const auto levels = testing::PlainLevels(frames.At(samples, t, request.totalSamples), options);
    plain.levels.insert(plain.levels.end(), levels.begin(), levels.end());
    if (settings.trackFormants == 0) continue;
    const auto& x = lpcFrames.At(samples, t, request.totalSamples);
    const auto y = testing::PlainInput(x, x.size() - 10, settings.preEmphasis);
    FormantColumn& column = plain.formants.emplace_back();
    column.fill(65535);
    std::size_t kept = 0;
    for (const Formant& formant :
         testing::PlainPoles(y, settings.lpcOrder, request.rateHz).formants) {
      column[kept++] = static_cast<std::uint16_t>(formant.frequencyHz);
    }
    plain.formantsFound = plain.formantsFound || plain.formants.back()[0] != 65535;
  }
  const double highest = *std::max_element(plain.levels.begin(), plain.levels.end());
  for (double& v : plain.levels) v = std::max(v - highest + settings.dynamicRangeDb, 0.0);
  for (std::size_t c = 0; c < plain.formants.size(); ++c) {
    const auto first = plain.levels.begin() + static_cast<std::ptrdiff_t>(c) * request.rows;
    const double loudest = *std::max_element(first, first + request.rows);
    if (loudest < settings.dynamicRangeDb * 0.5) plain.formants[c].fill(0);
  }
  return plain;
}

TEST(Spectrogram, HasTheDigitsOfThePlainStepsFromMemoryAndFromAStore) {
  const Samples voice = testing::Speech(4);
  const Samples silence(4000, 0);
  Samples halves = testing::Noise(8000, 3);  // soft, then loud
  halves.resize(16000);
  std::copy_n(testing::Noise(8000, 20000, 2).begin(), 8000, halves.begin() + 8000);
  const auto total = static_cast<double>(voice.size());
  struct Row {
    std::string name;
    const Samples& samples;
    SpectrogramRequest request;
    SpectrogramSettings settings;
  };
  Row rows[] = {
      {"no pre-emphasis", voice, Request(voice, 31, 7), Settings(256)},
      {"levels alone, high dynamics", voice, Request(voice, 50, 100), Settings(512)},
      {"defaults", voice, Request(voice, 90, 60), {}},
      {"narrow band", voice, Request(voice, 9, 33), Settings(8192)},
      {"between samples", voice, {{1000.25, 9876.5}, total, kRateHz, 57, 40, true}, {}},
      {"steps below a sample", voice, {{5000.0, 5020.0}, total, kRateHz, 64, 40, true}, {}},
      {"end", voice, {{total - 300.0, total}, total, kRateHz, 40, 20, true}, Settings(128)},
      {"just fits",
       voice,
       {{total - 138, total - 134}, total, kRateHz, 4, 20, true},
       Settings(128)},
      {"fraction", voice, {{0.0, 500.0}, 900.5, kRateHz, 40, 20, true}, Settings(512)},
      {"high order", voice, Request(voice, 12, 20), Settings(64, 60)},
      {"range above half the rate", voice, Request(voice, 12, 20), Settings(64, 14, 20000)},
      {"other rate", voice, Request(voice, 40, 20, 22050.0), Settings(128, 26)},
      {"silence", silence, Request(silence, 20, 10), {}},
      {"silent half", halves, Request(halves, 16, 40), {}},
  };
  rows[0].settings.preEmphasis = 0.0;
  rows[1].settings.trackFormants = 0;
  rows[1].settings.dynamicRangeDb = 90;
  for (Row& row : rows) {
    const auto plain = ComputePlainly(row.samples, row.request, row.settings);
    for (const bool keepLevels : {true, false}) {
      row.request.keepLevels = keepLevels;
      const auto memory = Compute(SpanSource(row.samples), row.request, row.settings);
      const auto store = Compute(CopyingSource(row.samples), row.request, row.settings);
      ASSERT_TRUE(memory.computed()) << row.name;
      EXPECT_EQ(memory.formants, plain.formants) << row.name;
      EXPECT_EQ(store.formants, plain.formants) << row.name;
      EXPECT_EQ(memory.formantsFound, plain.formantsFound) << row.name;
      EXPECT_EQ(memory.levels != nullptr, keepLevels);
      if (!keepLevels) continue;
      EXPECT_EQ(AllLevels(memory), plain.levels) << row.name;
      SpectrogramRequest kept = row.request;
      kept.keepSource = true;
      SpectrogramSettings wider = row.settings;
      wider.dynamicRangeDb += 25;
      auto changed = Compute(SpanSource(row.samples), kept, wider);
      ApplyDynamicRange(changed, row.settings.dynamicRangeDb);
      EXPECT_EQ(AllLevels(changed), plain.levels) << row.name << ", from another range";
      EXPECT_EQ(changed.formants, plain.formants) << row.name << ", from another range";
      EXPECT_EQ(AllLevels(store), plain.levels) << row.name;
    }
  }
}

// Near the end the frame's rest is what an earlier frame left, not silence.
TEST(Spectrogram, FrameThatNeverFitsCopiesToTheCountOfWhatIsLeftIsKept) {
  const Samples noise = testing::Noise(100, 8000);
  FrameBuffer buffer(128, 10);
  const SpanSource source(noise);
  FrameReader reader(source);
  std::vector<double> expected(138);
  std::copy(noise.begin() + 30, noise.begin() + 70, expected.begin());
  for (const double start : {30.0, 50.0}) {  // positions 30 ... 69, then none
    buffer.Load(reader, start, 100.0);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), buffer.samples().begin()));
  }
}

// Counts what is asked of it.
class CountingSource : public CopyingSource {
 public:
  using CopyingSource::CopyingSource;
  std::span<const std::int16_t> View(std::int64_t start, std::int64_t count,
                                     std::vector<std::int16_t>& scratch) const override {
    ++views;
    samples += count;
    return CopyingSource::View(start, count, scratch);
  }
  mutable std::int64_t views = 0, samples = 0;
};

TEST(FrameReader, ReadsTheSameNearAndFarAndAheadWhereStretchesAreNear) {
  struct Row {
    std::string name;
    std::int64_t first, hop, size, count, mostViews, mostSamples;
  };
  const Row rows[] = {
      // 147 stretches in what is read at once.
      {"close", -300, 110, 266, 900, 7, 6 * 16384 + 2950},
      {"one behind the other, up to the end", 0, 500, 500, 200, 7, 6 * 16384 + 4000},
      {"just near", 5000, 2048, 266, 31, 5, 266 + 4 * 16384},
      {"far apart", 5000, 2049, 266, 31, 31, 31 * 266},
      {"backwards", 90000, -110, 266, 700, 700, 700 * 266},
      {"longer than what is read ahead", 10, 100, 40000, 300, 300, 300 * 40000},
      {"standing", 777, 0, 266, 50, 1, 16384},
  };
  const Samples noise = testing::Noise(100000, 30000);
  for (const Row& row : rows) {
    const CountingSource source(noise);
    FrameReader reader(source);
    std::vector<double> frame(static_cast<std::size_t>(row.size));
    for (std::int64_t i = 0; i < row.count; ++i) {
      const std::int64_t first = row.first + i * row.hop;
      reader.Read(first, frame);
      for (std::int64_t k = 0; k < row.size; ++k) {
        const std::int64_t at = first + k;
        const bool inside = at >= 0 && at < std::ssize(noise);
        ASSERT_EQ(frame[static_cast<std::size_t>(k)],
                  inside ? noise[static_cast<std::size_t>(at)] : 0.0)
            << row.name << ' ' << at;
      }
    }
    EXPECT_LE(source.views, row.mostViews) << row.name;
    EXPECT_LE(source.samples, row.mostSamples) << row.name;
  }
}

TEST(Spectrogram, LpcFrameOfWholeSamplesPerMsIsKept) {
  // 572 samples at 22050 Hz and order 26: the pre-emphasis reaches one sample further, no more.
  const auto formantsWith = [](std::size_t changed) {
    Samples noise = testing::Noise(2000, 100);
    noise[changed] = 32767;
    const CopyingSource source(noise);
    const SpectrogramRequest request = Request(noise, 1, 10, 22050.0);
    ColumnFormants column(source, request, Settings(128, 26));
    FormantColumn found;
    column.Add(0.0);
    EXPECT_TRUE(column.Find(std::span(&found, 1)));
    return found;
  };
  EXPECT_NE(formantsWith(572), formantsWith(573));
  EXPECT_EQ(formantsWith(573), formantsWith(574));
}

TEST(Spectrogram, CountsColumnsAndLeavesNothingWhenCancelled) {
  const Samples noise = testing::Noise(3000, 5000);
  for (const int cancelAt : {1, 5, 12, 13}) {
    CancellingProgress progress(cancelAt);
    const auto compute = [&] {
      ComputeSpectrogram(SpanSource(noise), Request(noise, 12, 8), {}, progress);
    };
    if (cancelAt <= 12) {
      EXPECT_THROW(compute(), Abandoned);
    } else {
      compute();
    }
    EXPECT_EQ(progress.texts,
              std::vector<std::string>{" Processing Spectrogram...(Press mouse to cancel)"});
    EXPECT_EQ(progress.totals, std::vector<double>{12.0});
    EXPECT_EQ(progress.done.size(), static_cast<std::size_t>(std::min(cancelAt, 12)));
    EXPECT_EQ(progress.endCount, 1);
  }
}

TEST(Spectrogram, GivesLevelsAwayThatItWouldKeep) {
  const Samples noise = testing::Noise(3000, 32767);
  const SpectrogramRequest kept = Request(noise, 60, 30000);
  const SpectrogramSettings settings = Settings(512);
  const Spectrogram whole = Compute(SpanSource(noise), kept, settings);
  SpectrogramRequest given = kept;
  std::vector<double> levels;
  int times = 0;
  given.takeLevels = [&](std::span<const double> some) {
    EXPECT_EQ(some.size() % 30000, 0U);
    levels.insert(levels.end(), some.begin(), some.end());
    ++times;
  };
  const Spectrogram empty = Compute(SpanSource(noise), given, settings);
  EXPECT_GT(times, 2);
  EXPECT_EQ(empty.levels, nullptr);
  EXPECT_TRUE(empty.computed());
  ReferenceLevels(levels, empty, settings.dynamicRangeDb);
  EXPECT_EQ(levels, AllLevels(whole));
}

TEST(Spectrogram, RefusesOrSurvivesExtremes) {
  const Samples noise = testing::Noise(700, 32767);
  const SampleRange all = testing::Whole(noise);
  const auto computed = [&noise](double rateHz, const SampleRange& range, std::int64_t columns,
                                 int rows, const SpectrogramSettings& settings) {
    return Compute(CopyingSource(noise), {range, 700.0, rateHz, columns, rows, true}, settings)
        .computed();
  };
  for (const double rateHz : {0.0, kNan, testing::kInfinity, 900.0, 4000.0}) {
    EXPECT_EQ(computed(rateHz, all, 4, 3, Settings(64)), rateHz == 900.0 || rateHz == 4000.0);
  }
  for (const int points : {16, 32, 100, 8192, 16384}) {
    EXPECT_EQ(computed(kRateHz, all, 10, 10, Settings(points)), points == 32 || points == 8192);
  }
  for (const int count : {-3, 0, 1}) {
    EXPECT_EQ(computed(kRateHz, all, count, 10, Settings(64)), count > 0);
    EXPECT_EQ(computed(kRateHz, all, 10, count, Settings(64)), count > 0);
  }
  for (const SampleRange& range : {SampleRange{kNan, 700.0},
                                   {0.0, kNan},
                                   {350.0, 350.0},
                                   {350.0, 20.0},
                                   {-50.0, 5000.0},
                                   {10.0, 20.0}}) {
    EXPECT_EQ(computed(kRateHz, range, 3000, 3, Settings(32, 4)),
              !std::isnan(range.start + range.end));
  }
  for (const int order : {400, -9}) {
    EXPECT_TRUE(computed(kRateHz, all, 4, 5, Settings(64, order, -3000))) << order;
  }
  const auto endless = Request(noise, std::numeric_limits<std::int64_t>::max(), 100);
  EXPECT_THROW(Compute(SpanSource(noise), endless), Abandoned);
  const auto order = Settings(64, std::numeric_limits<std::int32_t>::max());
  EXPECT_THROW(Compute(SpanSource(noise), Request(noise, 2, 2), order), Abandoned);
}

}  // namespace
}  // namespace cantorix
