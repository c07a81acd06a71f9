// portaudio_host.h - the sound system of the machine by way of PortAudio: its devices, and inputs
// and outputs made from them. All of the library's calls run on one thread with deadlines, so a
// sound server that hangs costs its callers two or three seconds, once. The library is not touched
// before the first call; a program has one host.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "audio/level_tap.h"
#include "audio/portaudio/portaudio_api.h"
#include "audio/wave_device.h"

namespace cantorix {

struct PortAudioState;

class PortAudioHost {
 public:
  // Before the program has other threads: it sets two variables of the environment.
  PortAudioHost();

  // Devices to choose from, the sound system's own default not among them. Empty when there is none
  // or the sound system does not answer.
  std::vector<std::string> DeviceNames(SoundDirection direction);
  // Whether the device ("" for the default) takes the rate.
  bool TakesRate(SoundDirection direction, const std::string& name, std::uint32_t rateHz);
  // Looks for devices anew. False while a stream is open or the sound system does not answer.
  bool Rescan();

  // `name` is one of DeviceNames, or "" for the sound system's own default; a device that has gone
  // counts as one that cannot be opened. `tap`, or none, sees all that comes in.
  std::shared_ptr<WaveIn> MakeInput(const std::string& name, std::shared_ptr<LevelTap> tap);
  std::shared_ptr<WaveOut> MakeOutput(const std::string& name);

 private:
  std::shared_ptr<PortAudioState> state_;
};

}  // namespace cantorix
