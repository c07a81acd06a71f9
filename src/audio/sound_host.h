// sound_host.h - the sound system of a machine: its devices, and inputs and outputs made from them.
// No call takes longer than a few seconds, whatever the sound system does.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "audio/level_tap.h"
#include "audio/wave_device.h"

namespace cantorix {

enum class SoundDirection { kIn, kOut };

class SoundHost {
 public:
  virtual ~SoundHost() = default;

  // Devices to choose from, the sound system's own default not among them. Empty when there is none
  // or the sound system does not answer.
  virtual std::vector<std::string> DeviceNames(SoundDirection direction) = 0;
  // Whether the device ("" for the default) takes the rate.
  virtual bool TakesRate(SoundDirection direction, const std::string& name,
                         std::uint32_t rateHz) = 0;
  // Looks for devices anew. False while a stream is open or the sound system does not answer.
  virtual bool Rescan() = 0;

  // `name` is one of DeviceNames, or "" for the sound system's own default; a device that has gone
  // counts as one that cannot be opened. `tap`, or none, sees all that comes in.
  virtual std::shared_ptr<WaveIn> MakeInput(const std::string& name,
                                            std::shared_ptr<LevelTap> tap) = 0;
  virtual std::shared_ptr<WaveOut> MakeOutput(const std::string& name) = 0;
};

}  // namespace cantorix
