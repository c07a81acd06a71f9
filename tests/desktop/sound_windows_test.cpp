// sound_windows_test.cpp - the record/play window, the scope and the status bar, with scripted
// devices.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMdiArea>
#include <QPushButton>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QStatusBar>
#include <filesystem>
#include <fstream>

#include "desktop/desktop_fixture.h"
#include "desktop/dialog_sheet.h"
#include "desktop/sound/record_play_frame.h"
#include "desktop/sound/scope_frame.h"
#include "desktop/sound/sound_windows.h"
#include "mainview/view_commands.h"
#include "settings/config_file.h"
#include "settings/settings.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

using Samples = std::vector<std::int16_t>;
using testing::ElementsAre;
using testing::HasSubstr;

class SoundWindowsTest : public DesktopTest {
 protected:
  CFrameRecordPlay& Window() { return frame.soundWindows().recordPlay(); }
  // Opens the window as its command does, over a new document where there is none.
  CFrameRecordPlay& Show() {
    if (frame.activeView() == nullptr) Perform(Command::kNew);
    QApplication::processEvents();
    Perform(Command::kRecordPlayOptions);
    QApplication::processEvents();
    return Window();
  }
  // As a user does: the entry is looked for, and chosen only when it is not grey.
  void Choose(QComboBox& list, const QString& text) {
    const int index = list.findText(text);
    ASSERT_GE(index, 0) << text.toStdString();
    list.setCurrentIndex(index);
    QMetaObject::invokeMethod(&list, "activated", Q_ARG(int, index));
  }
  bool IsGrey(QComboBox& list, const QString& text) {
    const auto* const model = static_cast<QStandardItemModel*>(list.model());
    return !model->item(list.findText(text))->isEnabled();
  }
  void Deliver(const Samples& samples) {
    sound.in->Deliver(samples);
    for (int i = 0; i < 4; ++i) {
      frame.sound().Tick();
      frame.soundWindows().Tick();
    }
  }
  // What the window shows of input, rate, why it is refused, the rates that are grey, the level and
  // the buttons.
  std::string Seen() {
    CFrameRecordPlay& window = Window();
    QStringList grey;
    for (int i = 0; i < window.rate().count(); ++i) {
      if (IsGrey(window.rate(), window.rate().itemText(i))) grey << window.rate().itemText(i);
    }
    const QString reason = window.rateReason().isVisible() ? window.rateReason().text() : "";
    const QStringList parts{window.input().currentText(),
                            window.rate().currentText(),
                            reason,
                            "grey " + grey.join(", "),
                            window.levelText().text().replace('\n', ' '),
                            window.rescan().isEnabled() ? "< > Rescan" : ""};
    return Typed(parts.join(" | ")) + '\n';
  }
  std::string Status() { return Typed(frame.soundWindows().status().text().text()); }
  std::string Note() { return Typed(frame.statusBar()->currentMessage()); }
};

TEST_F(SoundWindowsTest, EachFieldReachesItsPlaceAndTheFile) {
  ASSERT_TRUE(WriteConfiguration(ConfigPath(folder.path()), {{}, DefaultDocumentSettings()}));
  CSonadexView& view = OpenSample();
  CFrameRecordPlay& window = Show();
  ExpectText("desktop/expected/RecordPlay.txt", SheetOf(window));
  EXPECT_EQ(window.memoryMinutes().value(), 5);
  window.memoryMinutes().setValue(9);
  EXPECT_EQ(app.host.application.memoryMinutes, 9);
  Choose(window.rate(), "44100 Hz");
  EXPECT_EQ(app.host.recordingRateHz, 44100.0);
  EXPECT_EQ(sound.in->format.rateHz, 44100U) << "listened to at that rate";
  window.automatic().click();
  EXPECT_EQ(view.document().settings.display.automaticAnalysis, 1);
  Choose(window.input(), "Line");
  EXPECT_EQ(view.document().settings.display.recordingInput, 2);
  EXPECT_EQ(sound.openedInputs.back(), "Line");
  EXPECT_EQ((profile.texts[{"Sound", "Input"}]), "Line");
  Settings stored;
  ASSERT_TRUE(DecodeRecord(ReadConfiguration(ConfigPath(folder.path())), stored));
  EXPECT_EQ(stored.document.display.recordingInput, 2);
}

TEST_F(SoundWindowsTest, AsksForDevicesOnlyOnceItIsShown) {
  OpenSample();
  EXPECT_EQ(sound.questions, 0);
  EXPECT_TRUE(sound.openedInputs.empty());
  CFrameRecordPlay& window = Show();
  EXPECT_GT(sound.questions, 0);
  EXPECT_EQ(window.input().count(), 3);
  EXPECT_EQ(window.input().currentText(), "System default");
  EXPECT_EQ(window.input().itemText(2), "Line");
}

