// portaudio_api.h - the few calls of PortAudio that the devices need, in the system's own types;
// the only place that knows its header. Every call may hang with the sound server and belongs on
// the host thread; only the sink of a stream is called by the audio thread.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "audio/sound_host.h"

namespace cantorix {

struct HostDevice {
  int index = 0;
  std::string name;
  bool hasInput = false;
  bool hasOutput = false;

  bool Has(SoundDirection direction) const {
    return direction == SoundDirection::kIn ? hasInput : hasOutput;
  }
};

// Looks for devices; takes 50 to 200 ms. False when the library cannot be had.
bool StartSoundLibrary();
// Ends every open stream; the next start sees new devices.
void EndSoundLibrary();
std::vector<HostDevice> ListSoundDevices();
bool DeviceTakesRate(int device, SoundDirection direction, std::uint32_t rateHz);

// What a stream calls, on the audio thread: it must not wait, allocate or write.
class StreamSink {
 public:
  virtual ~StreamSink() = default;
  virtual void Recorded(std::span<const std::int16_t>) {}
  // Must fill `out`, whose first sample will be heard after `heardInSeconds`.
  virtual void Wanted(std::span<std::int16_t> /*out*/, double /*heardInSeconds*/) {}
  // The stream has come to rest: aborted, or its device has gone.
  virtual void Ended() = 0;
};

// An open stream of 16-bit mono samples.
class PortAudioStream {
 public:
  // None when the device refuses.
  static std::unique_ptr<PortAudioStream> Open(int device, SoundDirection direction,
                                               std::uint32_t rateHz,
                                               std::shared_ptr<StreamSink> sink);
  ~PortAudioStream();
  PortAudioStream(const PortAudioStream&) = delete;
  PortAudioStream& operator=(const PortAudioStream&) = delete;

  bool Start();
  // At rest at once; what the device holds is dropped.
  bool Abort();

 private:
  struct Parts;
  explicit PortAudioStream(std::unique_ptr<Parts> parts);
  std::unique_ptr<Parts> parts_;
};

}  // namespace cantorix
