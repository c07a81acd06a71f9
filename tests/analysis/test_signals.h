// test_signals.h - signals for tests of the analyses: real speech where the system has some, noise
// and simple shapes, and a sample source that behaves like a store.
#pragma once

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "analysis/sample_range.h"
#include "platform/sample_source.h"

namespace cantorix::testing {

using Samples = std::vector<std::int16_t>;

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

inline Samples Noise(std::size_t count, int amplitude, unsigned seed = 1) {
  std::mt19937 random(seed);
  Samples noise(count);
  for (auto& x : noise) {
    const auto span = 2 * static_cast<std::uint32_t>(amplitude) + 1;
    x = static_cast<std::int16_t>(static_cast<int>(random() % span) - amplitude);
  }
  return noise;
}

// Every `decimation`-th sample of the spoken words that the package alsa-utils installs (16 bit,
// 48000 Hz, one channel, 44 bytes of header); noise where they are missing.
inline Samples Speech(int decimation = 1) {
  Samples speech;
  const std::filesystem::path folder = "/usr/share/sounds/alsa";
  for (const char* name : {"Front_Center.wav", "Rear_Left.wav", "Side_Right.wav"}) {
    std::ifstream file(folder / name, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    for (std::size_t i = 44; i + 1 < bytes.size(); i += 2 * static_cast<std::size_t>(decimation)) {
      const int low = static_cast<unsigned char>(bytes[i]);
      const int high = static_cast<unsigned char>(bytes[i + 1]);
      speech.push_back(static_cast<std::int16_t>(high << 8 | low));
    }
  }
  return speech.empty() ? Noise(64000, 4000) : speech;
}

inline Samples Sine(std::size_t count, double rateHz, double hz, double amplitude) {
  Samples sine(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double phase = 2.0 * 3.14159265358979323846 * hz * static_cast<double>(i) / rateHz;
    sine[i] = static_cast<std::int16_t>(std::lround(amplitude * std::sin(phase)));
  }
  return sine;
}

inline SampleRange Whole(const Samples& samples) {
  return {0.0, static_cast<double>(samples.size())};
}

// Hands out copies, as a store does, and fails a test that reads outside by throwing.
class CopyingSource : public SampleSource {
 public:
  explicit CopyingSource(Samples samples) : samples_(std::move(samples)) {}
  std::int64_t length() const override { return static_cast<std::int64_t>(samples_.size()); }
  std::span<const std::int16_t> View(std::int64_t start, std::int64_t count,
                                     std::vector<std::int16_t>& scratch) const override {
    if (start < 0 || count < 0 || start > length() - count) throw std::out_of_range("View");
    const auto first = samples_.begin() + start;
    scratch.assign(first, first + count);
    return scratch;
  }

 private:
  Samples samples_;
};

}  // namespace cantorix::testing
