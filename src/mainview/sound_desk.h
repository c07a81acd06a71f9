// sound_desk.h - recording and playback in the program: at most one of each at a time, and which
// document they belong to. Everything is called on the interface thread; Tick carries on what runs.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/sample_range.h"
#include "audio/sound_notices.h"
#include "mainview/sound_run.h"
#include "mainview/view_ports.h"
#include "platform/prompts.h"

namespace cantorix {

// Told of what the desk does. Throws nothing.
class SoundDeskListener {
 public:
  virtual ~SoundDeskListener() = default;
  // A recording, a playback or the watch began or ended: commands and windows follow.
  virtual void SoundChanged() = 0;
  // One line for the status bar.
  virtual void SoundNote(const std::string& text) = 0;
};

struct SoundDeskServices {
  SoundParts parts;
  Prompts& prompts;
  std::function<RecordingPlace()> place;  // of a recording that begins now
};

// A recording while it runs.
struct RecordingProgress {
  double seconds = 0.0;               // whole buffers, as they will be kept
  std::optional<double> secondsLeft;  // that the disk has room for; nothing when it does not say
  std::int64_t lostSamples = 0;       // for which there was no room
};

// The level of a recording, or of what is only watched.
struct InputLevel {
  std::uint32_t rateHz = 0;
  LevelReading reading;
};

class SoundDesk {
 public:
  SoundDesk(SoundDeskServices services, SoundDeskListener& listener);
  ~SoundDesk();
  SoundDesk(const SoundDesk&) = delete;
  SoundDesk& operator=(const SoundDesk&) = delete;

  // The input to record from; "" for the system's own.
  void SetInput(const std::string& device);

  // Starts to record into the view's document at the recording rate, after asking what becomes of
  // unsaved changes. Failures are shown.
  void Record(CSonadexView& view);
  // Ends the recording into the document, as a click does: it becomes the document's samples. False
  // when none runs there.
  bool EndRecording(const CSonadexDoc& document);

  // Plays the samples of the range that the document has. What plays already is stopped; when that
  // is the very same stretch, nothing else happens.
  void Play(CSonadexView& view, const SampleRange& range);
  void StopPlaying();
  void StopPlaying(const CSonadexDoc& document);
  // The view is about to go: what runs for it is ended. A recording has to be ended before.
  void Leave(const CSonadexView& view);

  // Keeps the input open at that rate also while nothing is recorded, so that its level is known;
  // nothing: only while something is.
  void Watch(std::optional<std::uint32_t> rateHz);
  // Hears all that comes in, of a recording, too. One or none; it must go before it ends.
  void SetWatcher(SoundWatcher* watcher) { watcher_ = watcher; }
  // Looks for devices anew, which needs all of them closed. False while a recording runs or the
  // sound system does not answer.
  bool Rescan();
  // Why nothing is heard although it is watched, a text for each line; empty when it is.
  std::string watchFailure() const { return watchFailure_; }

  // To be called every kTickMs while something runs, but not while an operation or a box runs.
  void Tick();
  bool isActive() const { return recording_ || playing_ || watch_; }

  SoundState StateOf(const CSonadexDoc& document) const;
  bool isRecording() const { return recording_ != nullptr; }
  bool isPlaying() const { return playing_ != nullptr; }
  // Nothing while no recording runs.
  std::optional<RecordingProgress> recordingProgress() const;
  // Nothing while neither a recording nor the watch runs, or while the watch hears nothing at all.
  std::optional<InputLevel> inputLevel() const;
  // The time in the document that is heard now; nothing while it is not played.
  std::optional<double> PlayedMs(const CSonadexDoc& document) const;

 private:
  // A run and the view that began it.
  struct Recording;
  struct Playing;

  bool MayReplace(CSonadexView& view);
  bool HasRoom(std::uint32_t rateHz);
  void FinishRecording();
  void BeginWatch();
  void EndWatch();
  void LookAtRecording();
  void LookAtPlaying();
  void LookAtWatch();
  void ShowNotices();

  SoundDeskServices services_;
  SoundDeskListener& listener_;
  std::string input_;
  std::shared_ptr<SoundNotices> notices_ = std::make_shared<SoundNotices>();
  std::shared_ptr<SoundNotices> watchNotices_ = std::make_shared<SoundNotices>();
  SoundWatcher* watcher_ = nullptr;
  std::string watchFailure_;
  bool watchIsSilent_ = false;
  std::unique_ptr<Recording> recording_;
  std::unique_ptr<Playing> playing_;
  std::unique_ptr<InputRun> watch_;
  std::optional<std::uint32_t> watchRateHz_;
  bool isTicking_ = false;
};

}  // namespace cantorix
