// sound_player_test.cpp - the player against a scripted output: order of calls, texts, one buffer
// or two, sources, and how a playback ends.
#include "audio/sound_player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/file_error.h"
#include "support/expected_text.h"
#include "support/joined.h"
#include "support/scripted_wave.h"
#include "support/sound_samples.h"
#include "support/temporary_folder.h"
#include "support/virtual_clock.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

class CountingObserver : public PlaybackObserver {
 public:
  void BufferPlayed(std::int64_t buffers) override {
    played = buffers;
    ++calls;
  }
  std::atomic<std::int64_t> played{0};
  std::atomic<int> calls{0};
};

// A player on a scripted device on which one call, by its number, has another outcome.
struct PlayerRig {
  explicit PlayerRig(int call = -1, Outcome outcome = Outcome::kDone) {
    device->script.Set(call, outcome);
  }
  void SetUpMemory(std::int64_t count, std::uint32_t rateHz = 11025) {
    const auto samples = SamplesFrom(0, static_cast<std::size_t>(count) + 20);
    player.SetUpFromMemory(SpanSource(samples), {10, count, rateHz});
  }
  // Takes `buffers` of the player's in pieces like a device, each when it has been written.
  std::vector<std::int16_t> PlayBuffers(std::size_t buffers, std::size_t bufferSamples) {
    std::vector<std::int16_t> heard;
    while (heard.size() < buffers * bufferSamples) {
      const std::size_t count = std::min<std::size_t>(1000, buffers * bufferSamples - heard.size());
      const bool isWritten = Eventually([&] { return device->feed()->storedSamples() >= count; });
      if (!isWritten) return heard;
      const auto piece = device->Take(count);
      heard.insert(heard.end(), piece.begin(), piece.end());
    }
    return heard;
  }

  VirtualClock clock;
  FakeMemoryProbe memory;
  std::shared_ptr<ScriptedOut> device = std::make_shared<ScriptedOut>();
  std::shared_ptr<RecordingNotices> notices = std::make_shared<RecordingNotices>();
  std::shared_ptr<CountingObserver> observer = std::make_shared<CountingObserver>();
  SoundPlayer player{device, notices, clock, memory, observer};
};

class SoundPlayerTest : public testing::Test, protected PlayerRig {};

TEST_F(SoundPlayerTest, PlaysAShortStretchAsOneBuffer) {
  SetUpMemory(32767);
  EXPECT_TRUE(player.Start());
  EXPECT_THAT(device->script.calls(),
              ElementsAre("DeviceCount", "Capabilities", "Open", "Prepare", "Write"));
  EXPECT_EQ(device->event, nullptr);
  EXPECT_EQ(device->format.rateHz, 11025U);
  EXPECT_EQ(device->format.bitsPerSample, 16);
  auto expected = SamplesFrom(10, 32767);
  expected.resize(33000, 0);
  EXPECT_EQ(device->Take(33000), expected);
  EXPECT_EQ(player.totalSamples(), 32767);
  EXPECT_EQ(player.Status().playedSamples, 32767);
  player.Stop();
  const auto calls = device->script.calls();
  EXPECT_EQ((Texts{calls.begin() + 5, calls.end()}), (Texts{"Pause", "Reset", "Close"}));
  EXPECT_THAT(clock.sleepsMs, ElementsAre(100.0, 100.0));
  EXPECT_EQ(observer->calls, 0);
}

TEST_F(SoundPlayerTest, StreamsALongerStretchAndSilenceToTheEndOfABuffer) {
  struct Row {
    std::int64_t count;
    std::uint32_t rateHz;
    std::size_t buffer;
    std::size_t buffers;  // that are written, the one behind an even end included
  };
  for (const Row& row : {Row{32768, 11025, 2048, 17}, Row{40000, 16000, 4096, 10},
                         Row{100001, 44100, 8192, 13}, Row{60000, 96000, 2048, 30}}) {
    SCOPED_TRACE(testing::Message() << row.count << " samples");
    SetUpMemory(row.count, row.rateHz);
    EXPECT_TRUE(player.Start());
    auto expected = SamplesFrom(10, static_cast<std::size_t>(row.count));
    expected.resize(row.buffers * row.buffer, 0);
    EXPECT_EQ(PlayBuffers(row.buffers, row.buffer), expected);
    EXPECT_EQ(device->feed()->storedSamples(), 0U) << "no more buffers";
    EXPECT_EQ(device->Status().starvedSamples, 0);
    player.Stop();
    EXPECT_THAT(notices->texts(), IsEmpty());
  }
}

// A line for each call of the start and what happens to it, of one buffer and of a stream: the
// calls of the start and the texts.
TEST_F(SoundPlayerTest, SaysEachFailureOfTheStartOnceAndGoesOn) {
  std::string table;
  for (const bool streams : {false, true}) {
    for (int call = 0; call < (streams ? 7 : 5); ++call) {
      for (const Outcome outcome : {Outcome::kFails, Outcome::kUnmarked}) {
        PlayerRig failing(call, outcome);
        // At this rate two buffers never fill the store, so the worker does nothing by itself.
        failing.SetUpMemory(streams ? 32768 : 100);
        EXPECT_FALSE(failing.player.Start());
        const auto calls = failing.device->script.calls();
        failing.player.Stop();
        table += Joined(streams ? "stream" : "buffer", call,
                        outcome == Outcome::kFails ? "fails:" : "unmarked:",
                        std::find(calls.begin(), calls.end(), "Unprepare") - calls.begin());
        for (const std::string& text : failing.notices->texts()) table += " | " + text;
        table += '\n';
      }
    }
  }
  ExpectText("audio/expected/PlayerStart.txt", table);
}

