// portaudio_host.cpp - devices and streams on the host thread.
#include "audio/portaudio/portaudio_host.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "audio/portaudio/portaudio_state.h"
#include "audio/portaudio/quiet_libraries.h"

namespace cantorix {
namespace {

// The sound servers' own. Through the first a server that dies is noticed; the other may be any.
constexpr const char* kServerDevice = "pulse";
constexpr const char* kDefaultDevice = "default";

// Second names of cards that are in the list already.
bool IsDuplicate(std::string_view name) {
  static constexpr std::array<std::string_view, 6> kSecondNames{"sysdefault", "front",  "surround",
                                                                "dmix",       "iec958", "hdmi"};
  return std::any_of(kSecondNames.begin(), kSecondNames.end(),
                     [name](std::string_view second) { return name.starts_with(second); });
}

int CountDevices(const std::shared_ptr<PortAudioState>& host, SoundDirection direction) {
  const auto count = std::make_shared<std::ptrdiff_t>(0);
  const bool isCounted = host->thread.Run(
      [host, count, direction] {
        host->MakeReady();
        *count = std::count_if(host->devices.begin(), host->devices.end(),
                               [&](const HostDevice& device) { return device.Has(direction); });
        return true;
      },
      kStartDeadline);
  return isCounted ? static_cast<int>(*count) : 0;
}

}  // namespace

void PortAudioState::MakeReady() {
  if (isReady) return;
  SilenceSoundLibraries();
  isReady = StartSoundLibrary();
  if (isReady) devices = ListSoundDevices();
}

std::optional<int> PortAudioState::Find(SoundDirection direction, const std::string& name) {
  const auto named = [&](const std::string& wanted) -> std::optional<int> {
    for (const HostDevice& device : devices) {
      if (device.name == wanted && device.Has(direction)) return device.index;
    }
    return std::nullopt;
  };
  if (!name.empty()) return named(name);
  if (const auto server = named(kServerDevice)) return server;
  if (const auto other = named(kDefaultDevice)) return other;
  for (const HostDevice& device : devices) {
    if (device.Has(direction)) return device.index;
  }
  return std::nullopt;
}

bool RescanDevices(const std::shared_ptr<PortAudioState>& host) {
  return host->thread.Run(
      [host] {
        if (host->openStreams > 0) return false;
        if (host->isReady) EndSoundLibrary();
        host->isReady = false;
        host->devices.clear();
        host->MakeReady();
        return host->isReady;
      },
      kStartDeadline);
}

int CountOrRescan(const std::shared_ptr<PortAudioState>& host, SoundDirection direction) {
  const int count = CountDevices(host, direction);
  return count == 0 && RescanDevices(host) ? CountDevices(host, direction) : count;
}

bool OpenStream(const std::shared_ptr<PortAudioState>& host, SoundDirection direction,
                const std::string& name, std::uint32_t rateHz,
                const std::shared_ptr<SoundStream>& stream) {
  const auto open = [host, direction, name, rateHz, stream] {
    host->MakeReady();
    const auto device = host->Find(direction, name);
    if (!device) return false;
    stream->stream = PortAudioStream::Open(*device, direction, rateHz, stream);
    if (stream->stream) ++host->openStreams;
    return stream->stream != nullptr;
  };
  const auto undo = [host, stream] {
    stream->stream.reset();
    --host->openStreams;
  };
  return host->thread.Run(open, kCallDeadline, undo);
}

bool StartStream(const std::shared_ptr<PortAudioState>& host,
                 const std::shared_ptr<SoundStream>& stream) {
  if (stream->isLost) return false;
  if (stream->isRunning) return true;
  stream->isEnding = false;
  stream->isRunning = true;
  const bool started = host->thread.Run(
      [stream] { return stream->stream && stream->stream->Start(); }, kCallDeadline);
  if (!started) stream->isRunning = false;
  return started;
}

bool AbortStream(const std::shared_ptr<PortAudioState>& host,
                 const std::shared_ptr<SoundStream>& stream) {
  stream->isEnding = true;
  return host->thread.Run([stream] { return stream->stream && stream->stream->Abort(); },
                          kCallDeadline);
}

bool CloseStream(const std::shared_ptr<PortAudioState>& host,
                 const std::shared_ptr<SoundStream>& stream) {
  stream->isEnding = true;
  const auto close = [host, stream] {
    if (stream->stream) --host->openStreams;
    stream->stream.reset();
    return true;
  };
  if (host->thread.isAnswering()) return host->thread.Run(close, kCallDeadline);
  host->thread.Post(close);
  return false;
}

PortAudioHost::PortAudioHost() : state_(std::make_shared<PortAudioState>()) {
  ::setenv("PA_ALSA_PLUGHW", "1", 0);        // raw cards convert the rate themselves
  ::setenv("JACK_NO_START_SERVER", "1", 0);  // looking for devices starts nothing
}

std::vector<std::string> PortAudioHost::DeviceNames(SoundDirection direction) {
  const auto names = std::make_shared<std::vector<std::string>>();
  const bool listed = state_->thread.Run(
      [host = state_, names, direction] {
        host->MakeReady();
        for (const HostDevice& device : host->devices) {
          if (device.Has(direction) && !IsDuplicate(device.name)) names->push_back(device.name);
        }
        return true;
      },
      kStartDeadline);
  return listed ? *names : std::vector<std::string>{};
}

bool PortAudioHost::TakesRate(SoundDirection direction, const std::string& name,
                              std::uint32_t rateHz) {
  return state_->thread.Run(
      [host = state_, direction, name, rateHz] {
        host->MakeReady();
        const auto device = host->Find(direction, name);
        return device && DeviceTakesRate(*device, direction, rateHz);
      },
      kStartDeadline);
}

bool PortAudioHost::Rescan() { return RescanDevices(state_); }

std::shared_ptr<WaveIn> PortAudioHost::MakeInput(const std::string& name,
                                                 std::shared_ptr<LevelTap> tap) {
  return MakePortAudioIn(state_, name, std::move(tap));
}

std::shared_ptr<WaveOut> PortAudioHost::MakeOutput(const std::string& name) {
  return MakePortAudioOut(state_, name);
}

}  // namespace cantorix
