// foreign_recording.cpp - channel fields and channel choice of foreign formats.
#include "document/foreign_recording.h"

#include <algorithm>
#include <optional>

#include "document/document.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr const char* kChannelQuestion =
    "This file has multiple data channels.\n"
    "Only one channel can be read at a time.\n"
    "Please select which channel you wish to read.";

}  // namespace

std::string ChannelEntry(int entry) { return "Channel #" + std::to_string(entry + 1); }

void SetForeignFields(CSonadexDoc& document, double rateHz, double lengthSamples) {
  CChannel& channel = document.channel();
  channel.channelName.clear();
  channel.channelComment = "bits";
  channel.channelFlag = 1;
  channel.bitsPerSample = 16;
  channel.sampleRateHz = rateHz;
  channel.totalLength = lengthSamples;
  channel.totalDurationMs = lengthSamples * 1000.0 / rateHz;
  channel.displayLow = 1.0;
  channel.displayHigh = rateHz * 0.5;
  channel.ShowWholeFile();
  document.channelCount = 1;
  document.foreignSource = true;
}

int ChooseChannelOrAbandon(CSonadexDoc& document, int channelCount) {
  if (channelCount == 1) return 0;
  const int offered = std::min(channelCount, document.host().channelEntries);
  const std::optional<int> chosen =
      document.host().prompts.ChooseChannel(kChannelQuestion, offered);
  if (!chosen) throw Abandoned(AbandonReason::kCancelled);
  if (*chosen < 0 || *chosen >= offered) {
    throw FileError("It has no \"" + ChannelEntry(*chosen) + "\" to choose, only " +
                    std::to_string(offered) + ".");
  }
  return *chosen;
}

void NameExtractedChannel(CSonadexDoc& document, const std::string& path, int channel) {
  document.channelSuffixedName =
      path.substr(path.rfind('/') + 1) + "::Channel" + std::to_string(channel + 1);
  document.extractedChannel = true;
}

}  // namespace cantorix
