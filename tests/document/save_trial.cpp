// save_trial.cpp - a program to be killed while it saves, and the judge of what it left behind.
// "save_trial save FILE" saves recordings of 4 MB over FILE until it is killed; "save_trial check
// FILE" ends with 0 when FILE is whole, which means one of them from its first to its last byte.
// tools/kill_during_save.sh runs both.
#include <algorithm>
#include <cstdio>
#include <string>

#include "document/label.h"
#include "document/native_file.h"
#include "platform/file_error.h"
#include "platform/prompts.h"
#include "platform/services.h"
#include "support/test_host.h"

namespace {

using cantorix::CChannel;
using cantorix::CSonadexDoc;

constexpr std::int64_t kSamples = 2'000'000;

// A recording whose every sample, and whose only label, tell its number.
void MakeRecording(CSonadexDoc& document, std::int16_t number) {
  CChannel& channel = document.channel();
  channel.totalLength = static_cast<double>(kSamples);
  channel.totalDurationMs = channel.totalLength / channel.sampleRateHz * 1000.0;
  channel.tiers[0].inUse = true;
  cantorix::Label label;
  label.text = std::to_string(number);
  channel.AddLabel(0, label);
  cantorix::SampleBlock block(kSamples);
  std::fill(block.samples().begin(), block.samples().end(), number);
  document.HoldInMemory(std::move(block));
}

int SaveForEver(cantorix::DocumentHost& host, const std::string& path) {
  for (std::int16_t number = 1;; number = static_cast<std::int16_t>(number % 30000 + 1)) {
    CSonadexDoc document(host);
    MakeRecording(document, number);
    cantorix::SaveNative(document, path, std::nullopt);
  }
}

int Check(cantorix::DocumentHost& host, const std::string& path) {
  CSonadexDoc document(host);
  if (!ReadNative(document, cantorix::File::OpenForReading(path))) return 1;
  const auto samples = document.channel().samples.samples();
  const auto& labels = document.channel().tiers[0].labels;
  if (samples.size() != kSamples || labels.size() != 1) return 1;
  const auto isOther = [&](std::int16_t sample) { return sample != samples[0]; };
  if (std::any_of(samples.begin(), samples.end(), isOther)) return 1;
  return labels[0].text == std::to_string(samples[0]) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string verb = argc == 3 ? argv[1] : "";
  cantorix::TestHost host;
  try {
    if (verb == "save") return SaveForEver(host.host, argv[2]);
    if (verb == "check") return Check(host.host, argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "save_trial: %s\n", error.what());
    return 1;
  }
  std::fputs("usage: save_trial save|check FILE\n", stderr);
  return 2;
}
