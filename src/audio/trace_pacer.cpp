// trace_pacer.cpp - what the clock allows, out of what has arrived.
#include "audio/trace_pacer.h"

#include <algorithm>

namespace cantorix {
namespace {

constexpr double kBehindMs = 50.0;
constexpr double kTooFarBehindMs = 200.0;

}  // namespace

TracePacer::TracePacer(std::uint32_t rateHz) : rateHz_(rateHz) {}

std::size_t TracePacer::Samples(double ms) const {
  return static_cast<std::size_t>(ms * rateHz_ / 1000.0);
}

void TracePacer::Take(std::span<const std::int16_t> samples) {
  const auto given = static_cast<std::ptrdiff_t>(given_);
  waiting_.erase(waiting_.begin(), waiting_.begin() + given);
  given_ = 0;
  waiting_.insert(waiting_.end(), samples.begin(), samples.end());
  if (waiting_.size() <= rateHz_) return;
  waiting_.erase(waiting_.begin(), waiting_.end() - static_cast<std::ptrdiff_t>(rateHz_));
}

std::span<const std::int16_t> TracePacer::Due(double nowMs) {
  Take({});
  const std::size_t held = waiting_.size();
  if (!lastMs_) {
    if (held >= Samples(kBehindMs)) lastMs_ = nowMs;
    return {};
  }
  owed_ += (nowMs - *lastMs_) * rateHz_ / 1000.0;
  lastMs_ = nowMs;
  // A device whose clock is the quicker one, or a picture that came late.
  if (static_cast<double>(held) - owed_ > static_cast<double>(Samples(kTooFarBehindMs))) {
    owed_ = static_cast<double>(held - Samples(kBehindMs));
  }
  given_ = std::min(static_cast<std::size_t>(std::max(owed_, 0.0)), held);
  owed_ -= static_cast<double>(given_);
  if (owed_ >= 1.0) {
    lastMs_.reset();
    owed_ = 0.0;
  }
  return std::span(waiting_).first(given_);
}

}  // namespace cantorix
