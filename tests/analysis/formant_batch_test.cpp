// formant_batch_test.cpp - the candidates of frames taken together are those of each frame by
// itself, digit for digit, whatever stands beside it.
#include "analysis/formant_batch.h"

#include <gtest/gtest.h>

#include <sstream>

#include "analysis/plain_frames.h"

namespace cantorix {
namespace {

using testing::Samples;

// Windowed frames of speech, noise, silence, a single click, a constant, a sine, and of values
// that predict nothing.
std::vector<std::vector<double>> Frames(std::size_t length) {
  Samples samples = testing::Speech(4);
  samples.resize(30000);
  const auto append = [&](const Samples& more) {
    samples.insert(samples.end(), more.begin(), more.end());
  };
  append(testing::Noise(3000, 1));
  append(Samples(3000, 0));
  append(testing::Noise(3000, 32767));
  append(testing::Sine(6000, 11025.0, 1000.0, 20000.0));
  append(Samples(3000, -32768));
  samples.resize(samples.size() + length + 1);
  samples[34500] = 1;
  std::vector<std::vector<double>> frames;
  const std::size_t hop = length < 200 ? 97 : 1499;
  for (std::size_t t = 0; t + length + 1 <= samples.size(); t += hop) {
    const auto first = samples.begin() + static_cast<std::ptrdiff_t>(t);
    frames.push_back(testing::PlainInput({first, first + static_cast<std::ptrdiff_t>(length) + 1},
                                         length, 0.98));
  }
  for (const double odd : {testing::kNan, testing::kInfinity, 1e200, 1e-200}) {
    frames.insert(frames.begin() + 7, std::vector<double>(length, odd));
  }
  return frames;
}

struct Candidates {
  std::int32_t count = 0;
  std::vector<double> frequencyHz, bandwidthHz;
  bool operator==(const Candidates&) const = default;
};

Candidates Of(const FormantList& list) {
  const auto n = static_cast<std::ptrdiff_t>(list.candidates);
  return {list.count,
          {list.frequencyHz.begin(), list.frequencyHz.begin() + n},
          {list.bandwidthHz.begin(), list.bandwidthHz.begin() + n}};
}

TEST(FormantBatch, HasTheDigitsOfEachFrameByItself) {
  for (const int order : {-1, 0, 1, 2, 3, 4, 5, 13, 14, 15, 24, 101, 401}) {
    const auto frames = Frames(order < 100 ? 154 : 1000);
    std::ostringstream alone, together;
    std::vector<Candidates> expected;
    LpcResult lpc;
    for (const auto& frame : frames) {
      LpcAnalyse(frame, order, lpc, alone);
      expected.push_back(Of(FindFormants(lpc, 11025.0, alone).value()));
    }
    FormantBatch batch(order, 11025.0);
    std::vector<Candidates> found(frames.size());
    // Batches that fill no lane, some and all.
    std::size_t first = 0;
    for (std::size_t size = 1; first < frames.size(); first += size, size = size % 71 + 7) {
      const std::size_t end = std::min(first + size, frames.size());
      for (std::size_t i = first; i < end; ++i) batch.Add(frames[i], together);
      EXPECT_TRUE(batch.Find(
          [&](std::size_t i, const FormantList& list) { found[first + i] = Of(list); }, together));
    }
    for (std::size_t i = 0; i < frames.size(); ++i) {
      EXPECT_TRUE(found[i] == expected[i]) << "order " << order << ", frame " << i;
    }
    EXPECT_EQ(together.str(), alone.str()) << order;
    EXPECT_TRUE(batch.Find({}, together)) << "an empty batch";
  }
}

}  // namespace
}  // namespace cantorix
