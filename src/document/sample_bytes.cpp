// sample_bytes.cpp - byte order and block size of samples in files.
#include "document/sample_bytes.h"

#include <algorithm>
#include <bit>

#include "platform/file.h"
#include "platform/numbers.h"

namespace cantorix {

std::int64_t OneSecondOfSamples(double rateHz) {
  return std::max<std::int64_t>(1, Truncate(rateHz));
}

std::span<const std::byte> LittleBytes(std::span<const std::int16_t> samples,
                                       std::vector<std::int16_t>& scratch) {
  if constexpr (std::endian::native == std::endian::little) return std::as_bytes(samples);
  scratch.assign(samples.begin(), samples.end());
  SwapFromLittle(scratch);
  return std::as_bytes(std::span(scratch));
}

}  // namespace cantorix
