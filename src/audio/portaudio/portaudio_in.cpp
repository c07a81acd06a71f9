// portaudio_in.cpp - sound input.
#include <utility>

#include "audio/input_feed.h"
#include "audio/portaudio/portaudio_state.h"

namespace cantorix {
namespace {

struct InStream : SoundStream {
  InStream(std::uint32_t rateHz, std::shared_ptr<WaveEvent> event, std::shared_ptr<LevelTap> watch)
      : feed(rateHz, std::move(event)), tap(std::move(watch)) {}
  void Recorded(std::span<const std::int16_t> samples) override { feed.Take(samples, tap.get()); }

  InputFeed feed;
  std::shared_ptr<LevelTap> tap;
};

class PortAudioIn : public WaveIn {
 public:
  PortAudioIn(std::shared_ptr<PortAudioState> host, std::string name, std::shared_ptr<LevelTap> tap)
      : host_(std::move(host)), name_(std::move(name)), tap_(std::move(tap)) {}
  ~PortAudioIn() override {
    if (stream_) ShutStream();
  }

  int DeviceCount() override { return CountOrRescan(host_, SoundDirection::kIn); }
  bool Capabilities() override { return DeviceCount() > 0; }
  bool Open(const WaveFormat& format, std::shared_ptr<WaveEvent> event) override;
  bool Prepare(WaveHeader& header) override { return stream_ && MarkPrepared(header); }
  bool Unprepare(WaveHeader& header) override { return stream_ && MarkUnprepared(header); }
  bool AddBuffer(WaveHeader& header) override { return stream_ && stream_->feed.Add(header); }
  bool Start() override;
  bool Stop() override;
  bool Hold() override;
  bool Reset() override;
  bool Close() override { return stream_ && ShutStream(); }
  WaveInStatus Status() const override;

 private:
  bool ShutStream();

  std::shared_ptr<PortAudioState> host_;
  std::string name_;
  std::shared_ptr<LevelTap> tap_;
  std::shared_ptr<InStream> stream_;  // while open
  WaveInStatus last_;                 // of a stream that was closed
};

bool PortAudioIn::Open(const WaveFormat& format, std::shared_ptr<WaveEvent> event) {
  if (stream_) return false;
  auto stream = std::make_shared<InStream>(format.rateHz, event, tap_);
  if (!OpenStream(host_, SoundDirection::kIn, name_, format.rateHz, stream)) return false;
  stream_ = std::move(stream);
  event->Signal();
  return true;
}

bool PortAudioIn::Start() {
  if (!stream_) return false;
  // Each buffer that comes back starts the device again; only the first time is there work.
  stream_->feed.SetCapturing(true);
  return StartStream(host_, stream_);
}

bool PortAudioIn::Hold() {
  if (stream_) stream_->feed.Hold();
  return stream_ != nullptr;
}

bool PortAudioIn::Stop() {
  if (!stream_) return false;
  stream_->feed.SetCapturing(false);
  return AbortStream(host_, stream_);
}

bool PortAudioIn::Reset() {
  if (!stream_) return false;
  // First the headers: nobody touches them any more, also when the stream cannot be reached.
  stream_->feed.ReturnHeaders();
  return AbortStream(host_, stream_);
}

bool PortAudioIn::ShutStream() {
  stream_->feed.ReturnHeaders();
  last_ = Status();
  return CloseStream(host_, std::exchange(stream_, nullptr));
}

WaveInStatus PortAudioIn::Status() const {
  if (!stream_) return last_;
  WaveInStatus status = stream_->feed.Status();
  if (stream_->isLost) status.health = DeviceHealth::kLost;
  return status;
}

}  // namespace

std::shared_ptr<WaveIn> MakePortAudioIn(std::shared_ptr<PortAudioState> host, std::string name,
                                        std::shared_ptr<LevelTap> tap) {
  return std::make_shared<PortAudioIn>(std::move(host), std::move(name), std::move(tap));
}

}  // namespace cantorix
