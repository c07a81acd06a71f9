// sound_player.cpp - set-up, start, pause and stop of a playback.
#include "audio/sound_player.h"

#include <pthread.h>
#include <sched.h>

#include <chrono>
#include <new>
#include <utility>

#include "audio/sound_rates.h"

namespace cantorix {
namespace {

constexpr double kLeaveMs = 100.0;  // twice: to let the worker finish, and to let it leave
constexpr std::chrono::milliseconds kJoinPatience(2000);

// Most users may not have it; the store of the output carries a second without.
void AskForPriority() {
  sched_param parameter{};
  parameter.sched_priority = ::sched_get_priority_min(SCHED_RR);
  ::pthread_setschedparam(::pthread_self(), SCHED_RR, &parameter);
}

}  // namespace

SoundPlayer::SoundPlayer(std::shared_ptr<WaveOut> device, std::shared_ptr<NoticeSink> notices,
                         Clock& clock, const MemoryProbe& memory,
                         std::shared_ptr<PlaybackObserver> observer)
    : device_(std::move(device)),
      notices_(std::move(notices)),
      clock_(clock),
      memory_(memory),
      observer_(std::move(observer)) {}

SoundPlayer::~SoundPlayer() {
  if (isOpen_ || event_) Stop();
}

void SoundPlayer::SetUpFromMemory(const SampleSource& samples, const SoundStretch& stretch) {
  playback_.reset();
  const auto count = static_cast<std::size_t>(stretch.count);
  std::vector<std::int16_t> block;
  try {
    if (!memory_.CanAllocate(count * sizeof(std::int16_t))) throw std::bad_alloc();
    block.resize(count);
  } catch (const std::bad_alloc&) {
    notices_->Notice("error in memory");
    return;
  }
  samples.Read(stretch.first, block);
  Load(std::make_unique<MemorySound>(std::move(block)), stretch);
}

void SoundPlayer::SetUpFromFile(File file, const SoundStretch& stretch) {
  playback_.reset();
  Load(std::make_unique<FileSound>(std::move(file), stretch.first), stretch);
}

void SoundPlayer::Load(std::unique_ptr<SoundSource> source, const SoundStretch& stretch) {
  auto playback = std::make_shared<PlaybackState>();
  playback->device = device_;
  playback->notices = notices_;
  playback->observer = observer_;
  playback->source = std::move(source);
  playback->totalSamples = stretch.count;
  rateHz_ = stretch.rateHz;
  isSingle_ = stretch.count < kPlaybackRoomSamples;
  if (isSingle_) {
    playback->bufferSamples = static_cast<std::uint32_t>(stretch.count);
    FillBuffer(*playback, 0);
  } else {
    playback->bufferSamples = PlaybackBufferSamples(stretch.rateHz);
    FillBuffer(*playback, 0);
    FillBuffer(*playback, 1);
  }
  playback_ = std::move(playback);
}

void SoundPlayer::Check(bool done, const char* text) {
  if (done) return;
  notices_->Notice(text);
  allDone_ = false;
}

bool SoundPlayer::Start() {
  if (!playback_) return false;
  allDone_ = true;
  playback_->playedBuffers = 0;
  if (device_->DeviceCount() == 0) {
    notices_->Notice("No Sound Output Device");
    return false;
  }
  Check(device_->Capabilities(), "Sound output Cannot determine card capabilities !");
  if (isSingle_) {
    StartSingle();
  } else {
    StartStreaming();
  }
  return allDone_;
}

void SoundPlayer::StartSingle() {
  OpenDevice(nullptr);
  WriteBuffer(0, playback_->bufferSamples);
}

void SoundPlayer::StartStreaming() {
  playback_->stop = 0;
  event_ = std::make_shared<WaveEvent>();
  playback_->event = event_;
  OpenDevice(event_);
  WriteBuffer(0, playback_->bufferSamples);
  WriteBuffer(1, playback_->bufferSamples);
  Check(worker_.Start([playback = playback_] {
    AskForPriority();
    RunPlayback(*playback);
  }),
        "The system has no thread for the playback.");
}

void SoundPlayer::OpenDevice(std::shared_ptr<WaveEvent> event) {
  isOpen_ = device_->Open(MonoFormat(rateHz_, 16), std::move(event));
  Check(isOpen_, kCannotOpenOutput);
}

void SoundPlayer::WriteBuffer(std::uint32_t which, std::uint32_t count) {
  // Kept: these two begin with a blank, those of a refill do not.
  Check(PrepareBuffer(*playback_, which, count), " Sound Output Cannot Prepare Header !");
  Check(device_->Write(playback_->headers[which]), " Sound Output Cannot Write Buffer !");
}

void SoundPlayer::Pause() {
  if (playback_) playback_->stop = 1;
  device_->Pause();
}

void SoundPlayer::Resume() { device_->Restart(); }

void SoundPlayer::Stop() {
  if (playback_) playback_->stop = 1;
  if (isOpen_) device_->Pause();
  clock_.SleepMs(kLeaveMs);
  if (event_) event_->Signal();
  clock_.SleepMs(kLeaveMs);
  worker_.Finish(kJoinPatience);
  if (event_) {
    event_->Close();
    event_.reset();
  }
  if (isOpen_) {
    device_->Reset();
    device_->Close();
    isOpen_ = false;
  }
  // Closes the file of the stretch, unless a stuck worker still reads it.
  playback_.reset();
}

}  // namespace cantorix
