// native_fixture.h - small native files written down by hand, independent of the writer.
#pragma once

#include <cstddef>
#include <vector>

#include "document/label.h"
#include "document/tier.h"
#include "support/byte_builder.h"

namespace cantorix::fixture {

// Places in SmallFile that tests change.
inline constexpr std::size_t kDuration = 512;
inline constexpr std::size_t kRate = 520;
inline constexpr std::size_t kLength = 528;
inline constexpr std::size_t kTierCount = 604;
inline constexpr std::size_t kFirstTier = 760;
inline constexpr std::size_t kFirstLabel = kFirstTier + 264;
inline constexpr std::size_t kLabelBytes = 368;
inline constexpr std::size_t kSamples = kFirstLabel + 2 * kLabelBytes + 264;

inline ByteBuilder Header(double durationMs, double lengthSamples, int tiers,
                          std::string_view magic = "QRV_PC") {
  ByteBuilder file(magic != "QRV_PC");
  file.Text(magic, 8).I32({1}).Zeros(500);
  file.F64({durationMs, 8000.25, lengthSamples, -3.5, 0.1, 0.2, 0.3, 0.4});
  file.I32({0xDEADBEEF, 16, 1, 2, 3, -7, 4000, tiers, 4, 5, 6, 7, 0xFFFFFFFF});
  file.Text("left \xC3\xA9 \xE9", 64).Text("Pa", 68);
  return file;
}

inline void AddTier(ByteBuilder& file, std::string_view name, int labels, int word) {
  file.Text(name, 256).I32({labels, word});
}

// A label in a font of its own, upright 30 high.
inline void AddLabel(ByteBuilder& file, double timeMs, std::string_view text, int flag = 1) {
  file.F64({timeMs, 0.25}).I32({2, flag, 11, -12, 13, -14, 1, 201, 255});
  file.I32({30, 12, 1, 2, 700}).U8({1, 0, 1, 161, 3, 2, 1, 49}).Text("Doulos", 32);
  file.Text(text, 256);
}

// 5 samples, 0.625 ms: tier "tones" with two labels, tier "empty" with none.
inline std::vector<std::byte> SmallFile(std::string_view magic = "QRV_PC") {
  ByteBuilder file = Header(0.625, 5.0, 2, magic);
  AddTier(file, "tones", 2, 33);
  AddLabel(file, 0.5, "H*");
  AddLabel(file, 0.625, "L\xFF%", 0);
  AddTier(file, "empty", 0, -1);
  file.I16({0, 1, -2, 32767, -32768});
  return file.bytes;
}

}  // namespace cantorix::fixture
