// sound_run.h - one run of a sound input or output: its device, its recorder or player, and whether
// anything still comes or goes.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "audio/level_meter.h"
#include "audio/sound_host.h"
#include "audio/sound_player.h"
#include "audio/sound_recorder.h"

namespace cantorix {

class CSonadexDoc;
class CSonadexView;

// What every run is given. All of it outlives the run.
struct SoundParts {
  SoundHost& host;
  Clock& clock;
  const MemoryProbe& memory;
};

// Counts looks at a device since it last called back. A machine that slept or a program that was
// stopped did not look, so that its silence does not count.
class Pulse {
 public:
  // True when the device has been silent for two seconds of looks, kTickMs apart.
  bool IsSilent(std::uint64_t callbacks);

 private:
  std::uint64_t callbacks_ = 0;
  int quietLooks_ = 0;
};

// How often a desk looks at its devices.
inline constexpr int kTickMs = 33;

// Hears all that comes in, a few hundred samples at a time, on the interface thread.
class SoundWatcher {
 public:
  virtual ~SoundWatcher() = default;
  virtual void Heard(std::span<const std::int16_t> samples) = 0;
};

enum class RunEnd {
  kNone,
  kFailed,  // a sample could not be kept
  kLost,    // the device has gone
  kSilent,  // nothing came for two seconds
};

// Where a recording file is made, and the local date and time in its name, "20261121-143005".
struct RecordingPlace {
  std::string folder;
  std::string stamp;
};

// A recording into a file, or the sound at the input only watched.
class InputRun {
 public:
  InputRun(const SoundParts& parts, const std::string& device, std::uint32_t rateHz,
           std::shared_ptr<NoticeSink> notices);

  // Records into a new file, or only watches. False, with the reason among the notices, when
  // nothing runs.
  bool Start(const std::optional<RecordingPlace>& place);
  // Ends the run with the last whole buffer, and gives its file.
  std::unique_ptr<RecordingFile> Stop();

  // Hands on what came in since the last time.
  void Pass(SoundWatcher* watcher);
  RunEnd Look();

  std::uint32_t rateHz() const { return rateHz_; }
  RecorderStatus status() const { return recorder_.Status(); }
  LevelReading level() const { return meter_.Reading(); }

 private:
  std::uint32_t rateHz_;
  std::shared_ptr<LevelTap> tap_;
  SoundRecorder recorder_;
  LevelMeter meter_;
  Pulse pulse_;
};

// A stretch of a document being played.
class OutputRun {
 public:
  OutputRun(const SoundParts& parts, std::shared_ptr<NoticeSink> notices);

  // False, with the reason among the notices, when nothing runs. Throws FileError when the store
  // cannot be read.
  bool Start(CSonadexDoc& document, const SoundStretch& stretch);
  void Stop() { player_.Stop(); }

  // kNone while it plays, also past its end.
  RunEnd Look();
  // The last sample has been heard.
  bool HasEnded() const;
  const SoundStretch& stretch() const { return stretch_; }
  // Samples of the document before the one that is heard now.
  double positionSamples() const;

 private:
  SoundPlayer player_;
  SoundStretch stretch_;
  Pulse pulse_;
};

}  // namespace cantorix
