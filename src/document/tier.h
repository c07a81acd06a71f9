// tier.h - the tiers of a channel, each with its labels. Who reads or changes a label includes
// label.h, too: most of the program passes tiers on and does not depend on it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace cantorix {

struct Label;

struct Tier {
  Tier();
  ~Tier();
  Tier(const Tier&);
  Tier& operator=(const Tier&);
  Tier(Tier&&) noexcept;
  Tier& operator=(Tier&&) noexcept;

  std::string name;            // at most 255 bytes in the native file
  std::vector<Label> labels;   // in insertion order
  std::int32_t tierWord = 20;  // height in pixels
  bool inUse = false;          // only tiers in use are drawn, saved, listed and offered

  std::int32_t labelCount() const;
};

inline constexpr int kTierCount = 10;
using Tiers = std::array<Tier, kTierCount>;

}  // namespace cantorix
