// sound_desk.cpp - what begins and ends, and who is told.
#include "mainview/sound_desk.h"

#include <algorithm>
#include <utility>

#include "audio/sound_rates.h"
#include "document/save_commands.h"
#include "mainview/commands.h"
#include "mainview/recording_placement.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr double kLeastRoomSeconds = 30.0;

constexpr const char* kInputLost = "The sound input has gone. What was recorded is kept.";
constexpr const char* kInputSilent =
    "Nothing has come from the sound input for two seconds. What was recorded is kept.";
constexpr const char* kInputFailed =
    "There is not enough memory to go on recording. What was recorded is kept.";
constexpr const char* kInputStuck =
    "The sound input does not answer. The recording is offered at the next start.";
constexpr const char* kWatchLost = "The sound input has gone.";
constexpr const char* kWatchSilent = "Nothing has come from the sound input for two seconds.";
constexpr const char* kOutputLost = "The sound output has gone.";
constexpr const char* kOutputSilent = "The sound output does not answer.";

std::string Joined(const std::vector<std::string>& texts) {
  std::string lines;
  for (const std::string& text : texts) lines += (lines.empty() ? "" : "\n") + text;
  return lines;
}

SoundStretch StretchOf(const CSonadexDoc& document, const SampleRange& range) {
  const std::int64_t length = document.channel().sampleCount();
  const std::int64_t first = std::clamp<std::int64_t>(Truncate(range.start), 0, length);
  const std::int64_t end = std::clamp<std::int64_t>(Truncate(range.end), first, length);
  return {first, end - first, DeviceRate(document.channel().sampleRateHz).value_or(0)};
}

}  // namespace

struct SoundDesk::Recording {
  CSonadexView& view;
  InputRun run;
};

struct SoundDesk::Playing {
  CSonadexView& view;
  OutputRun run;
};

SoundDesk::SoundDesk(SoundDeskServices services, SoundDeskListener& listener)
    : services_(std::move(services)), listener_(listener) {}

SoundDesk::~SoundDesk() = default;

void SoundDesk::SetInput(const std::string& device) {
  if (input_ == device) return;
  input_ = device;
  EndWatch();
  BeginWatch();
}

// Recording
bool SoundDesk::MayReplace(CSonadexView& view) {
  CSonadexDoc& document = view.document();
  if (!document.isModified()) return true;
  const std::string question = "Save ' " + document.title() + " ' before recording ?";
  switch (services_.prompts.Ask(question, Buttons::kYesNoCancel)) {
    case Answer::kYes:
      return SaveDocument(document);
    case Answer::kNo:
      return true;
    default:
      return false;
  }
}

bool SoundDesk::HasRoom(std::uint32_t rateHz) {
  const std::string folder = services_.place().folder;
  const auto seconds = SecondsOfSpace(folder, rateHz);
  if (!seconds || *seconds >= kLeastRoomSeconds) return true;
  services_.prompts.Message("There is no room to record: the disk of \"" + folder +
                            "\" holds another " + FormatOneDecimal(*seconds) + " s only.");
  return false;
}

void SoundDesk::Record(CSonadexView& view) {
  if (recording_) return;
  const auto rateHz = DeviceRate(view.document().host().recordingRateHz);
  if (!rateHz || !CanRecordAt(*rateHz)) return services_.prompts.Message(kNeedsRecordingRate);
  if (!MayReplace(view)) return;
  StopPlaying();
  EndWatch();
  if (HasRoom(*rateHz)) {
    notices_->BeginRun();
    std::unique_ptr<Recording> recording(
        new Recording{view, {services_.parts, input_, *rateHz, notices_}});
    if (recording->run.Start(services_.place())) recording_ = std::move(recording);
  }
  if (!recording_) BeginWatch();
  listener_.SoundChanged();
  ShowNotices();
}

bool SoundDesk::EndRecording(const CSonadexDoc& document) {
  if (!recording_ || &recording_->view.document() != &document) return false;
  FinishRecording();
  return true;
}

void SoundDesk::FinishRecording() {
  const std::unique_ptr<Recording> ended = std::move(recording_);
  std::unique_ptr<RecordingFile> file = ended->run.Stop();
  if (!file) notices_->Notice(kInputStuck);
  CSonadexView& view = ended->view;
  if (file) Guarded(view, [&] { PlaceRecording(view, std::move(file)); });
  // Last, because an input that has gone takes its time to say so.
  BeginWatch();
  listener_.SoundChanged();
  ShowNotices();
}

// Playback
void SoundDesk::Play(CSonadexView& view, const SampleRange& range) {
  CSonadexDoc& document = view.document();
  const SoundStretch stretch = StretchOf(document, range);
  const bool isSame =
      playing_ && &playing_->view.document() == &document && playing_->run.stretch() == stretch;
  StopPlaying();
  if (isSame || stretch.count == 0) return;
  notices_->BeginRun();
  if (stretch.rateHz == 0) {
    notices_->Notice(kCannotOpenOutput);
  } else {
    std::unique_ptr<Playing> playing(new Playing{view, {services_.parts, notices_}});
    if (playing->run.Start(document, stretch)) playing_ = std::move(playing);
  }
  listener_.SoundChanged();
  ShowNotices();
}

