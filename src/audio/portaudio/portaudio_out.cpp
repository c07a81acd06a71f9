// portaudio_out.cpp - sound output.
#include <chrono>
#include <utility>

#include "audio/output_feed.h"
#include "audio/portaudio/portaudio_state.h"

namespace cantorix {
namespace {

std::int64_t NowNs() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

struct OutStream : SoundStream {
  OutStream(std::uint32_t rateHz, std::shared_ptr<WaveEvent> event)
      : feed(rateHz, std::move(event)) {}
  void Wanted(std::span<std::int16_t> out, double heardInSeconds) override {
    feed.Render(out, NowNs() + static_cast<std::int64_t>(heardInSeconds * 1e9));
  }

  OutputFeed feed;
};

class PortAudioOut : public WaveOut {
 public:
  PortAudioOut(std::shared_ptr<PortAudioState> host, std::string name)
      : host_(std::move(host)), name_(std::move(name)) {}
  ~PortAudioOut() override {
    if (stream_) ShutStream();
  }

  int DeviceCount() override { return CountOrRescan(host_, SoundDirection::kOut); }
  bool Capabilities() override { return DeviceCount() > 0; }
  bool Open(const WaveFormat& format, std::shared_ptr<WaveEvent> event) override;
  bool Prepare(WaveHeader& header) override { return stream_ && MarkPrepared(header); }
  bool Unprepare(WaveHeader& header) override { return stream_ && MarkUnprepared(header); }
  bool Write(WaveHeader& header) override;
  bool Pause() override { return SetPaused(true); }
  bool Restart() override { return SetPaused(false); }
  bool Reset() override;
  bool Close() override { return stream_ && ShutStream(); }
  WaveOutStatus Status() const override;

 private:
  bool SetPaused(bool paused);
  bool ShutStream();

  std::shared_ptr<PortAudioState> host_;
  std::string name_;
  std::shared_ptr<OutStream> stream_;  // while open
};

bool PortAudioOut::Open(const WaveFormat& format, std::shared_ptr<WaveEvent> event) {
  if (stream_) return false;
  auto stream = std::make_shared<OutStream>(format.rateHz, event);
  if (!OpenStream(host_, SoundDirection::kOut, name_, format.rateHz, stream)) return false;
  stream_ = std::move(stream);
  if (event) event->Signal();
  return true;
}

bool PortAudioOut::Write(WaveHeader& header) {
  if (!stream_ || stream_->isLost || !stream_->feed.Write(header)) return false;
  return !stream_->feed.WantsStart() || StartStream(host_, stream_);
}

bool PortAudioOut::SetPaused(bool paused) {
  if (stream_) stream_->feed.SetPaused(paused);
  return stream_ != nullptr;
}

bool PortAudioOut::Reset() {
  if (!stream_) return false;
  // First the headers: nobody touches them any more, also when the stream cannot be reached.
  stream_->feed.ReturnHeaders();
  return AbortStream(host_, stream_);
}

bool PortAudioOut::ShutStream() {
  stream_->feed.ReturnHeaders();
  return CloseStream(host_, std::exchange(stream_, nullptr));
}

WaveOutStatus PortAudioOut::Status() const {
  if (!stream_) return {};
  WaveOutStatus status = stream_->feed.Status(NowNs());
  if (stream_->isLost) status.health = DeviceHealth::kLost;
  return status;
}

}  // namespace

std::shared_ptr<WaveOut> MakePortAudioOut(std::shared_ptr<PortAudioState> host, std::string name) {
  return std::make_shared<PortAudioOut>(std::move(host), std::move(name));
}

}  // namespace cantorix
