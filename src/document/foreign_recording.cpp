// foreign_recording.cpp - channel fields and channel choice of foreign formats.
#include "document/foreign_recording.h"

#include <algorithm>
#include <optional>

#include "document/document.h"
#include "document/native_layout.h"
#include "document/sample_loader.h"
#include "platform/abandon.h"
#include "platform/file.h"
#include "platform/file_error.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr const char* kChannelQuestion =
    "This file has multiple data channels.\n"
    "Only one channel can be read at a time.\n"
    "Please select which channel you wish to read.";

// At a rate that is refused here the recording could not be saved.
void RequirePossibleRate(double rateHz, std::int64_t count) {
  const auto length = static_cast<double>(count);
  if (!(rateHz > 0.0) || native::FindImpossible(length, rateHz, length * 1000.0 / rateHz)) {
    throw FileError("Its sample rate is not possible.");
  }
}

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
  if (document.wantedChannel) return std::clamp(*document.wantedChannel, 1, channelCount) - 1;
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
  document.fileChannel = channel + 1;
}

void TellOfMissing(CSonadexDoc& document, std::int64_t promised, std::int64_t held,
                   const std::string& then) {
  if (held >= promised) return;
  document.host().prompts.Message("The file is incomplete: its header promises " +
                                  std::to_string(promised) + " samples, " + std::to_string(held) +
                                  " are there." + then);
}

void ReadForeign(CSonadexDoc& document, const File& file, const ForeignSound& sound,
                 const ChannelLoader& load) {
  RequirePossibleRate(sound.rateHz, 0);
  if (sound.frames && *sound.frames <= 0) throw FileError("It holds no samples.");
  const int channel = ChooseChannelOrAbandon(document, sound.channels);
  const std::int64_t count = load(channel);
  if (count == 0) throw FileError("It holds no samples.");
  RequirePossibleRate(sound.rateHz, count);
  SetForeignFields(document, sound.rateHz, static_cast<double>(count));
  document.formatName = sound.format;
  document.codingName = sound.coding;
  document.fileChannels = sound.channels;
  // Also of what was there when the file was opened and is not any more.
  TellOfMissing(document, sound.promised.value_or(sound.frames.value_or(count)), count);
  if (sound.channels > 1) NameExtractedChannel(document, file.path(), channel);
}

void ReadForeign(CSonadexDoc& document, const File& file, const ForeignSound& sound,
                 const ChannelFeed& feed) {
  ReadForeign(document, file, sound, [&](int channel) {
    return LoadSamplesUpTo(document, sound.rateHz, sound.frames,
                           [&](std::int64_t position, std::span<std::int16_t> out) {
                             return feed(channel, position, out);
                           });
  });
}

}  // namespace cantorix
