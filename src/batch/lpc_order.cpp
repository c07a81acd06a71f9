// lpc_order.cpp - taken by the rate, or said to be low.
#include "batch/lpc_order.h"

#include <string>

#include "settings/suggested_settings.h"

namespace cantorix::batch {

void SettleLpcOrder(Session& session, std::int32_t& order) {
  const double rateHz = session.document().channel().sampleRateHz;
  if (session.request().usualLpcOrder) order = UsualLpcOrder(rateHz);
  const std::string low = LowOrderText(order, rateHz);
  if (!low.empty()) session.prompts().Note(low);
}

}  // namespace cantorix::batch
