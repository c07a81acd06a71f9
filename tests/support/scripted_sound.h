// scripted_sound.h - a sound system of scripted devices: those that a test is given, and what was
// asked of it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "audio/sound_host.h"
#include "support/scripted_wave.h"

namespace cantorix {

class ScriptedSound : public SoundHost {
 public:
  std::vector<std::string> DeviceNames(SoundDirection direction) override {
    ++questions;
    return direction == SoundDirection::kIn ? inputs : std::vector<std::string>{};
  }
  bool TakesRate(SoundDirection, const std::string& name, std::uint32_t rateHz) override {
    ++questions;
    return !refuses || !refuses(name, rateHz);
  }
  bool Rescan() override {
    ++rescans;
    return !isHung;
  }
  std::shared_ptr<WaveIn> MakeInput(const std::string& name,
                                    std::shared_ptr<LevelTap> tap) override {
    openedInputs.push_back(name);
    in = std::make_shared<ScriptedIn>();
    in->tap = std::move(tap);
    if (onInput) onInput(*in);
    return in;
  }
  std::shared_ptr<WaveOut> MakeOutput(const std::string&) override {
    out = std::make_shared<ScriptedOut>();
    if (onOutput) onOutput(*out);
    return out;
  }

  std::vector<std::string> inputs{"Microphone", "Line"};
  std::function<bool(const std::string& name, std::uint32_t rateHz)> refuses;
  bool isHung = false;
  // Before a new device is used.
  std::function<void(ScriptedIn&)> onInput;
  std::function<void(ScriptedOut&)> onOutput;

  // The latest devices.
  std::shared_ptr<ScriptedIn> in;
  std::shared_ptr<ScriptedOut> out;
  std::vector<std::string> openedInputs;
  int rescans = 0;
  int questions = 0;  // about devices
};

}  // namespace cantorix
