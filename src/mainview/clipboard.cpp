// clipboard.cpp - what emptying gives back.
#include "mainview/clipboard.h"

#include "document/label.h"

namespace cantorix {

void Clipboard::Empty() {
  clipboardFull = false;
  channelCount = 0;
  for (CChannel& slot : slots) {
    slot.samples = SampleBlock();
    for (Tier& tier : slot.tiers) tier.labels.clear();
  }
  tiersAsCopied = {};
}

}  // namespace cantorix
