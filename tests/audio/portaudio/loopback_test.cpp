// loopback_test.cpp - the recorder and the player with the machine's sound system: what is played
// comes back sample for sample, and a sound server that is absent, dies or hangs costs no more than
// a moment. Each case has a process and a server of its own; they mostly wait, so they run at once.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <mutex>

#include "audio/portaudio/portaudio_host.h"
#include "audio/sound_player.h"
#include "audio/sound_recorder.h"
#include "platform/host_services.h"
#include "pulse_server.h"
#include "support/child_process.h"
#include "support/scripted_wave.h"

namespace cantorix {
namespace {

class KeepingScope : public ScopeSink {
 public:
  void Trace(std::span<const std::int16_t> samples) override {
    kept.insert(kept.end(), samples.begin(), samples.end());
  }
  std::vector<std::int16_t> kept;  // to be looked at after the stop
};

double SecondsNow() { return HostClock().NowMs() / 1000.0; }

// Says what went wrong in a child process, whose expectations nobody else sees.
bool Expect(bool holds, const std::string& what) {
  if (!holds) std::fprintf(stdout, "not so: %s\n", what.c_str());
  return holds;
}

// Recorder and player on the sound system of the environment.
struct Studio {
  explicit Studio(std::uint32_t rate) : rateHz(rate) {
    recorder.SetUp({rateHz, 16, {}, {}, nullptr, scope});
  }
  bool Play(std::size_t count) {
    player.SetUpFromMemory(SpanSource(SamplesFrom(0, count)),
                           {0, static_cast<std::int64_t>(count), rateHz});
    return player.Start();
  }
  std::string Texts() const {
    std::string all;
    for (const std::string& text : notices->texts()) all += text + "\n";
    return all;
  }

