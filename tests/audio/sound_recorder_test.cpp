// sound_recorder_test.cpp - the recorder against a scripted input: order of calls, texts, buffers,
// what reaches file, memory and scope, and how a recording ends.
#include "audio/sound_recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <mutex>

#include "support/expected_text.h"
#include "support/file_size_limit.h"
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

constexpr std::size_t kBuffer = 4096;  // at 11025 Hz

// Keeps what it sees, and keeps the worker waiting while it is shut.
class GatedScope : public ScopeSink {
 public:
  void Trace(std::span<const std::int16_t> samples) override {
    const std::lock_guard lock(gate);
    seen.insert(seen.end(), samples.begin(), samples.end());
  }

  std::mutex gate;
  std::vector<std::int16_t> seen;
};

// A recorder on a scripted device on which one call, by its number, has another outcome.
struct RecorderRig {
  explicit RecorderRig(int call = -1, Outcome outcome = Outcome::kDone) {
    device->script.Set(call, outcome);
  }
  void SetUpFile(std::uint32_t rateHz = 11025) {
    recorder.SetUp({rateHz, 16, folder.path(), "20261121-143005", nullptr, scope});
  }
  void DeliverBuffers(int count) {
    device->Deliver(SamplesFrom(at, static_cast<std::size_t>(count) * kBuffer));
    at += static_cast<std::int64_t>(count) * std::int64_t{kBuffer};
  }
  bool Delivered(std::int64_t samples) {
    return Eventually([&] { return recorder.Status().deliveredSamples == samples; });
  }
  bool Failed() {
    return Eventually([&] { return recorder.Status().hasFailed; });
  }
  std::vector<std::int16_t> FileSamples() {
    const auto file = recorder.TakeFile();
    if (!file) return {};
    const auto samples = SamplesOf(file->path());
    EXPECT_EQ(file->lengthSamples(), static_cast<std::int64_t>(samples.size()));
    return samples;
  }

  TemporaryFolder folder;
  VirtualClock clock;
  FakeMemoryProbe memory;
  std::shared_ptr<ScriptedIn> device = std::make_shared<ScriptedIn>();
  std::shared_ptr<RecordingNotices> notices = std::make_shared<RecordingNotices>();
  std::shared_ptr<GatedScope> scope = std::make_shared<GatedScope>();
  SoundRecorder recorder{device, notices, clock, memory};
  std::int64_t at = 0;
};

class SoundRecorderTest : public testing::Test, protected RecorderRig {};

TEST_F(SoundRecorderTest, RecordsWholeBuffersInTheStatedOrderOfCalls) {
  SetUpFile();
  EXPECT_TRUE(recorder.Start());
  EXPECT_EQ(device->format.rateHz, 11025U);
  EXPECT_EQ(device->format.blockAlign, 2);
  EXPECT_EQ(device->format.averageBytesPerSecond, 22050U);
  DeliverBuffers(1);
  ASSERT_TRUE(Delivered(kBuffer));
  device->Deliver(SamplesFrom(kBuffer, kBuffer - 1));
  recorder.Stop();
  EXPECT_THAT(device->script.calls(),
              ElementsAre("DeviceCount", "Capabilities", "Open", "Prepare", "AddBuffer", "Prepare",
                          "AddBuffer", "Start",                          // started
                          "Unprepare", "Prepare", "AddBuffer", "Start",  // one buffer
                          "Hold", "Reset", "Stop", "Close"));
  EXPECT_THAT(clock.sleepsMs, ElementsAre(500.0));
  EXPECT_THAT(notices->texts(), IsEmpty());
  device->Deliver(SamplesFrom(0, 3 * kBuffer));  // late
  EXPECT_EQ(FileSamples(), SamplesFrom(0, kBuffer));
  EXPECT_EQ(scope->seen, SamplesFrom(0, kBuffer));
  EXPECT_EQ(recorder.TakeFile(), nullptr) << "taken once";
}

// A line for each call of the start and what happens to it: the calls of the start and of the stop
// (only a device that was opened is reset, stopped and closed) and the texts.
TEST_F(SoundRecorderTest, SaysEachFailureOfTheStartOnceAndGoesOn) {
  std::string table;
  for (int call = 0; call < 8; ++call) {
    for (const Outcome outcome : {Outcome::kFails, Outcome::kUnmarked}) {
      RecorderRig failing(call, outcome);
      failing.SetUpFile();
      EXPECT_FALSE(failing.recorder.Start());
      const std::size_t calls = failing.device->script.calls().size();
      failing.recorder.Stop();
      EXPECT_THAT(failing.clock.sleepsMs, ElementsAre(500.0));
      table += Joined(call, outcome == Outcome::kFails ? "fails:" : "unmarked:", calls,
                      failing.device->script.calls().size() - calls);
      for (const std::string& text : failing.notices->texts()) table += " | " + text;
      table += '\n';
    }
  }
  ExpectText("audio/expected/RecorderStart.txt", table);
}

