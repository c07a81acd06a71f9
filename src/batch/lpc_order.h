// lpc_order.h - the LPC order of a verb beside the rate of each recording.
#pragma once

#include <cstdint>

#include "batch/session.h"

namespace cantorix::batch {

// With "--lpc auto" the order becomes the usual one at the recording's rate; another order that is
// low there is named on standard error, and used.
void SettleLpcOrder(Session& session, std::int32_t& order);

}  // namespace cantorix::batch
