// wave_device.h - sound input and output as the recorder and the player use them, call by call.
// Both have headers: the caller lends one with a buffer, the device gives it back marked done and
// signals the event. A device signals the event once when it opens, too. Every call gives false
// when it failed; on a device that is not open every call but the queries fails. No call takes
// longer than a few seconds, whatever the sound system does.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include "audio/wave_event.h"

namespace cantorix {

struct WaveFormat {
  std::uint16_t formatTag = 1;  // PCM
  std::uint16_t channels = 1;
  std::uint32_t rateHz = 0;
  std::uint32_t averageBytesPerSecond = 0;
  std::uint16_t blockAlign = 0;
  std::uint16_t bitsPerSample = 16;
  std::uint16_t extraSize = 0;
};

constexpr WaveFormat MonoFormat(std::uint32_t rateHz, std::uint16_t bitsPerSample) {
  WaveFormat format;
  format.rateHz = rateHz;
  format.bitsPerSample = bitsPerSample;
  format.blockAlign = static_cast<std::uint16_t>(format.channels * bitsPerSample / 8);
  format.averageBytesPerSecond = format.channels * bitsPerSample / 8 * rateHz;
  return format;
}

inline constexpr std::uint32_t kHeaderPrepared = 1;
inline constexpr std::uint32_t kHeaderDone = 2;
inline constexpr std::uint32_t kHeaderQueued = 4;  // the device has it

struct WaveHeader {
  std::int16_t* data = nullptr;
  std::uint32_t lengthBytes = 0;
  std::atomic<std::uint32_t> recordedBytes{0};  // input only
  std::atomic<std::uint32_t> flags{0};          // kHeader...
  std::uint32_t loops = 0;

  bool isPrepared() const { return (flags.load() & kHeaderPrepared) != 0; }
};

enum class DeviceHealth {
  kRunning,
  kLost,  // the server or the card has gone; nothing comes any more
};

struct WaveInStatus {
  DeviceHealth health = DeviceHealth::kRunning;
  std::uint64_t callbacks = 0;       // grows while the device lives
  std::int64_t acceptedSamples = 0;  // taken from the device since it opened
  std::int64_t lostSamples = 0;      // for which there was no room
  std::int64_t firstLossAt = -1;     // accepted samples before the first lost one, or -1
};

class WaveIn {
 public:
  virtual ~WaveIn() = default;

  virtual int DeviceCount() = 0;
  virtual bool Capabilities() = 0;
  virtual bool Open(const WaveFormat& format, std::shared_ptr<WaveEvent> event) = 0;
  // Marks the header prepared. Unprepare fails while the device has it.
  virtual bool Prepare(WaveHeader& header) = 0;
  virtual bool Unprepare(WaveHeader& header) = 0;
  // Lends the header until it is marked done. It is filled only while another one stands behind it
  // in the queue: a buffer that was just given back stays untouched until the next one comes.
  virtual bool AddBuffer(WaveHeader& header) = 0;
  // Starting a device that runs does nothing.
  virtual bool Start() = 0;
  virtual bool Stop() = 0;
  // Takes no more sound until it is opened again, also after another Start; what was taken still
  // goes into the headers.
  virtual bool Hold() = 0;
  // Stops and gives all headers back.
  virtual bool Reset() = 0;
  virtual bool Close() = 0;
  virtual WaveInStatus Status() const = 0;
};

struct WaveOutStatus {
  DeviceHealth health = DeviceHealth::kRunning;
  std::uint64_t callbacks = 0;      // grows while the device lives
  std::int64_t playedSamples = 0;   // heard until now
  std::int64_t starvedSamples = 0;  // of silence that had to be let in between
};

class WaveOut {
 public:
  virtual ~WaveOut() = default;

  virtual int DeviceCount() = 0;
  virtual bool Capabilities() = 0;
  // `event` may be none.
  virtual bool Open(const WaveFormat& format, std::shared_ptr<WaveEvent> event) = 0;
  virtual bool Prepare(WaveHeader& header) = 0;
  virtual bool Unprepare(WaveHeader& header) = 0;
  virtual bool Write(WaveHeader& header) = 0;
  virtual bool Pause() = 0;
  virtual bool Restart() = 0;
  // Silent at once; gives all headers back and takes none until the device is opened again.
  virtual bool Reset() = 0;
  virtual bool Close() = 0;
  virtual WaveOutStatus Status() const = 0;
};

}  // namespace cantorix
