// tier.cpp - what has to know a label.
#include "document/tier.h"

#include "document/label.h"

namespace cantorix {

Tier::Tier() = default;
Tier::~Tier() = default;
Tier::Tier(const Tier&) = default;
Tier& Tier::operator=(const Tier&) = default;
Tier::Tier(Tier&&) noexcept = default;
Tier& Tier::operator=(Tier&&) noexcept = default;

std::int32_t Tier::labelCount() const { return static_cast<std::int32_t>(labels.size()); }

}  // namespace cantorix