void SoundDesk::StopPlaying() {
  if (!playing_) return;
  std::exchange(playing_, nullptr)->run.Stop();
  listener_.SoundChanged();
}

void SoundDesk::StopPlaying(const CSonadexDoc& document) {
  if (playing_ && &playing_->view.document() == &document) StopPlaying();
}

void SoundDesk::Leave(const CSonadexView& view) {
  if (playing_ && &playing_->view == &view) StopPlaying();
}

// Watching
void SoundDesk::Watch(std::optional<std::uint32_t> rateHz) {
  if (watchRateHz_ == rateHz) return;
  EndWatch();
  watchRateHz_ = rateHz;
  BeginWatch();
  listener_.SoundChanged();
}

void SoundDesk::BeginWatch() {
  watchFailure_.clear();
  watchIsSilent_ = false;
  if (!watchRateHz_ || recording_ || watch_) return;
  if (!CanRecordAt(*watchRateHz_)) {
    watchFailure_ = kNeedsRecordingRate;
    return;
  }
  watchNotices_->BeginRun();
  auto run = std::make_unique<InputRun>(services_.parts, input_, *watchRateHz_, watchNotices_);
  if (run->Start(std::nullopt)) watch_ = std::move(run);
  watchFailure_ = Joined(watchNotices_->Take());
}

void SoundDesk::EndWatch() {
  if (watch_) std::exchange(watch_, nullptr)->Stop();
}

bool SoundDesk::Rescan() {
  if (recording_) return false;
  StopPlaying();
  EndWatch();
  const bool found = services_.parts.host.Rescan();
  BeginWatch();
  listener_.SoundChanged();
  return found;
}

// What runs
void SoundDesk::Tick() {
  if (isTicking_) return;
  isTicking_ = true;
  if (recording_) LookAtRecording();
  if (playing_) LookAtPlaying();
  if (watch_) LookAtWatch();
  ShowNotices();
  isTicking_ = false;
}

void SoundDesk::LookAtRecording() {
  recording_->run.Pass(watcher_);
  const RunEnd end = recording_->run.Look();
  if (end == RunEnd::kNone) return;
  if (end == RunEnd::kLost) notices_->Notice(kInputLost);
  if (end == RunEnd::kSilent) notices_->Notice(kInputSilent);
  // Whatever else fails says so itself, and only memory can be short for that.
  if (end == RunEnd::kFailed && notices_->isSilent()) notices_->Notice(kInputFailed);
  FinishRecording();
}

void SoundDesk::LookAtPlaying() {
  const RunEnd end = playing_->run.Look();
  if (end == RunEnd::kNone && !playing_->run.HasEnded()) return;
  StopPlaying();
  if (end != RunEnd::kNone) {
    listener_.SoundNote(end == RunEnd::kLost ? kOutputLost : kOutputSilent);
  }
}

void SoundDesk::LookAtWatch() {
  watch_->Pass(watcher_);
  const RunEnd end = watch_->Look();
  if (end == RunEnd::kLost || end == RunEnd::kFailed) {
    EndWatch();
    watchFailure_ = kWatchLost;
  } else {
    // One that is only silent stays open: its sound may begin late.
    const bool isSilent = end == RunEnd::kSilent;
    if (isSilent == watchIsSilent_) return;
    watchIsSilent_ = isSilent;
    watchFailure_ = isSilent ? kWatchSilent : "";
  }
  listener_.SoundChanged();
}

void SoundDesk::ShowNotices() {
  const std::string lines = Joined(notices_->Take());
  if (!lines.empty()) services_.prompts.Message(lines);
}

// State
SoundState SoundDesk::StateOf(const CSonadexDoc& document) const {
  return {.recording = isRecording(),
          .recordingHere = recording_ && &recording_->view.document() == &document,
          .playingHere = playing_ && &playing_->view.document() == &document};
}

std::optional<RecordingProgress> SoundDesk::recordingProgress() const {
  if (!recording_) return std::nullopt;
  const RecorderStatus status = recording_->run.status();
  const std::uint32_t rateHz = recording_->run.rateHz();
  return RecordingProgress{static_cast<double>(status.deliveredSamples) / rateHz,
                           SecondsOfSpace(services_.place().folder, rateHz),
                           status.device.lostSamples};
}

std::optional<InputLevel> SoundDesk::inputLevel() const {
  const InputRun* const run = recording_ ? &recording_->run : watch_.get();
  if (run == nullptr || (!recording_ && watchIsSilent_)) return std::nullopt;
  return InputLevel{run->rateHz(), run->level()};
}

std::optional<double> SoundDesk::PlayedMs(const CSonadexDoc& document) const {
  if (!playing_ || &playing_->view.document() != &document) return std::nullopt;
  return playing_->run.positionSamples() * document.channel().msPerSample();
}

}  // namespace cantorix
