// file_source.cpp - positions, and a window for small reads.
#include "document/decoding/file_source.h"

#include <algorithm>
#include <utility>

namespace cantorix {

std::int64_t FileSource::Seek(std::int64_t offset, From from) noexcept {
  const std::int64_t base = from == From::kStart ? 0 : position_;
  std::int64_t target = 0;
  if (__builtin_add_overflow(base, offset, &target) || target < 0) return -1;
  return position_ = target;
}

std::int64_t FileSource::Read(std::span<std::byte> out) noexcept {
  if (kept_ != nullptr || position_ >= length_) return 0;
  const auto left = static_cast<std::uint64_t>(length_ - position_);
  out = out.first(static_cast<std::size_t>(std::min<std::uint64_t>(out.size(), left)));
  try {
    const std::size_t got =
        out.size() >= kWindowBytes ? file_.ReadSome(position_, out) : ReadThroughWindow(out);
    position_ += static_cast<std::int64_t>(got);
    return static_cast<std::int64_t>(got);
  } catch (...) {
    kept_ = std::current_exception();
    return 0;
  }
}

std::size_t FileSource::ReadThroughWindow(std::span<std::byte> out) {
  const std::int64_t end = position_ + std::ssize(out);
  if (position_ < windowStart_ || end > windowStart_ + std::ssize(window_)) {
    window_.resize(kWindowBytes);
    window_.resize(file_.ReadSome(position_, window_));
    windowStart_ = position_;
  }
  const auto held = std::span(window_).subspan(static_cast<std::size_t>(position_ - windowStart_));
  const std::size_t got = std::min(out.size(), held.size());
  std::copy_n(held.begin(), got, out.begin());
  return got;
}

void FileSource::ThrowKept() {
  if (kept_ != nullptr) std::rethrow_exception(std::exchange(kept_, nullptr));
}

}  // namespace cantorix
