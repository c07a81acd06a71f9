// sound_desk_fixture.h - a desk over scripted devices, and what it told.
#pragma once

#include <filesystem>

#include "mainview/sound_desk.h"
#include "support/scripted_sound.h"
#include "support/sound_samples.h"
#include "support/virtual_clock.h"
#include "view_fixture.h"

namespace cantorix {

using Texts = std::vector<std::string>;

inline constexpr std::size_t kBuffer = 4096;  // at 11025 Hz
inline constexpr int kSilentTicks = 70;       // more than two seconds of them

class DeskListener : public SoundDeskListener {
 public:
  void SoundChanged() override { ++changes; }
  void SoundNote(const std::string& text) override { notes.push_back(text); }

  int changes = 0;
  Texts notes;
};

// A view whose sound is that of the desk.
class DeskPlayback : public SoundControl {
 public:
  DeskPlayback(SoundDesk& desk, CSonadexDoc& document) : desk_(desk), document_(document) {}
  void StopPlayback() override { desk_.StopPlaying(document_); }
  bool EndRecording() override { return desk_.EndRecording(document_); }
  SoundState Sound() const override { return desk_.StateOf(document_); }

 private:
  SoundDesk& desk_;
  CSonadexDoc& document_;
};

class SoundDeskTest : public ViewTest {
 protected:
  // A view of `talk` that reaches the desk.
  struct Desk {
    Desk(SoundDeskTest& test, CSonadexDoc& document)
        : playback(test.desk, document),
          view(document, {test.world.clipboard,
                          test.world.temporary.path() + "/",
                          test.world.textMeasurer,
                          test.world.listener,
                          playback,
                          test.world.dialogs,
                          {}}) {
      view.Begin({645, 500});
    }
    DeskPlayback playback;
    CSonadexView view;
  };

  Texts Prompts() { return world.test.prompts.TakeTranscript(); }
  Texts Files() const { return recordings.Names(); }
  // Brings `count` samples and waits for the whole buffers of them.
  void Deliver(std::size_t count) {
    sound.in->Deliver(SamplesFrom(0, count));
    const std::size_t buffers = count / kBuffer;
    const auto whole = static_cast<double>(buffers * kBuffer);
    EXPECT_TRUE(Eventually([&] { return desk.recordingProgress()->seconds * 11025.0 == whole; }));
  }
  // A recording of that many samples into the document, ended as by a click.
  void RecordInto(CSonadexView& view, std::size_t count) {
    desk.Record(view);
    ASSERT_TRUE(desk.isRecording());
    Deliver(count);
    EXPECT_TRUE(desk.EndRecording(view.document()));
  }
  void Tick(int times) {
    for (int i = 0; i < times; ++i) desk.Tick();
  }

  ScriptedSound sound;
  VirtualClock clock;
  TemporaryFolder recordings;
  DeskListener listener;
  SoundDesk desk{{{sound, clock, world.test.memory},
                  world.test.prompts,
                  [&] {
                    return RecordingPlace{recordings.path(), "20261121-143005"};
                  }},
                 listener};
};

}  // namespace cantorix
