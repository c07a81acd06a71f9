// portaudio_state.h - what the host and its devices share: the thread, the list of devices, and how
// a stream is opened and closed.
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "audio/deadline_thread.h"
#include "audio/level_tap.h"
#include "audio/portaudio/portaudio_api.h"
#include "audio/wave_device.h"

namespace cantorix {

inline constexpr std::chrono::milliseconds kCallDeadline(1500);
inline constexpr std::chrono::milliseconds kStartDeadline(2800);  // with the search for devices

// A stream with its ways in and out. The host thread owns `stream`.
struct SoundStream : StreamSink {
  void Ended() override {
    isRunning = false;
    if (!isEnding) isLost = true;
  }

  std::unique_ptr<PortAudioStream> stream;
  std::atomic<bool> isRunning{false};
  std::atomic<bool> isEnding{false};  // we have asked for it
  std::atomic<bool> isLost{false};
};

struct PortAudioState {
  DeadlineThread thread;

  // On the host thread only.
  bool isReady = false;
  int openStreams = 0;
  std::vector<HostDevice> devices;
  void MakeReady();
  // The device of that name, or for "" the sound server's.
  std::optional<int> Find(SoundDirection direction, const std::string& name);
};

// These wait for the host thread, up to their deadline. False when it did not succeed in time.
bool OpenStream(const std::shared_ptr<PortAudioState>& host, SoundDirection direction,
                const std::string& name, std::uint32_t rateHz,
                const std::shared_ptr<SoundStream>& stream);
bool StartStream(const std::shared_ptr<PortAudioState>& host,
                 const std::shared_ptr<SoundStream>& stream);
bool AbortStream(const std::shared_ptr<PortAudioState>& host,
                 const std::shared_ptr<SoundStream>& stream);
// Whatever the host thread does, it will be closed in the end.
bool CloseStream(const std::shared_ptr<PortAudioState>& host,
                 const std::shared_ptr<SoundStream>& stream);

bool RescanDevices(const std::shared_ptr<PortAudioState>& host);
// A count of none may be one from before the sound server was started.
int CountOrRescan(const std::shared_ptr<PortAudioState>& host, SoundDirection direction);

// No memory has to be pinned for this host: preparing only marks.
inline bool MarkPrepared(WaveHeader& header) {
  header.flags |= kHeaderPrepared;
  return true;
}
inline bool MarkUnprepared(WaveHeader& header) {
  if ((header.flags & kHeaderQueued) != 0) return false;
  header.flags &= ~kHeaderPrepared;
  return true;
}

std::shared_ptr<WaveIn> MakePortAudioIn(std::shared_ptr<PortAudioState> host, std::string name,
                                        std::shared_ptr<LevelTap> tap);
std::shared_ptr<WaveOut> MakePortAudioOut(std::shared_ptr<PortAudioState> host, std::string name);

}  // namespace cantorix
