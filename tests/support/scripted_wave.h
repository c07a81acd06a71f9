// scripted_wave.h - sound devices whose every call a test can make fail, that bring and take
// samples when the test says so, and that write down what was asked of them.
#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "audio/input_feed.h"
#include "audio/output_feed.h"
#include "audio/sound_notices.h"
#include "audio/wave_device.h"

namespace cantorix {

enum class Outcome {
  kDone,
  kFails,
  kUnmarked,  // of Prepare: claims success and leaves the header as it was
};

// What was called, in order, and what becomes of the calls, by their number from 0 on.
class CallScript {
 public:
  Outcome Next(const std::string& name) {
    const std::lock_guard lock(mutex_);
    calls_.push_back(name);
    const auto found = outcomes_.find(static_cast<int>(calls_.size()) - 1);
    return found == outcomes_.end() ? Outcome::kDone : found->second;
  }
  void Set(int call, Outcome outcome) {
    const std::lock_guard lock(mutex_);
    outcomes_[call] = outcome;
  }
  std::vector<std::string> calls() const {
    const std::lock_guard lock(mutex_);
    return calls_;
  }

 private:
  mutable std::mutex mutex_;
  std::map<int, Outcome> outcomes_;
  std::vector<std::string> calls_;
};

// What both directions have: Port is WaveIn with InputFeed, or WaveOut with OutputFeed.
template <typename Port, typename Feed>
class ScriptedDevice : public Port {
 public:
  CallScript script;
  std::atomic<DeviceHealth> health{DeviceHealth::kRunning};
  // Of the latest Open.
  WaveFormat format;
  std::shared_ptr<WaveEvent> event;

  std::shared_ptr<Feed> feed() const { return feed_; }

  int DeviceCount() override { return Done("DeviceCount", false) ? 1 : 0; }
  bool Capabilities() override { return Done("Capabilities", false); }
  bool Open(const WaveFormat& wanted, std::shared_ptr<WaveEvent> notified) override {
    format = wanted;
    event = std::move(notified);
    if (!Done("Open", false)) return false;
    feed_ = std::make_shared<Feed>(wanted.rateHz, event);
    isOpen_ = true;
    if (event) event->Signal();
    return true;
  }
  bool Prepare(WaveHeader& header) override {
    const Outcome outcome = script.Next("Prepare");
    if (outcome == Outcome::kFails || !isOpen_) return false;
    if (outcome == Outcome::kDone) header.flags |= kHeaderPrepared;
    return true;
  }
  bool Unprepare(WaveHeader& header) override {
    if (!Done("Unprepare") || (header.flags & kHeaderQueued) != 0) return false;
    header.flags &= ~kHeaderPrepared;
    return true;
  }
  bool Reset() override { return GiveBack("Reset"); }
  bool Close() override {
    if (!GiveBack("Close")) return false;
    isOpen_ = false;
    return true;
  }

 protected:
  bool Done(const std::string& name, bool needsOpen = true) {
    return script.Next(name) == Outcome::kDone && (isOpen_ || !needsOpen);
  }
  template <typename Status>
  Status Told(Status status) const {
    status.health = health;
    return status;
  }

 private:
  bool GiveBack(const std::string& name) {
    if (!Done(name)) return false;
    feed_->ReturnHeaders();
    return true;
  }

  std::shared_ptr<Feed> feed_;
  bool isOpen_ = false;
};

class ScriptedIn : public ScriptedDevice<WaveIn, InputFeed> {
 public:
  bool AddBuffer(WaveHeader& header) override { return Done("AddBuffer") && feed()->Add(header); }
  bool Start() override { return Capture("Start", true); }
  bool Stop() override { return Capture("Stop", false); }
  bool Hold() override {
    if (!Done("Hold")) return false;
    feed()->Hold();
    return true;
  }
  WaveInStatus Status() const override { return Told(feed() ? feed()->Status() : WaveInStatus{}); }

  // Brings samples, as the callback of a device does; also after the device was closed.
  void Deliver(std::span<const std::int16_t> samples) { feed()->Take(samples, tap.get()); }

  std::shared_ptr<LevelTap> tap;  // or none

 private:
  bool Capture(const std::string& name, bool on) {
    if (!Done(name)) return false;
    feed()->SetCapturing(on);
    return true;
  }
};

class ScriptedOut : public ScriptedDevice<WaveOut, OutputFeed> {
 public:
  bool Write(WaveHeader& header) override { return Done("Write") && feed()->Write(header); }
  bool Pause() override { return SetPaused("Pause", true); }
  bool Restart() override { return SetPaused("Restart", false); }
  WaveOutStatus Status() const override {
    return Told(feed() ? feed()->Status(nowNs_) : WaveOutStatus{});
  }

  // Takes `count` samples as the callback of a device does; they are heard at once.
  std::vector<std::int16_t> Take(std::size_t count) {
    std::vector<std::int16_t> samples(count);
    feed()->Render(samples, nowNs_);
    nowNs_ += static_cast<std::int64_t>(count) * 1'000'000'000 / format.rateHz;
    return samples;
  }

 private:
  bool SetPaused(const std::string& name, bool paused) {
    if (!Done(name)) return false;
    feed()->SetPaused(paused);
    return true;
  }

  std::atomic<std::int64_t> nowNs_{0};
};

// Keeps every text, also the same one twice.
class RecordingNotices : public NoticeSink {
 public:
  void Notice(const std::string& text) override {
    const std::lock_guard lock(mutex_);
    texts_.push_back(text);
  }
  std::vector<std::string> texts() const {
    const std::lock_guard lock(mutex_);
    return texts_;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> texts_;
};

}  // namespace cantorix
