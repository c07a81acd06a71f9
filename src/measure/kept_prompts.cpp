// kept_prompts.cpp - answers that were given beforehand.
#include "measure/kept_prompts.h"

#include <utility>

namespace cantorix {

Answer KeptPrompts::Ask(const std::string&, Buttons) {
  // The one question that a file raises before it is open is how to read one of unknown kind.
  return generic ? Answer::kOk : Answer::kCancel;
}

std::optional<int> KeptPrompts::ChooseChannel(const std::string&, int channelCount) {
  if (channel && *channel <= channelCount) return *channel - 1;
  const std::string range = "channel must be 1 to " + std::to_string(channelCount);
  refusal_.emplace(channel ? range + ", not " + std::to_string(*channel)
                           : range + ": the file has several");
  return {};
}

std::vector<std::string> KeptPrompts::TakeTexts() { return std::exchange(said_, {}); }

std::string KeptPrompts::TakeSaid() {
  std::string all;
  for (const std::string& text : TakeTexts()) all += (all.empty() ? "" : " ") + text;
  return all;
}

}  // namespace cantorix