  std::uint32_t rateHz;
  HostClock clock;
  HostMemoryProbe memory;
  PortAudioHost host;
  // Sees all that comes in, also at rates that the recorder has no buffers for.
  std::shared_ptr<LevelTap> tap = std::make_shared<LevelTap>(60 * rateHz);
  std::shared_ptr<RecordingNotices> notices = std::make_shared<RecordingNotices>();
  std::shared_ptr<KeepingScope> scope = std::make_shared<KeepingScope>();
  std::shared_ptr<WaveIn> in = host.MakeInput("", tap);
  SoundRecorder recorder{in, notices, clock, memory};
  SoundPlayer player{host.MakeOutput(""), notices, clock, memory};
};

// Whether `heard` is silence, then exactly the `count` played samples, then silence.
bool IsWhatWasPlayed(const std::vector<std::int16_t>& heard, std::size_t count) {
  const auto begin = std::find_if(heard.begin(), heard.end(), [](auto s) { return s != 0; });
  const auto played = SamplesFrom(0, count);
  if (!Expect(heard.end() - begin >= static_cast<std::ptrdiff_t>(count),
              std::to_string(heard.end() - begin) + " samples heard of " + std::to_string(count))) {
    return false;
  }
  const auto differs = std::mismatch(played.begin(), played.end(), begin).first;
  const auto end = begin + static_cast<std::ptrdiff_t>(count);
  return Expect(differs == played.end(),
                "sample " + std::to_string(differs - played.begin()) + " differs") &
         Expect(std::all_of(end, heard.end(), [](auto s) { return s == 0; }), "silence behind");
}

// Waits as long as the playback goes on.
bool IsPlayed(const Studio& studio, std::int64_t total) {
  std::int64_t played = -1;
  const auto goesOn = [&] { return studio.player.Status().playedSamples > played; };
  while (played < total && Eventually(goesOn)) played = studio.player.Status().playedSamples;
  return played >= total;
}

bool Loops(std::uint32_t rateHz, std::size_t count) {
  PulseServer server;
  if (!Expect(server.Start(rateHz), "the server comes up")) return false;
  Studio studio(rateHz);
  bool good = true;
  const bool records = CanRecordAt(rateHz);
  if (records) {
    good &= Expect(studio.recorder.Start(), "recorder starts");
  } else {
    good &= studio.in->Open(MonoFormat(rateHz, 16), std::make_shared<WaveEvent>());
    good &= studio.in->Start();
  }
  const auto accepted = [&] { return studio.in->Status().acceptedSamples; };
  good &= Expect(Eventually([&] { return accepted() > 0; }), "sound comes in");
  good &= Expect(studio.Play(count), "player starts");
  const auto total = static_cast<std::int64_t>(count);
  good &= Expect(IsPlayed(studio, total), "end");
  // What the server still holds, and up to two buffers that only whole ones are kept of.
  const std::int64_t enough = accepted() + rateHz + std::int64_t{2} * CaptureBufferSamples(rateHz);
  good &= Expect(Eventually([&] { return accepted() >= enough; }), "sound goes on coming in");
  good &= Expect(studio.player.Status().starvedSamples == 0, "no gap in the playback");
  studio.player.Stop();
  studio.recorder.Stop();
  std::vector<std::int16_t> tapped(60 * std::size_t{rateHz});
  tapped.resize(studio.tap->Fetch(tapped));
  good &= IsWhatWasPlayed(records ? studio.scope->kept : tapped, count);
  return good & Expect(studio.Texts().empty(), studio.Texts());
}

// Runs the cases at the same time, each in a process of its own.
void RunAll(const std::vector<std::pair<std::string, std::function<bool()>>>& cases) {
  std::vector<pid_t> children;
  for (const auto& namedBody : cases) {
    children.push_back(StartChild([&namedBody] {
      const bool good = namedBody.second();
      std::fflush(stdout);
      return good ? 0 : 1;
    }));
  }
  for (std::size_t i = 0; i < cases.size(); ++i) {
    int status = -1;
    ::waitpid(children[i], &status, 0);
    EXPECT_EQ(status, 0) << cases[i].first;
  }
}

TEST(Loopback, BringsBackEverySampleAtEveryRate) {
  std::vector<std::pair<std::string, std::function<bool()>>> cases;
  for (const std::uint32_t rateHz :
       {8000U, 11025U, 16000U, 22050U, 32000U, 44100U, 48000U, 96000U}) {
    cases.emplace_back(std::to_string(rateHz) + " Hz",
                       [=] { return Loops(rateHz, std::size_t{2} * rateHz); });
  }
  RunAll(cases);
}

// Whether sound is coming in at the moment, after the time it takes to come back.
bool IsHeard(Studio& studio) {
  std::vector<std::int16_t> piece(studio.rateHz);
  piece.resize(studio.tap->Fetch(piece));
  return std::any_of(piece.begin(), piece.end(), [](auto s) { return s != 0; });
}

// In the middle of ten hours on the disk: the first sound, and the silence, in milliseconds.
bool AnswersAtOnce() {
  constexpr std::int64_t kHour = std::int64_t{16000} * 3600;
  PulseServer server;
  if (!Expect(server.Start(16000), "the server comes up")) return false;
  TemporaryFolder folder;
  File file = File::Create(folder / "hours");
  file.Resize(10 * kHour * 2);
  const auto sound = SamplesFrom(0, 160000);
  file.Write(5 * kHour * 2, std::as_bytes(std::span(sound)));
  Studio studio(16000);
  bool good = Expect(studio.recorder.Start(), "recorder starts");
  good &= Expect(Eventually([&] { return studio.in->Status().acceptedSamples > 0; }), "comes in");
  const double begin = SecondsNow();
  studio.player.SetUpFromFile(std::move(file), {5 * kHour, 5 * kHour, 16000});
  good &= Expect(studio.player.Start(), "player starts");
  good &= Expect(Eventually([&] { return IsHeard(studio); }), "something is heard");
  const double heard = SecondsNow();
  studio.player.Stop();
  const double stopped = SecondsNow();
  good &= Expect(Eventually([&] {
                   studio.clock.SleepMs(30.0);
                   return !IsHeard(studio);
                 }),
                 "it falls silent");
  const double silent = SecondsNow();
  std::printf(
      "first sound after %.0f ms, stopped after %.0f ms, nothing comes back after %.0f ms\n",
      (heard - begin) * 1000.0, (stopped - heard) * 1000.0, (silent - heard) * 1000.0);
  studio.recorder.Stop();
  // Alone on a machine both take a fifth of a second; a busy one takes its time.
  return good & Expect(heard - begin < 0.7 && silent - heard < 0.9, "in time");
}

// LOOPBACK_MINUTES of it; one when that is not set.
TEST(Loopback, LosesAndInsertsNothingInALongRecording) {
  const char* const wanted = std::getenv("LOOPBACK_MINUTES");
  const std::size_t minutes = wanted == nullptr ? 1 : std::strtoul(wanted, nullptr, 10);
  RunAll({{"long", [=] { return Loops(16000, minutes * 60 * 16000); }}});
}

TEST(Loopback, BringsBackTheShortestAndTheBorderOfStreaming) {
  std::vector<std::pair<std::string, std::function<bool()>>> cases;
  for (const std::size_t count : {1U, 32767U, 32768U}) {
    cases.emplace_back(std::to_string(count) + " samples", [=] { return Loops(16000, count); });
  }
  RunAll(cases);
}

// Both stop in time with the samples that were recorded before `happens`.
bool Survives(const std::function<void(PulseServer&)>& happens, bool isNoticed) {
  PulseServer server;
  if (!Expect(server.Start(16000), "the server comes up")) return false;
  Studio studio(16000);
  bool good = Expect(studio.recorder.Start() && studio.Play(500000), "both start");
  const auto delivered = [&] { return studio.recorder.Status().deliveredSamples; };
  good &= Expect(Eventually([&] { return delivered() >= 16384; }), "four buffers");
  happens(server);
  const auto isLost = [&] {
    return studio.recorder.Status().device.health == DeviceHealth::kLost &&
           studio.player.Status().health == DeviceHealth::kLost;
  };
  if (isNoticed) {
    good &= Expect(Eventually(isLost), "the loss is noticed");
  } else {
    // Nothing but the silence tells, after what was on its way has come.
    const auto isSilent = [&] {
      const auto callbacks = studio.recorder.Status().device.callbacks;
      studio.clock.SleepMs(500.0);
      return studio.recorder.Status().device.callbacks == callbacks;
    };
    bool silent = isSilent();
    for (int tries = 0; tries < 10 && !silent; ++tries) silent = isSilent();
    good &= Expect(silent, "no more callbacks");
  }
  const double before = SecondsNow();
  studio.recorder.Stop();
  studio.player.Stop();
  const double seconds = SecondsNow() - before;
  good &= Expect(seconds < 3.0, std::to_string(seconds) + " s to stop");
  good &= Expect(studio.scope->kept.size() >= 16384, "the recording is kept");
  // Let it go on: an orderly end must be possible either way.
  server.Signal(SIGCONT);
  return good;
}

// Without a server the stated texts; with one that is started later it works without a restart.
bool FindsALateServer() {
  PulseServer server;
  Studio studio(16000);
  bool good = Expect(!studio.recorder.Start() && !studio.Play(100), "nothing to start");
  good &= Expect(studio.Texts() == "No Sound Device\nNo Sound Output Device\n", studio.Texts());
  good &= Expect(studio.host.DeviceNames(SoundDirection::kIn).empty(), "no devices");
  if (!Expect(server.Start(16000), "the server comes up")) return false;
  good &= Expect(studio.recorder.Start() && studio.Play(100), "both start");
  good &= Expect(!studio.host.Rescan(), "no rescan while a stream is open");
  good &= Expect(studio.host.TakesRate(SoundDirection::kIn, "", 44100), "takes 44100 Hz");
  good &= Expect(!studio.host.TakesRate(SoundDirection::kIn, "no such", 44100), "takes no name");
  studio.recorder.Stop();
  studio.player.Stop();
  good &= Expect(studio.host.Rescan(), "rescan");
  return good & Expect(!studio.host.DeviceNames(SoundDirection::kOut).empty(), "has devices");
}

// Devices come and go without a trace.
bool OpensManyTimes() {
  PulseServer server;
  if (!Expect(server.Start(16000), "the server comes up")) return false;
  const auto entries = [](const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
  };
  PortAudioHost host;
  std::ptrdiff_t files = 0;
  std::ptrdiff_t threads = 0;
  for (int round = 0; round < 200; ++round) {
    const auto in = host.MakeInput("", nullptr);
    const auto out = host.MakeOutput("");
    std::vector<std::int16_t> samples(100, 1);
    WaveHeader header;
    header.data = samples.data();
    header.lengthBytes = 200;
    const bool opened = in->Open(MonoFormat(16000, 16), std::make_shared<WaveEvent>()) &&
                        in->Start() && out->Open(MonoFormat(16000, 16), nullptr) &&
                        out->Prepare(header) && out->Write(header);
    const bool closed = in->Reset() & in->Close() & out->Reset() & out->Close();
    if (!Expect(opened && closed, "round " + std::to_string(round))) return false;
    if (round > 9) continue;
    files = entries("/proc/self/fd");
    threads = entries("/proc/self/task");
  }
  return Expect(entries("/proc/self/fd") <= files, "no file is left open") &
         Expect(entries("/proc/self/task") <= threads, "no thread is left");
}

// A normal start, record and play write nothing to standard error.
bool IsQuiet() {
  TemporaryFolder folder;
  const int file = ::open((folder / "errors").c_str(), O_RDWR | O_CREAT, 0600);
  ::dup2(file, 2);
  const bool good = Loops(16000, 1000);
  return good & Expect(::lseek(file, 0, SEEK_END) == 0, "standard error is empty");
}

TEST(Loopback, SurvivesWhatHappensToTheServer) {
  RunAll({{"killed", [] { return Survives([](PulseServer& s) { s.Kill(); }, true); }},
          {"hanging", [] { return Survives([](PulseServer& s) { s.Signal(SIGSTOP); }, false); }},
          {"sink unloaded", [] { return Survives([](PulseServer& s) { s.Unload(); }, true); }},
          {"absent and late", FindsALateServer},
          {"opened 200 times", OpensManyTimes},
          {"ten hours", AnswersAtOnce},
          {"quiet", IsQuiet}});
}

}  // namespace
}  // namespace cantorix
