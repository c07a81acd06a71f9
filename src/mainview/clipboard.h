// clipboard.h - the clipboard of the application, shared by all open documents: up to two channels
// with their samples, tiers and labels. It survives the document it came from.
#pragma once

#include <array>

#include "document/channel.h"

namespace cantorix {

struct Clipboard {
  bool clipboardFull = false;
  std::int32_t channelCount = 0;
  std::array<CChannel, 2> slots;
  // The labels of each slot once more, at the times that they had in the recording: put back to the
  // very place where they were copied they have just these again, to the last digit.
  std::array<Tiers, 2> tiersAsCopied;

  // Frees the samples and labels of both slots.
  void Empty();
};

}  // namespace cantorix
