// sound_run.cpp - starting, watching and ending a run.
#include "mainview/sound_run.h"

#include <algorithm>
#include <utility>

#include "document/document.h"

namespace cantorix {
namespace {

constexpr int kSilentLooks = 2000 / kTickMs;

RunEnd EndOf(DeviceHealth health, bool isSilent) {
  if (health == DeviceHealth::kLost) return RunEnd::kLost;
  return isSilent ? RunEnd::kSilent : RunEnd::kNone;
}

}  // namespace

bool Pulse::IsSilent(std::uint64_t callbacks) {
  if (callbacks != callbacks_) quietLooks_ = 0;
  callbacks_ = callbacks;
  return ++quietLooks_ > kSilentLooks;
}

InputRun::InputRun(const SoundParts& parts, const std::string& device, std::uint32_t rateHz,
                   std::shared_ptr<NoticeSink> notices)
    : rateHz_(rateHz),
      tap_(std::make_shared<LevelTap>(rateHz)),
      recorder_(parts.host.MakeInput(device, tap_), std::move(notices), parts.clock, parts.memory),
      meter_(rateHz) {}

bool InputRun::Start(const std::optional<RecordingPlace>& place) {
  RecorderSetup setup;
  setup.rateHz = rateHz_;
  if (place) {
    setup.folder = place->folder;
    setup.stamp = place->stamp;
  }
  recorder_.SetUp(setup);
  if (place && !recorder_.hasFile()) return false;
  if (recorder_.Start() || recorder_.isOpen()) return true;
  if (const auto file = Stop()) file->Remove();
  return false;
}

std::unique_ptr<RecordingFile> InputRun::Stop() {
  recorder_.Stop();
  return recorder_.TakeFile();
}

void InputRun::Pass(SoundWatcher* watcher) {
  std::array<std::int16_t, 4096> piece;
  while (const std::size_t count = tap_->Fetch(piece)) {
    const auto samples = std::span(piece).first(count);
    meter_.Take(samples);
    if (watcher != nullptr) watcher->Heard(samples);
  }
}

RunEnd InputRun::Look() {
  const RecorderStatus status = recorder_.Status();
  const RunEnd end = EndOf(status.device.health, pulse_.IsSilent(status.device.callbacks));
  return status.hasFailed ? RunEnd::kFailed : end;
}

OutputRun::OutputRun(const SoundParts& parts, std::shared_ptr<NoticeSink> notices)
    : player_(parts.host.MakeOutput(""), std::move(notices), parts.clock, parts.memory) {}

bool OutputRun::Start(CSonadexDoc& document, const SoundStretch& stretch) {
  stretch_ = stretch;
  if (const SampleStore* const store = document.store()) {
    player_.SetUpFromFile(store->Samples(), stretch);
  } else {
    player_.SetUpFromMemory(document.Samples(), stretch);
  }
  if (player_.Start() || player_.isOpen()) return true;
  player_.Stop();
  return false;
}

RunEnd OutputRun::Look() {
  const WaveOutStatus status = player_.Status();
  return EndOf(status.health, pulse_.IsSilent(status.callbacks));
}

bool OutputRun::HasEnded() const { return player_.Status().playedSamples >= stretch_.count; }

double OutputRun::positionSamples() const {
  const std::int64_t played = std::min(player_.Status().playedSamples, stretch_.count);
  return static_cast<double>(stretch_.first + played);
}

}  // namespace cantorix
