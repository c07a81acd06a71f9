// sound_recorder.cpp - start, pause and stop of a recording.
#include "audio/sound_recorder.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "audio/sound_rates.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr double kRecorderLeaveMs = 500.0;  // for the worker to leave its wait
constexpr double kLookMs = 10.0;
constexpr int kWorkOffLooks = 500;  // for a consumer that fell behind: 5 s
constexpr std::chrono::milliseconds kRecorderPatience(2000);
constexpr int kSilencedSamples = 4096;

}  // namespace

SoundRecorder::SoundRecorder(std::shared_ptr<WaveIn> device, std::shared_ptr<NoticeSink> notices,
                             Clock& clock, const MemoryProbe& memory)
    : device_(std::move(device)), notices_(std::move(notices)), clock_(clock), memory_(memory) {}

SoundRecorder::~SoundRecorder() {
  if (isOpen_ || event_) Stop();
}

void SoundRecorder::SetUp(const RecorderSetup& setup) {
  RecordingConsumer::Targets targets{nullptr, setup.block, setup.scope};
  consumer_.reset();
  capture_.reset();
  if (!setup.folder.empty()) {
    try {
      targets.file = RecordingFile::Create(setup.folder, setup.stamp, setup.rateHz);
    } catch (const FileError&) {
      notices_->Notice("Failure to create a temp file to record.");
    }
  }
  consumer_ = std::make_shared<RecordingConsumer>(std::move(targets), notices_, memory_);
  format_ = MonoFormat(setup.rateHz, setup.bits);
  capture_ = std::make_shared<Capture>();
  capture_->device = device_;
  capture_->consumer = consumer_;
  capture_->notices = notices_;
  // No buffer is larger than its room, whatever the rate.
  capture_->bufferSamples = std::min(CaptureBufferSamples(setup.rateHz), kCaptureRoomSamples);
}

void SoundRecorder::Check(bool done, const char* text) {
  if (done) return;
  notices_->Notice(text);
  allDone_ = false;
}

bool SoundRecorder::Start() {
  allDone_ = true;
  if (device_->DeviceCount() == 0) {
    notices_->Notice("No Sound Device");
    return false;
  }
  Check(device_->Capabilities(), "Cannot determine sound card capabilities !");
  event_ = std::make_shared<WaveEvent>();
  capture_->event = event_;
  capture_->stop = 0;
  Check(worker_.Start([capture = capture_] { RunCapture(*capture); }),
        "The system has no thread for the recording.");
  OpenDevice();
  LendBuffer(0);
  LendBuffer(1);
  Check(device_->Start(), "Cannot Start Wave In !");
  return allDone_;
}

void SoundRecorder::OpenDevice() {
  // Kept: whatever the set-up asked for, the device is opened for 16 bits.
  format_ = MonoFormat(format_.rateHz, 16);
  isOpen_ = device_->Open(format_, event_);
  Check(isOpen_, "Cannot Open Sound Input Device!");
}

void SoundRecorder::LendBuffer(std::uint32_t which) {
  Check(PrepareBuffer(*capture_, which), "Cannot Prepare Header !");
  Check(device_->AddBuffer(capture_->headers[which]), "Cannot Add Buffer !");
}

void SoundRecorder::Pause() {
  capture_->stop = 1;
  device_->Stop();
  device_->Reset();
}

void SoundRecorder::Resume() { device_->Start(); }

void SoundRecorder::WorkOff() {
  device_->Hold();
  for (int look = 0; look < kWorkOffLooks; ++look) {
    const RecorderStatus status = Status();
    const std::int64_t waiting = status.device.acceptedSamples - status.deliveredSamples;
    if (waiting < capture_->bufferSamples || status.hasFailed || capture_->stop != 0) return;
    clock_.SleepMs(kLookMs);
  }
}

void SoundRecorder::Stop() {
  if (isOpen_) WorkOff();
  if (capture_) capture_->stop = 1;
  if (event_) {
    event_->Reset();
    event_->Close();
    event_.reset();
  }
  clock_.SleepMs(kRecorderLeaveMs);
  // A worker that does not end keeps its consumer, with the file.
  if (!worker_.Finish(kRecorderPatience)) consumer_.reset();
  if (!isOpen_) return;
  device_->Reset();
  device_->Stop();
  device_->Close();
  isOpen_ = false;
}

RecorderStatus SoundRecorder::Status() const {
  RecorderStatus status;
  status.device = device_->Status();
  if (capture_) {
    status.deliveredSamples = capture_->deliveredSamples.load(std::memory_order_acquire);
    status.hasFailed = capture_->hasFailed.load(std::memory_order_acquire);
  }
  return status;
}

std::unique_ptr<RecordingFile> SoundRecorder::TakeFile() {
  return consumer_ ? consumer_->TakeFile() : nullptr;
}

int SoundRecorder::SilenceCurrentBuffer() {
  std::fill_n(capture_->bufferStart(capture_->index), kSilencedSamples, std::int16_t{0});
  return kSilencedSamples;
}

}  // namespace cantorix