TEST_F(SoundRecorderTest, TriesTheSameBufferAgainAfterAFailedRequeue) {
  struct Row {
    int call;
    Outcome outcome;
    Texts texts;
  };
  const std::string unprepare = "Cannot UnPrepareHeader !";
  const Row rows[] = {
      {8, Outcome::kFails, {unprepare}},
      {9, Outcome::kFails, {"Cannot Prepare Header !"}},
      {9, Outcome::kUnmarked, {"Cannot Prepare Header !"}},
      {10, Outcome::kFails, {"Cannot Add Buffer (Add Buffer)!"}},
      // The device has the buffer by then and does not let go of it.
      {11, Outcome::kFails, {"Cannot Start Wave In (Add Buffer)!", unprepare}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "call " << row.call);
    RecorderRig failing(row.call, row.outcome);
    failing.SetUpFile();
    EXPECT_TRUE(failing.recorder.Start());
    failing.DeliverBuffers(1);
    ASSERT_TRUE(failing.Failed());
    EXPECT_EQ(failing.notices->texts(), Texts{row.texts[0]});
    EXPECT_EQ(failing.recorder.Status().deliveredSamples, 0);
    failing.device->event->Signal();
    const bool recovers = row.texts.size() == 1;
    ASSERT_TRUE(Eventually([&] {
      return failing.notices->texts().size() == row.texts.size() &&
             (!recovers || failing.recorder.Status().deliveredSamples > 0);
    }));
    failing.recorder.Stop();
    EXPECT_EQ(failing.notices->texts(), row.texts);
    EXPECT_EQ(failing.scope->seen, SamplesFrom(0, recovers ? kBuffer : 0));
  }
}

TEST_F(SoundRecorderTest, RecordsIntoMemoryWithOffsetAndGain) {
  const auto block = std::make_shared<RecordingBlock>();
  block->offset = 100;
  block->gain = -1.5;
  recorder.SetUp({11025, 16, folder.path(), "20261121-143005", block, scope});
  memory.limitBytes = 2 * 2 * kBuffer;
  EXPECT_TRUE(recorder.Start());
  std::vector<std::int16_t> samples(2 * kBuffer, 0);
  samples[0] = 1;
  samples[1] = -103;
  samples[2] = 32767;  // beyond 16 bits after the offset
  samples[3] = 30000;  // and this after the gain
  samples[kBuffer] = 7;
  device->Deliver(samples);
  ASSERT_TRUE(Delivered(2 * kBuffer));
  device->Deliver(samples);
  ASSERT_TRUE(Failed());
  recorder.Stop();
  ASSERT_EQ(block->samples.size(), 2 * kBuffer) << "no memory for a third buffer";
  EXPECT_THAT(notices->texts(), ElementsAre("There is not enough memory to go on recording."));
  EXPECT_EQ(block->samples[0], -151);    // -151.5
  EXPECT_EQ(block->samples[1], 4);       // 4.5
  EXPECT_EQ(block->samples[2], -16533);  // 1.5 x 32669 = 49003.5, wrapped
  EXPECT_EQ(block->samples[3], 20386);   // -45150, wrapped
  EXPECT_EQ(block->samples[4], -150);
  EXPECT_EQ(block->samples[kBuffer], -160);
  EXPECT_EQ(scope->seen, block->samples) << "the scope sees what is kept";
  EXPECT_TRUE(FileSamples().empty());
}

TEST_F(SoundRecorderTest, KeepsWholeBuffersOnAFullDiskAndSaysSoOnce) {
  SetUpFile();
  EXPECT_TRUE(recorder.Start());
  {
    const FileSizeLimit limit(2 * 2 * kBuffer + 1001);
    DeliverBuffers(4);
    ASSERT_TRUE(Failed());
  }
  // Room again does not make a hole in the recording.
  DeliverBuffers(2);
  ASSERT_TRUE(Eventually([&] { return recorder.Status().deliveredSamples >= 4 * 4096; }));
  recorder.Stop();
  EXPECT_THAT(notices->texts(), ElementsAre(folder / "Recording-20261121-143005-11025Hz-1.raw" +
                                            " could not be saved. File too large. What was "
                                            "recorded is kept."));
  EXPECT_EQ(FileSamples(), SamplesFrom(0, 2 * kBuffer));
}

