// waveform_pyramid.cpp - levels built from the one below, and the extent of any piece.
#include "mainview/waveform_pyramid.h"

#include <algorithm>
#include <cmath>

namespace cantorix {
namespace {

constexpr std::int64_t kBlockSamples = std::int64_t{1} << 20;
// Columns narrower than this are taken from the samples themselves. Wider ones begin and end at
// pieces, which moves their borders by an eighth of a pixel at most and reads no sample.
constexpr double kFineSamples = 4.0 * static_cast<double>(WaveformPyramid::kPieceSamples);

std::size_t Index(std::int64_t i) { return static_cast<std::size_t>(i); }

// Where columns begin and end: column c is [Border(c), Border(c + 1)).
struct Columns {
  double start, width;
  double Border(std::size_t c) const { return start + static_cast<double>(c) * width; }
};

// As a whole number in 0 ... most.
std::int64_t Clamped(double x, std::int64_t most) {
  if (!(x > 0.0)) return 0;
  return x < static_cast<double>(most) ? static_cast<std::int64_t>(x) : most;
}

}  // namespace

SampleExtent ExtentOf(std::span<const std::int16_t> samples) {
  std::int16_t low = INT16_MAX;
  std::int16_t high = INT16_MIN;
  for (const std::int16_t sample : samples) {
    low = std::min(low, sample);
    high = std::max(high, sample);
  }
  return {low, high};
}

WaveformPyramid::WaveformPyramid(const SampleSource& samples) {
  const std::int64_t length = samples.length();
  levels_.emplace_back().reserve(Index(length / kPieceSamples));
  std::vector<std::int16_t> scratch;
  for (std::int64_t start = 0; start < length; start += kBlockSamples) {
    Append(samples.View(start, std::min(kBlockSamples, length - start), scratch));
  }
}

void WaveformPyramid::Append(std::span<const std::int16_t> samples) {
  while (!samples.empty()) {
    const std::int64_t room = kPieceSamples - length_ % kPieceSamples;
    const auto taken = samples.first(std::min(samples.size(), Index(room)));
    open_.Include(ExtentOf(taken));
    length_ += static_cast<std::int64_t>(taken.size());
    samples = samples.subspan(taken.size());
    if (length_ % kPieceSamples == 0) {
      AddPiece(open_);
      open_ = {};
    }
  }
}

void WaveformPyramid::AddPiece(SampleExtent piece) {
  for (std::size_t level = 0;; ++level) {
    if (level == levels_.size()) levels_.emplace_back();
    std::vector<SampleExtent>& pieces = levels_[level];
    pieces.push_back(piece);
    if (pieces.size() % 2 != 0) return;
    piece.Include(pieces[pieces.size() - 2]);
  }
}

SampleExtent WaveformPyramid::Whole() const {
  SampleExtent extent = PiecesBetween(0, length_ / kPieceSamples);
  extent.Include(open_);
  return extent;
}

// Of whole pieces, half-open: at most two of every level.
SampleExtent WaveformPyramid::PiecesBetween(std::int64_t first, std::int64_t last) const {
  SampleExtent extent;
  for (std::size_t level = 0; first < last; ++level) {
    if (first % 2 != 0) extent.Include(levels_[level][Index(first++)]);
    if (last % 2 != 0) extent.Include(levels_[level][Index(--last)]);
    first /= 2;
    last /= 2;
  }
  return extent;
}

void WaveformPyramid::Extents(const SampleSource& samples, double start, double end,
                              std::span<SampleExtent> columns) const {
  std::fill(columns.begin(), columns.end(), SampleExtent{});
  if (columns.empty() || !(end > start) || length_ == 0) return;
  const double width = (end - start) / static_cast<double>(columns.size());
  if (width < kFineSamples) return FineExtents(samples, start, width, columns);
  CoarseExtents(start, width, columns);
}

void WaveformPyramid::FineExtents(const SampleSource& samples, double start, double width,
                                  std::span<SampleExtent> columns) const {
  const Columns places{start, width};
  const std::int64_t first = Clamped(places.Border(0), length_);
  const std::int64_t last = Clamped(places.Border(columns.size()) + 1.0, length_);
  std::vector<std::int16_t> scratch;
  const auto view = samples.View(first, last - first, scratch);
  for (std::size_t c = 0; c < columns.size(); ++c) {
    const double border = std::floor(places.Border(c));
    const double next = std::max(std::floor(places.Border(c + 1)), border + 1.0);
    const std::int64_t from = std::clamp(Clamped(border, length_), first, last);
    const std::int64_t to = std::clamp(Clamped(next, length_), first, last);
    if (to > from) columns[c] = ExtentOf(view.subspan(Index(from - first), Index(to - from)));
  }
}

void WaveformPyramid::CoarseExtents(double start, double width,
                                    std::span<SampleExtent> columns) const {
  const Columns places{start, width};
  const std::int64_t whole = length_ / kPieceSamples;
  const std::int64_t pieces = whole + (length_ % kPieceSamples != 0 ? 1 : 0);
  const auto border = [&](std::size_t c) {
    return Clamped(places.Border(c) / static_cast<double>(kPieceSamples) + 0.5, pieces);
  };
  for (std::size_t c = 0; c < columns.size(); ++c) {
    // The last column takes the rest of the recording along.
    const bool toEnd = places.Border(c + 1) >= static_cast<double>(length_);
    const std::int64_t first = border(c);
    const std::int64_t last = toEnd ? pieces : border(c + 1);
    columns[c] = PiecesBetween(std::min(first, whole), std::min(last, whole));
    if (first < last && last > whole) columns[c].Include(open_);
  }
}

}  // namespace cantorix
