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

  // Frees the samples and labels of both slots.
  void Empty();
};

}  // namespace cantorix
