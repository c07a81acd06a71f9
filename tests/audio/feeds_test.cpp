// feeds_test.cpp - event and the two feeds between device callbacks and headers.
#include <gtest/gtest.h>

#include <cmath>
#include <thread>

#include "audio/input_feed.h"
#include "audio/output_feed.h"
#include "audio/sound_rates.h"
#include "audio/wave_event.h"
#include "support/expected_text.h"
#include "support/joined.h"
#include "support/sound_samples.h"

namespace cantorix {
namespace {

struct Buffer {
  explicit Buffer(std::size_t count, std::int64_t first = 0) : samples(SamplesFrom(first, count)) {
    Lend();
  }
  void Lend() {
    header.data = samples.data();
    header.lengthBytes = static_cast<std::uint32_t>(samples.size() * 2);
    header.flags = kHeaderPrepared;
  }
  bool isDone() const { return (header.flags & kHeaderDone) != 0; }

  std::vector<std::int16_t> samples;
  WaveHeader header;
};

TEST(WaveEvent, KeepsEverySignalUntilItIsWaitedFor) {
  WaveEvent event;
  for (int i = 0; i < 3; ++i) event.Signal();
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(event.Wait());
  event.Signal();
  event.Reset();
  std::thread later([&event] { event.Signal(); });
  EXPECT_TRUE(event.Wait());
  later.join();
  std::thread closing([&event] { event.Close(); });
  EXPECT_FALSE(event.Wait());
  closing.join();
  event.Signal();
  event.Reset();
  EXPECT_FALSE(event.Wait());
}

TEST(InputFeed, LeavesTheLastHeaderOfItsQueueAlone) {
  const auto event = std::make_shared<WaveEvent>();
  InputFeed feed(1000, event);
  Buffer first(100);
  Buffer second(100);
  feed.SetCapturing(true);
  feed.Take(SamplesFrom(0, 50), nullptr);
  EXPECT_TRUE(feed.Add(first.header));
  EXPECT_EQ(first.header.recordedBytes, 0U);
  EXPECT_TRUE(feed.Add(second.header));
  EXPECT_EQ(first.header.recordedBytes, 100U);
  EXPECT_FALSE(first.isDone());
  feed.Take(SamplesFrom(50, 300), nullptr);
  EXPECT_TRUE(first.isDone());
  EXPECT_EQ(first.header.flags & kHeaderQueued, 0U);
  EXPECT_EQ(first.samples, SamplesFrom(0, 100));
  EXPECT_EQ(second.header.recordedBytes, 0U);
  // What had to wait is moved when a header comes back, without the callback.
  first.Lend();
  EXPECT_TRUE(feed.Add(first.header));
  EXPECT_TRUE(second.isDone());
  EXPECT_EQ(second.samples, SamplesFrom(100, 100));
  EXPECT_EQ(first.header.recordedBytes, 0U);
  EXPECT_TRUE(event->Wait());
  EXPECT_TRUE(event->Wait());
}

TEST(InputFeed, CountsWhatFindsNoRoom) {
  InputFeed feed(1000, std::make_shared<WaveEvent>());
  const auto second = SamplesFrom(0, 1000);
  feed.Take(second, nullptr);
  EXPECT_EQ(feed.Status().acceptedSamples, 0) << "nothing is taken before the start";
  feed.SetCapturing(true);
  for (int i = 0; i < 10; ++i) feed.Take(second, nullptr);
  EXPECT_EQ(feed.Status().acceptedSamples, 10000);
  EXPECT_EQ(feed.Status().lostSamples, 0);
  EXPECT_EQ(feed.Status().firstLossAt, -1);
  feed.Take(second, nullptr);
  feed.Take(second, nullptr);
  const WaveInStatus status = feed.Status();
  EXPECT_EQ(status.acceptedSamples, 10000);
  EXPECT_EQ(status.lostSamples, 2000);
  EXPECT_EQ(status.firstLossAt, 10000);
  EXPECT_EQ(status.callbacks, 13U);
}

TEST(InputFeed, ReturnsAllHeadersAndRefusesEmptyOnes) {
  const auto event = std::make_shared<WaveEvent>();
  InputFeed feed(1000, event);
  Buffer empty(1);
  empty.header.lengthBytes = 0;
  EXPECT_FALSE(feed.Add(empty.header));
  Buffer first(100);
  Buffer second(100);
  feed.SetCapturing(true);
  EXPECT_TRUE(feed.Add(first.header));
  EXPECT_TRUE(feed.Add(second.header));
  feed.Take(SamplesFrom(0, 30), nullptr);
  feed.ReturnHeaders();
  EXPECT_TRUE(first.isDone() && second.isDone());
  EXPECT_EQ(first.header.recordedBytes, 60U);
  EXPECT_TRUE(event->Wait() && event->Wait());
  feed.Take(SamplesFrom(30, 500), nullptr);
  EXPECT_EQ(first.header.recordedBytes, 60U);
  EXPECT_EQ(feed.Status().acceptedSamples, 30);
}

TEST(LevelTap, DropsWhatNobodyFetches) {
  InputFeed feed(1000, std::make_shared<WaveEvent>());
  LevelTap tap(1000);
  feed.Take(SamplesFrom(0, 900), &tap);
  feed.Take(SamplesFrom(900, 900), &tap);
  std::vector<std::int16_t> fetched(2000);
  fetched.resize(tap.Fetch(fetched));
  EXPECT_EQ(fetched, SamplesFrom(0, 1000));
  feed.Take(SamplesFrom(5, 10), &tap);
  EXPECT_EQ(tap.Fetch(fetched), 10U);
}

TEST(OutputFeed, GivesHeadersBackWhileItHoldsAtMostASecond) {
  const auto event = std::make_shared<WaveEvent>();
  OutputFeed feed(1000, event);
  Buffer first(800);
  Buffer second(800, 800);
  EXPECT_TRUE(feed.Write(first.header));
  EXPECT_TRUE(first.isDone());
  EXPECT_TRUE(feed.Write(second.header));
  EXPECT_FALSE(second.isDone());
  // The samples are copied: what the owner does to its buffer is not heard.
  first.samples.assign(800, 0);
  second.samples.assign(800, 0);
  std::vector<std::int16_t> out(599);
  feed.Render(out, 0);
  EXPECT_EQ(out, SamplesFrom(0, 599));
  EXPECT_FALSE(second.isDone());
  feed.Render({out.data(), 1}, 0);
  EXPECT_TRUE(second.isDone());
  EXPECT_TRUE(event->Wait() && event->Wait());
  out.assign(1200, 7);
  feed.Render(out, 0);
  auto expected = SamplesFrom(600, 1000);
  expected.resize(1200, 0);
  EXPECT_EQ(out, expected);
}

TEST(OutputFeed, StartsWithEnoughToCarryOn) {
  struct Row {
    std::uint32_t rateHz;
    bool hasEvent;
    std::size_t samples;
    bool starts;
  };
  for (const Row& row :
       {Row{10000, false, 1, true}, Row{10000, true, 3999, false}, Row{10000, true, 4000, true},
        Row{192000, true, 32767, false}, Row{192000, true, 32768, true}}) {
    OutputFeed feed(row.rateHz, row.hasEvent ? std::make_shared<WaveEvent>() : nullptr);
    Buffer buffer(row.samples);
    EXPECT_TRUE(feed.Write(buffer.header));
    EXPECT_EQ(feed.WantsStart(), row.starts) << row.rateHz << " Hz, " << row.samples;
  }
}

TEST(OutputFeed, TellsWhatIsHeardNow) {
  constexpr std::int64_t kMs = 1'000'000;
  OutputFeed feed(1000, nullptr);
  EXPECT_EQ(feed.Status(5 * kMs).playedSamples, 0);
  Buffer buffer(100);
  EXPECT_TRUE(feed.Write(buffer.header));
  std::vector<std::int16_t> out(60);
  feed.Render(out, 1000 * kMs);
  EXPECT_EQ(feed.Status(900 * kMs).playedSamples, 0) << "not yet heard";
  EXPECT_EQ(feed.Status(1030 * kMs).playedSamples, 30);
  EXPECT_EQ(feed.Status(1500 * kMs).playedSamples, 60) << "no further than was taken";
  feed.SetPaused(true);
  feed.Render(out, 1060 * kMs);
  EXPECT_EQ(out, std::vector<std::int16_t>(60, 0));
  feed.SetPaused(false);
  feed.Render(out, 1200 * kMs);
  EXPECT_EQ(feed.Status(1220 * kMs).playedSamples, 80);
  // Silence behind the end neither moves the place nor counts as a gap.
  feed.Render(out, 1260 * kMs);
  EXPECT_EQ(feed.Status(1239 * kMs).playedSamples, 99);
  EXPECT_EQ(feed.Status(1240 * kMs).playedSamples, 100);
  EXPECT_EQ(feed.Status(0).starvedSamples, 0);
  buffer.Lend();
  EXPECT_TRUE(feed.Write(buffer.header));
  feed.Render(out, 1400 * kMs);
  EXPECT_EQ(feed.Status(0).starvedSamples, 80) << "20 and 60 samples of silence in between";
  EXPECT_EQ(feed.Status(0).callbacks, 5U);
}

TEST(OutputFeed, IsSilentAfterItReturnedItsHeaders) {
  const auto event = std::make_shared<WaveEvent>();
  OutputFeed feed(100, event);
  Buffer buffer(150);
  EXPECT_TRUE(feed.Write(buffer.header));
  EXPECT_FALSE(buffer.isDone());
  feed.ReturnHeaders();
  EXPECT_TRUE(buffer.isDone());
  EXPECT_TRUE(event->Wait());
  std::vector<std::int16_t> out(10, 7);
  feed.Render(out, 0);
  EXPECT_EQ(out, std::vector<std::int16_t>(10, 0));
  EXPECT_FALSE(feed.Write(buffer.header));
}

TEST(SoundRates, GiveTheBuffersOfRecorderAndPlayer) {
  std::string table;
  for (const std::uint32_t rateHz : {8000U, 9999U, 10000U, 11025U, 16000U, 22050U, 32000U, 44100U,
                                     48000U, 96000U, 169999U, 170000U}) {
    table += Joined(rateHz, CaptureBufferSamples(rateHz), PlaybackBufferSamples(rateHz),
                    CanRecordAt(rateHz) ? "records\n" : "refuses\n");
  }
  ExpectText("audio/expected/Rates.txt", table);
  for (const double refused : {0.99, 192001.0, -5.0, std::nan("")}) {
    EXPECT_FALSE(DeviceRate(refused)) << refused;
  }
  EXPECT_EQ(DeviceRate(1.0), 1U);
  EXPECT_EQ(DeviceRate(11025.9), 11025U);
  EXPECT_EQ(DeviceRate(192000.0), 192000U);
}

}  // namespace
}  // namespace cantorix
