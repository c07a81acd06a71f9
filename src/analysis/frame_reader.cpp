// frame_reader.cpp - zeros outside the recording, and the rule for frames near its end.
#include "analysis/frame_reader.h"

#include <algorithm>

#include "platform/numbers.h"

namespace cantorix {
namespace {

// Reading so much at once takes a small part of the time that its frames do, whether they are all
// asked for or only those of a part; from stretches further apart, too little of it would be used.
constexpr std::int64_t kBlockSamples = 16384;
constexpr std::int64_t kNearSamples = 2048;

}  // namespace

void FrameReader::Read(std::int64_t first, std::span<double> out) {
  const auto size = static_cast<std::int64_t>(out.size());
  const std::int64_t skipped = first < 0 ? std::min(-first, size) : 0;
  const std::int64_t left = samples_.length() - first;  // from `first` to the end
  const std::int64_t end = std::clamp(left, skipped, size);
  std::fill_n(out.begin(), skipped, 0.0);
  std::fill(out.begin() + end, out.end(), 0.0);
  if (skipped == end) return;
  const auto view = Stretch(first + skipped, end - skipped);
  std::copy(view.begin(), view.end(), out.begin() + skipped);
}

std::span<const std::int16_t> FrameReader::Stretch(std::int64_t first, std::int64_t count) {
  const bool follows = first >= last_ && first - last_ <= kNearSamples;
  last_ = first;
  if (first < blockStart_ || first + count > blockStart_ + std::ssize(block_)) {
    block_ = {};  // holds nothing when the read fails
    blockStart_ = first;
    const std::int64_t ahead = std::min(kBlockSamples, samples_.length() - first);
    block_ = samples_.View(first, follows ? std::max(count, ahead) : count, scratch_);
  }
  return block_.subspan(static_cast<std::size_t>(first - blockStart_),
                        static_cast<std::size_t>(count));
}

bool IsCopiedWhole(double start, double length, double margin, double total) {
  return start + length + margin <= total;
}

std::int64_t CopiedSamples(double start, double length, double margin, double total) {
  const std::int64_t whole = Truncate(length + margin);
  if (IsCopiedWhole(start, length, margin, total)) return whole;
  // Kept: the count of samples left serves as the position to stop at. Past the middle of the
  // recording nothing is copied, and the frame is what the one before it was.
  return std::clamp<std::int64_t>(Truncate(total - start) - Truncate(start), 0, whole);
}

FrameBuffer::FrameBuffer(std::size_t length, std::size_t margin)
    : length_(static_cast<double>(length)),
      margin_(static_cast<double>(margin)),
      samples_(length + margin) {}

bool FrameBuffer::IsFree(double start, double total) const {
  return IsCopiedWhole(start, length_, margin_, total);
}

void FrameBuffer::Load(FrameReader& reader, double start, double total) {
  const std::int64_t count = CopiedSamples(start, length_, margin_, total);
  reader.Read(Truncate(start), std::span(samples_).first(static_cast<std::size_t>(count)));
}

}  // namespace cantorix
