// portaudio_host.h - the sound system of this machine by way of PortAudio. All of the library's
// calls run on one thread with deadlines, so a sound server that hangs costs its callers two or
// three seconds, once. The library is not touched before the first call; a program has one host.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "audio/sound_host.h"

namespace cantorix {

struct PortAudioState;

class PortAudioHost : public SoundHost {
 public:
  // Before the program has other threads: it sets two variables of the environment.
  PortAudioHost();

  std::vector<std::string> DeviceNames(SoundDirection direction) override;
  bool TakesRate(SoundDirection direction, const std::string& name, std::uint32_t rateHz) override;
  bool Rescan() override;
  std::shared_ptr<WaveIn> MakeInput(const std::string& name,
                                    std::shared_ptr<LevelTap> tap) override;
  std::shared_ptr<WaveOut> MakeOutput(const std::string& name) override;

 private:
  std::shared_ptr<PortAudioState> state_;
};

}  // namespace cantorix
