// generic_content.cpp - samples of binary and text files, and their outcome in advance.
#include "document/readers/generic_content.h"

#include <algorithm>
#include <vector>

#include "platform/file_error.h"

namespace cantorix {
namespace {

// Of a stretch behind one column of the preview so many samples are looked at.
constexpr std::int64_t kLookedAt = 2048;
// A longer text is shown as far as this many samples.
constexpr std::int64_t kMostPreviewSamples = std::int64_t{1} << 24;

using Extremes = GenericOutcome::Extremes;

Extremes ExtremesOf(std::span<const std::int16_t> samples) {
  const auto [low, high] = std::minmax_element(samples.begin(), samples.end());
  return {*low, *high};
}

// Two neighbours become one.
void Halve(std::vector<Extremes>& stretches) {
  for (std::size_t i = 0; i < stretches.size() / 2; ++i) {
    const Extremes& a = stretches[2 * i];
    const Extremes& b = stretches[2 * i + 1];
    stretches[i] = {std::min(a.low, b.low), std::max(a.high, b.high)};
  }
  stretches.resize(stretches.size() / 2);
}

// Takes blocks of samples without knowing how many will come. Each stretch but the last holds as
// many blocks as the others.
class GrowingWaveform {
 public:
  explicit GrowingWaveform(int columns) : most_(static_cast<std::size_t>(columns) * 2) {}

  void Add(std::span<const std::int16_t> block) {
    if (blocks_ == 0) {
      stretches_.push_back(ExtremesOf(block));
    } else {
      Extremes& last = stretches_.back();
      const Extremes more = ExtremesOf(block);
      last = {std::min(last.low, more.low), std::max(last.high, more.high)};
    }
    if (++blocks_ < blocksInStretch_) return;
    blocks_ = 0;
    if (stretches_.size() < most_) return;
    Halve(stretches_);
    blocksInStretch_ *= 2;
  }
  std::vector<Extremes> Take() { return std::move(stretches_); }

 private:
  std::size_t most_;
  std::vector<Extremes> stretches_;
  int blocks_ = 0;  // in the last stretch, when that is not full
  int blocksInStretch_ = 1;
};

GenericOutcome ReadText(const File& file, const GenericParameters& parameters, int columns) {
  GenericOutcome outcome;
  AsciiSamples samples(file, parameters);
  GrowingWaveform waveform(columns);
  std::array<std::int16_t, 16> block{};
  while (outcome.samples < kMostPreviewSamples) {
    const std::size_t got = samples.Read(block);
    if (got > 0) waveform.Add(std::span(block).first(got));
    outcome.samples += static_cast<std::int64_t>(got);
    if (got < block.size()) break;
  }
  outcome.waveform = waveform.Take();
  return outcome;
}

}  // namespace

InterleavedPlace BinaryPlace(const GenericParameters& parameters) {
  const bool isWide = parameters.sixteenBit != 0;
  InterleavedPlace place{.coding = isWide ? SampleCoding::kSigned16 : SampleCoding::kUnsigned8};
  place.order = parameters.highByteFirst != 0 ? ByteOrder::kHighFirst : ByteOrder::kLowFirst;
  place.frameBytes = WidthOf(place.coding);
  place.dataOffset = parameters.headerBytes;
  return place;
}

std::size_t AsciiSamples::Read(std::span<std::int16_t> out) {
  std::size_t done = 0;
  for (double number = 0.0; done < out.size() && numbers_.Next(number); ++done) {
    out[done] = SampleFromUnits(number);
    if (std::round(number) != out[done]) ++clipped_;
  }
  return done;
}

GenericOutcome FilePreview::TryBinary(const GenericParameters& parameters, int columns) const {
  GenericOutcome outcome;
  const InterleavedPlace place = BinaryPlace(parameters);
  InterleavedSamples samples(file_, place);
  outcome.samples = FramesBehind(file_, place.dataOffset, place.frameBytes);
  if (outcome.samples == 0) throw FileError("It holds no samples.");
  const std::int64_t count = std::min<std::int64_t>(columns, outcome.samples);
  std::vector<std::int16_t> stretch;
  for (std::int64_t i = 0; i < count; ++i) {
    const std::int64_t from = i * outcome.samples / count;
    const std::int64_t to = (i + 1) * outcome.samples / count;
    stretch.resize(static_cast<std::size_t>(std::min(to - from, kLookedAt)));
    samples.Read(from, stretch);
    outcome.waveform.push_back(ExtremesOf(stretch));
  }
  return outcome;
}

const GenericOutcome& FilePreview::TryText(const GenericParameters& parameters, int columns) {
  if (textHeader_ != parameters.headerBytes) {
    textHeader_.reset();
    text_ = ReadText(file_, parameters, columns);
    textHeader_ = parameters.headerBytes;
  }
  return text_;
}

GenericOutcome FilePreview::Try(const GenericParameters& parameters, int columns) {
  try {
    GenericOutcome outcome =
        parameters.binary != 0 ? TryBinary(parameters, columns) : TryText(parameters, columns);
    outcome.durationMs = static_cast<double>(outcome.samples) * 1000.0 / parameters.rateHz;
    return outcome;
  } catch (const FileError& error) {
    GenericOutcome outcome;
    outcome.problem = error.what();
    return outcome;
  }
}

}  // namespace cantorix