TEST_F(SoundRecorderTest, SaysThatThereIsNoFileAndRecordsOn) {
  recorder.SetUp({11025, 16, folder / "absent", "20261121-143005", nullptr, scope});
  EXPECT_THAT(notices->texts(), ElementsAre("Failure to create a temp file to record."));
  EXPECT_TRUE(recorder.Start());
  DeliverBuffers(1);
  EXPECT_TRUE(Delivered(kBuffer));
  recorder.Stop();
  EXPECT_EQ(recorder.TakeFile(), nullptr);
  EXPECT_EQ(scope->seen.size(), kBuffer);
}

TEST_F(SoundRecorderTest, WorksOffWhatWaitsBeforeItStops) {
  SetUpFile();
  EXPECT_TRUE(recorder.Start());
  std::unique_lock shut(scope->gate);
  DeliverBuffers(5);
  device->Deliver(SamplesFrom(5 * kBuffer, kBuffer / 2));
  clock.onSleep = [&](double) {
    device->Deliver(SamplesFrom(0, kBuffer));  // comes too late to be taken
    if (shut.owns_lock()) shut.unlock();
  };
  recorder.Stop();
  EXPECT_EQ(clock.sleepsMs.front(), 10.0);
  EXPECT_EQ(clock.sleepsMs.back(), 500.0);
  EXPECT_EQ(FileSamples(), SamplesFrom(0, 5 * kBuffer));
}

TEST_F(SoundRecorderTest, LetsGoOfAStuckConsumerAfterItsPatience) {
  SetUpFile();
  EXPECT_TRUE(recorder.Start());
  {
    const std::lock_guard shut(scope->gate);
    DeliverBuffers(3);
    recorder.Stop();
    EXPECT_EQ(clock.nowMs, 5500.0);
    EXPECT_EQ(device->script.calls().back(), "Close");
    EXPECT_EQ(recorder.TakeFile(), nullptr) << "the worker has it";
  }
  // The worker ends with the buffer that it held.
  EXPECT_TRUE(Delivered(kBuffer));
  EXPECT_EQ(scope->seen, SamplesFrom(0, kBuffer));
}

TEST_F(SoundRecorderTest, DeliversNothingAfterAPauseIsKept) {
  SetUpFile();
  EXPECT_TRUE(recorder.Start());
  DeliverBuffers(1);
  ASSERT_TRUE(Delivered(kBuffer));
  recorder.Pause();
  recorder.Resume();
  const auto calls = device->script.calls();
  EXPECT_EQ((Texts{calls.end() - 3, calls.end()}), (Texts{"Stop", "Reset", "Start"}));
  DeliverBuffers(3);
  recorder.Stop();
  EXPECT_EQ(FileSamples(), SamplesFrom(0, kBuffer));
}

TEST_F(SoundRecorderTest, FillsNoBufferBeyondItsRoom) {
  SetUpFile(192000);  // by the rule 77824 samples
  EXPECT_TRUE(recorder.Start());
  device->Deliver(SamplesFrom(0, 2 * 65536 + 10));
  ASSERT_TRUE(Delivered(2 * 65536));
  recorder.Stop();
  EXPECT_EQ(FileSamples(), SamplesFrom(0, 2 * 65536));
}

TEST_F(SoundRecorderTest, SilencesTheBufferThatCompletesNext) {
  SetUpFile(22050);
  EXPECT_TRUE(recorder.Start());
  device->Deliver(SamplesFrom(0, 5000));
  EXPECT_EQ(recorder.SilenceCurrentBuffer(), 4096);
  device->Deliver(SamplesFrom(5000, 3192));
  ASSERT_TRUE(Delivered(8192));
  recorder.Stop();
  auto expected = SamplesFrom(0, 8192);
  std::fill_n(expected.begin(), 4096, std::int16_t{0});
  EXPECT_EQ(FileSamples(), expected);
}

TEST_F(SoundRecorderTest, StopsAndEndsWithoutAStart) {
  SetUpFile();
  recorder.Stop();
  EXPECT_THAT(clock.sleepsMs, ElementsAre(500.0));
  EXPECT_THAT(device->script.calls(), IsEmpty());
  SoundRecorder untouched(device, notices, clock, memory);
}

TEST(SoundNotices, GiveEachTextOncePerRun) {
  SoundNotices notices;
  for (const char* text : {"one", "two", "one"}) notices.Notice(text);
  EXPECT_THAT(notices.Take(), ElementsAre("one", "two"));
  notices.Notice("two");
  EXPECT_THAT(notices.Take(), IsEmpty());
  notices.Notice("three");
  notices.BeginRun();
  notices.Notice("two");
  EXPECT_THAT(notices.Take(), ElementsAre("three", "two"));
}

}  // namespace
}  // namespace cantorix