TEST_F(SoundWindowsTest, RefusedRatesAreGreyAndAStoredOneSaysWhatIsWrong) {
  sound.refuses = [](const std::string& name, std::uint32_t rateHz) {
    return name == "Line" && rateHz < 44100;
  };
  app.host.recordingRateHz = 8000.0;
  CFrameRecordPlay& window = Show();
  std::string seen = Seen();
  const QColor shown = window.rate().palette().color(QPalette::ButtonText);
  EXPECT_GT(shown.red(), 2 * shown.green()) << "in red";
  Choose(window.input(), "Line");
  seen += Seen();
  Choose(window.rate(), "48000 Hz");
  EXPECT_EQ(window.rate().findText("8000 Hz"), -1) << "no longer offered";
  seen += Seen();
  app.host.recordingRateHz = 12000.0;  // not in the list, but it records
  frame.Refresh();
  ExpectText("desktop/expected/RefusedRates.txt", seen + Seen());
}

TEST_F(SoundWindowsTest, ListensOnlyWhileItIsOpenAndNothingIsRecordedAndSaysWhatIsWrong) {
  sound.onInput = [](ScriptedIn& in) { in.script.Set(0, Outcome::kFails); };
  CFrameRecordPlay& window = Show();
  std::string seen = Seen();
  sound.onInput = {};
  window.rescan().click();
  seen += Seen();
  Deliver(Samples(6000, 16384));
  seen += Seen();
  Perform(Command::kRecord);
  Deliver(Samples(100, 16384));
  seen += Seen();
  frame.sound().EndRecording(frame.activeView()->document());
  seen += Seen();
  EXPECT_TRUE(frame.sound().inputLevel().has_value());
  sound.in->health = DeviceHealth::kLost;
  Deliver({});
  ExpectText("desktop/expected/Listening.txt", seen + Seen());
  sound.isHung = true;
  window.rescan().click();
  EXPECT_EQ(Note(), "Sound devices cannot be looked for now.");
  window.hide();
  EXPECT_FALSE(frame.sound().isActive());
}

TEST_F(SoundWindowsTest, AnInputThatIsGoneIsTheSystemsOwnWithOneLine) {
  CSonadexView& view = OpenSample();
  view.document().settings.display.recordingInput = 1;
  profile.texts[{"Sound", "Input"}] = "Headset";
  Perform(Command::kRecord);
  ASSERT_TRUE(frame.sound().isRecording());
  EXPECT_EQ(sound.openedInputs.back(), "");
  EXPECT_EQ(Note(), "The sound input \"Headset\" is not there: the system's own is used.");
  frame.sound().EndRecording(view.document());
  sound.inputs = {"Line", "Headset"};
  Show().rescan().click();
  EXPECT_EQ(sound.rescans, 1);
  EXPECT_EQ(Window().input().currentText(), "Headset");
  EXPECT_EQ(sound.openedInputs.back(), "Headset");
}

TEST_F(SoundWindowsTest, PlaysOneSecondOfTheSelection) {
  CSonadexView& view = OpenSample();
  EXPECT_FALSE(Show().playSecond().isEnabled());
  struct Row {
    double startMs, endMs, playedMs;
  };
  for (const Row& row : {Row{1000.0, 3000.0, 1000.0}, Row{1000.0, 1300.0, 300.0}}) {
    SelectSpan(view, row.startMs, row.endMs);
    ASSERT_TRUE(Window().playSecond().isEnabled());
    Window().playSecond().click();
    ASSERT_TRUE(frame.sound().isPlaying());
    EXPECT_NEAR(*frame.sound().PlayedMs(view.document()), row.startMs, 0.2);
    const auto samples = static_cast<std::size_t>(row.playedMs / view.channel().msPerSample());
    sound.out->Take(samples - 20);
    frame.sound().Tick();
    EXPECT_TRUE(frame.sound().isPlaying());
    sound.out->Take(40);
    frame.sound().Tick();
    EXPECT_FALSE(frame.sound().isPlaying());
  }
}

