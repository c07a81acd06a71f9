// lpc_order.cpp - taken by the rate, or said to be low.
#include "measure/lpc_order.h"

#include <string>

#include "settings/suggested_settings.h"

namespace cantorix {

void SettleLpcOrder(const CSonadexDoc& document, const MeasureOptions& options,
                    const Remark& remark, std::int32_t& order) {
  const double rateHz = document.channel().sampleRateHz;
  if (options.usualLpcOrder) order = UsualLpcOrder(rateHz);
  const std::string low = LowOrderText(order, rateHz);
  if (!low.empty()) remark(low);
}

}  // namespace cantorix
