// interleaved_samples.cpp - blocks of frames, taken apart.
#include "document/interleaved_samples.h"

#include <algorithm>

#include "platform/file.h"

namespace cantorix {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 18U;

}  // namespace

std::int64_t InterleavedSamples::OffsetOf(std::int64_t position) const {
  return place_.dataOffset + position * static_cast<std::int64_t>(place_.frameBytes);
}

std::size_t InterleavedSamples::Read(std::int64_t position, std::span<std::int16_t> out) {
  if (place_.coding == SampleCoding::kSigned16 && place_.order == ByteOrder::kLowFirst &&
      place_.frameBytes == sizeof(std::int16_t)) {
    return ReadAsTheyAre(position, out);
  }
  const std::size_t block = std::max<std::size_t>(1, kBlockBytes / place_.frameBytes);
  std::size_t held = 0;
  for (std::size_t done = 0; done < out.size(); done += block) {
    held += ReadFrames(position + static_cast<std::int64_t>(done),
                       out.subspan(done, std::min(block, out.size() - done)));
  }
  return held;
}

// One channel of 16 bits: the file's bytes are the samples.
std::size_t InterleavedSamples::ReadAsTheyAre(std::int64_t position,
                                              std::span<std::int16_t> out) const {
  const std::size_t got = file_.ReadSome(OffsetOf(position), std::as_writable_bytes(out));
  const std::size_t whole = got / sizeof(std::int16_t);
  SwapFromLittle(out.first(whole));
  std::fill(out.begin() + static_cast<std::ptrdiff_t>(whole), out.end(), std::int16_t{0});
  return whole;
}

std::size_t InterleavedSamples::ReadFrames(std::int64_t position, std::span<std::int16_t> out) {
  raw_.resize(out.size() * place_.frameBytes);
  const std::size_t got = file_.ReadSome(OffsetOf(position), raw_);
  const std::size_t firstEnd = place_.channelOffset + WidthOf(place_.coding);
  const std::size_t whole = got < firstEnd ? 0 : (got - firstEnd) / place_.frameBytes + 1;
  if (whole > 0) {
    ConvertSamples(place_.coding, std::span(raw_).subspan(place_.channelOffset), place_.frameBytes,
                   out.first(whole), place_.order);
  }
  std::fill(out.begin() + static_cast<std::ptrdiff_t>(whole), out.end(), std::int16_t{0});
  return whole;
}

std::int64_t FramesBehind(const File& file, std::int64_t dataOffset, std::size_t frameBytes) {
  return std::max<std::int64_t>(file.Size() - dataOffset, 0) /
         static_cast<std::int64_t>(frameBytes);
}

void ReadInterleaved(CSonadexDoc& document, const File& file, const ForeignSound& sound,
                     const InterleavedPlace& first) {
  std::optional<InterleavedSamples> samples;
  ReadForeign(document, file, sound,
              [&](int channel, std::int64_t position, std::span<std::int16_t> out) {
                if (!samples) {
                  InterleavedPlace place = first;
                  place.channelOffset += static_cast<std::size_t>(channel) * WidthOf(first.coding);
                  samples.emplace(file, place);
                }
                return samples->Read(position, out);
              });
}

}  // namespace cantorix