TEST_F(SoundWindowsTest, OneScopeAtMostHearsRecordingsAndTheInput) {
  CSonadexView& view = OpenSample();
  CFrameRecordPlay& window = Show();
  window.scope().click();
  CScopeChildFrame* const scope = frame.soundWindows().scope();
  ASSERT_NE(scope, nullptr);
  EXPECT_EQ(scope->windowTitle(), "Scope Window");
  EXPECT_FALSE(window.scope().isEnabled());
  frame.soundWindows().ShowScope();
  EXPECT_EQ(frame.area().subWindowList().size(), 2);
  EXPECT_EQ(frame.activeView(), &view) << "its document keeps the commands";
  window.hide();
  EXPECT_TRUE(frame.sound().inputLevel().has_value()) << "the scope still listens";
  const QImage empty = scope->view().canvas().image().copy();
  for (const bool recording : {false, true}) {
    SCOPED_TRACE(recording);
    if (recording) Perform(Command::kRecord);
    const QImage before = scope->view().canvas().image().copy();
    EXPECT_TRUE(QTest::qWaitFor([&] {
      Deliver(Samples(400, 12000));
      return scope->view().canvas().image() != before;
    }));
    const auto texts = scope->findChildren<QLabel*>();
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return texts[0]->text() ==
             (recording ? "Recording at 11025 Hz" : "Listening at 11025 Hz; nothing is recorded.");
    }));
    EXPECT_THAT(Typed(texts[1]->text()), HasSubstr("Peak -8.7 dB     RMS "));
    if (recording) continue;
    texts[1]->setText("what was heard");
    ExpectText("desktop/expected/Scope.txt", SheetOf(*scope));
  }
  frame.sound().EndRecording(view.document());
  frame.activateWindow();
  QApplication::processEvents();
  QTest::mouseClick(&scope->view(), Qt::LeftButton);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F4, Qt::ControlModifier);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(frame.soundWindows().scope(), nullptr);
  EXPECT_TRUE(window.scope().isEnabled());
  EXPECT_FALSE(frame.sound().isActive());
}

TEST_F(SoundWindowsTest, AScopeThatCannotBeMadeIsTold) {
  frame.soundWindows().makeScope = []() -> CScopeChildFrame* { throw std::bad_alloc(); };
  frame.soundWindows().ShowScope();
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("beep", "message: Error in creating the scope view."));
  EXPECT_EQ(frame.soundWindows().scope(), nullptr);
  EXPECT_FALSE(frame.sound().isActive());
}

TEST_F(SoundWindowsTest, TheStatusBarFollowsWhatRuns) {
  CSonadexView& view = OpenSample();
  EXPECT_FALSE(frame.soundWindows().status().text().isVisible());
  Perform(Command::kRecord);
  Deliver(Samples(8192, 32767));
  EXPECT_TRUE(frame.soundWindows().status().text().isVisible());
  EXPECT_THAT(Status(), HasSubstr("Recording...   press mouse to stop   0:0"));
  EXPECT_THAT(Status(), HasSubstr("Peak -0.0 dB   Clipped 1 time, first at 0.0 s   No gaps"));
  const std::string before = Status();
  sound.in->Deliver(Samples(20000, 0));
  frame.sound().Tick();
  frame.soundWindows().Tick();
  EXPECT_EQ(Status(), before) << "not at every tick";
  frame.sound().EndRecording(view.document());
  EXPECT_FALSE(frame.soundWindows().status().text().isVisible());
  Perform(Command::kPlayAll);
  EXPECT_EQ(Status(), "Playing   0.0 s");
  sound.out->Take(3000);
  for (int i = 0; i < 4; ++i) frame.soundWindows().Tick();
  EXPECT_EQ(Status(), "Playing   0.3 s");
  frame.sound().StopPlaying();
  EXPECT_EQ(Status(), "");
}

TEST(DeviceChanges, AreToldOnceWhenTheFoldersAreAtRest) {
  const TemporaryFolder folder;
  int changes = 0;
  DeviceChanges devices({"/no/such/folder", QString::fromStdString(folder.path())},
                        [&] { ++changes; });
  std::ofstream(folder.path() + "/before") << 1;
  EXPECT_FALSE(QTest::qWaitFor([&] { return changes > 0; }, 700)) << "off";
  devices.Watch(true);
  std::ofstream(folder.path() + "/pcmC1D0c") << 1;
  QTest::qWait(200);
  std::ofstream(folder.path() + "/controlC1") << 1;
  EXPECT_TRUE(QTest::qWaitFor([&] { return changes > 0; }, 5000));
  EXPECT_FALSE(QTest::qWaitFor([&] { return changes > 1; }, 700));
  std::filesystem::remove(folder.path() + "/controlC1");
  QTest::qWait(100);
  devices.Watch(false);
  EXPECT_FALSE(QTest::qWaitFor([&] { return changes > 1; }, 700)) << "turned off meanwhile";
}

}  // namespace
}  // namespace cantorix