TEST_F(SoundPlayerTest, SaysEachFailureOfARefillOnceAndGoesOn) {
  struct Row {
    int call;
    Outcome outcome;
    const char* text;
    std::int64_t lost;  // first sample of the buffer that is not heard, or -1
  };
  // 7 calls start; each refill is Unprepare, Prepare and Write.
  for (const Row& row : {Row{7, Outcome::kFails, "Sound output Cannot UnPrepareHeader !", -1},
                         Row{8, Outcome::kFails, "Sound output Cannot Prepare Header !", -1},
                         Row{8, Outcome::kUnmarked, "Sound output Cannot Prepare Header !", -1},
                         Row{9, Outcome::kFails, "Sound output Cannot Add Buffer !", 4096}}) {
    SCOPED_TRACE(testing::Message() << "call " << row.call);
    PlayerRig failing(row.call, row.outcome);
    failing.SetUpMemory(32768);
    EXPECT_TRUE(failing.player.Start());
    // The store of a second takes five buffers and a bit; both of the player's are in it.
    EXPECT_TRUE(Eventually([&] { return failing.observer->calls >= 4; }));
    auto expected = SamplesFrom(10, 6000);
    if (row.lost >= 0) {
      const auto behind = SamplesFrom(10 + row.lost + 2048, 6000);
      std::copy(behind.begin(), behind.begin() + (6000 - row.lost), expected.begin() + row.lost);
    }
    EXPECT_EQ(failing.device->Take(6000), expected);
    failing.player.Stop();
    EXPECT_THAT(failing.notices->texts(), ElementsAre(row.text));
  }
}

TEST_F(SoundPlayerTest, PlaysFromAFileWhatItPlaysFromMemory) {
  TemporaryFolder folder;
  const auto samples = SamplesFrom(0, 50000);
  WriteBytes(folder / "store", std::as_bytes(std::span(samples)));
  for (const std::int64_t count : {1000, 40000}) {
    player.SetUpFromFile(File::OpenUnlocked(folder / "store"), {77, count, 22050});
    EXPECT_TRUE(player.Start());
    auto expected = SamplesFrom(77, static_cast<std::size_t>(count));
    expected.resize(count < 32768 ? 2000 : 40960, 0);
    EXPECT_EQ(count < 32768 ? device->Take(2000) : PlayBuffers(10, 4096), expected);
    player.Stop();
  }
  EXPECT_FALSE(player.Start()) << "nothing to play";
  // A file that became too short is silent where it ends, and says so.
  player.SetUpFromFile(File::OpenUnlocked(folder / "store"), {49990, 20, 22050});
  EXPECT_TRUE(player.Start());
  EXPECT_EQ(device->Take(20), std::vector<std::int16_t>(20, 0));
  EXPECT_THAT(notices->texts(), ElementsAre("The file ends at byte 100000, too early."));
  player.Stop();
}

TEST_F(SoundPlayerTest, PlaysNothingWithoutMemory) {
  memory.limitBytes = 199;
  SetUpMemory(100);
  EXPECT_THAT(notices->texts(), ElementsAre("error in memory"));
  EXPECT_FALSE(player.Start());
  EXPECT_THAT(device->script.calls(), IsEmpty());
  memory.limitBytes = 200;
  SetUpMemory(100);
  EXPECT_TRUE(player.Start());
}

TEST_F(SoundPlayerTest, RefillsNothingAfterAPauseIsKept) {
  SetUpMemory(60000);
  EXPECT_TRUE(player.Start());
  // The store of a second takes five buffers; two more wait.
  ASSERT_TRUE(Eventually([&] { return observer->calls == 5; }));
  player.Pause();
  EXPECT_EQ(device->Take(500), std::vector<std::int16_t>(500, 0));
  player.Resume();
  const auto heard = device->Take(20000);
  auto expected = SamplesFrom(10, 14336);
  expected.resize(20000, 0);
  EXPECT_EQ(heard, expected);
  EXPECT_EQ(observer->played, 5);
  player.Stop();
}

TEST_F(SoundPlayerTest, TellsItsObserverOfEveryBufferAndOfTheEnd) {
  SetUpMemory(32768, 44100);
  EXPECT_TRUE(player.Start());
  // The store takes two buffers at the start and three refills, the last beyond the end. All five
  // are finished at once, and each is told of.
  ASSERT_TRUE(Eventually([&] { return observer->calls == 5; }));
  EXPECT_EQ(observer->played, 3);
  player.Stop();
  EXPECT_EQ(observer->calls, 5) << "stopped in its wait, it leaves without a word";
}

TEST_F(SoundPlayerTest, LeavesWithAWordWhenStoppedBeforeItsFirstRound) {
  // The device does not open, so the worker waits for that until Stop.
  device->script.Set(2, Outcome::kFails);
  SetUpMemory(32768);
  EXPECT_FALSE(player.Start());
  player.Stop();
  EXPECT_EQ(observer->calls, 1);
}

}  // namespace
}  // namespace cantorix
