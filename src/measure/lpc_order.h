// lpc_order.h - the LPC order of a measurement beside the rate of each recording.
#pragma once

#include <cstdint>

#include "measure/analyses.h"

namespace cantorix {

// When the options ask for it the order becomes the usual one at the recording's rate; another
// order that is low there is remarked on, and used.
void SettleLpcOrder(const CSonadexDoc& document, const MeasureOptions& options,
                    const Remark& remark, std::int32_t& order);

}  // namespace cantorix
