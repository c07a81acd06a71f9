// interleaved_samples.h - the samples of one channel of a file that holds them frame by frame, in
// one of the plain codings.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "document/foreign_recording.h"
#include "document/sample_conversion.h"
#include "platform/file.h"

namespace cantorix {

// Where the samples of one channel stand.
struct InterleavedPlace {
  SampleCoding coding = SampleCoding::kSigned16;
  ByteOrder order = ByteOrder::kLowFirst;
  std::size_t frameBytes = 0;     // from one sample to the next
  std::int64_t dataOffset = 0;    // of the first frame
  std::size_t channelOffset = 0;  // of the channel in a frame
};

class InterleavedSamples {
 public:
  // `file` outlives the samples.
  InterleavedSamples(const File& file, const InterleavedPlace& place)
      : file_(file), place_(place) {}

  // The samples from `position` on; 0 for those that the file does not have. Gives the number of
  // those that it has. Throws FileError.
  std::size_t Read(std::int64_t position, std::span<std::int16_t> out) const;
  // Where the sample stands when the file's bytes are the samples, one channel of 16 bits.
  std::optional<FileStretch> Plain(std::int64_t position) const;
  // How many samples the file has now.
  std::int64_t Held() const;

 private:
  std::int64_t OffsetOf(std::int64_t position) const;
  std::size_t ReadAsTheyAre(std::int64_t position, std::span<std::int16_t> out) const;
  std::int64_t SamplesIn(std::int64_t bytes) const;
  std::size_t ReadFrames(std::int64_t position, std::span<std::int16_t> out) const;

  const File& file_;
  InterleavedPlace place_;
};

// Whole frames of `frameBytes` between `dataOffset` and the end of the file.
std::int64_t FramesBehind(const File& file, std::int64_t dataOffset, std::size_t frameBytes);

// Reads a recording whose frames are `sound.channels` samples of `first.coding` each, beginning at
// the place of the first channel. Throws what ReadForeign throws.
void ReadInterleaved(CSonadexDoc& document, const File& file, const ForeignSound& sound,
                     const InterleavedPlace& first);

}  // namespace cantorix
