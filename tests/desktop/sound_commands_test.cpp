// sound_commands_test.cpp - recording and playing by commands, keys, clicks and windows, on
// scripted devices.
#include <QComboBox>
#include <QLabel>
#include <QTableView>
#include <algorithm>
#include <cmath>

#include "audio/recording_file.h"
#include "desktop/desktop_fixture.h"
#include "desktop/label_list_frame.h"
#include "desktop/windows/analysis_window_set.h"
#include "document/label.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_layout.h"
#include "mainview/listening.h"
#include "mainview/view_commands.h"
#include "settings/config_file.h"
#include "settings/settings.h"
#include "support/sound_samples.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

class SoundCommandsTest : public DesktopTest {
 protected:
  SoundCommandsTest() {
    sound.onOutput = [this](ScriptedOut&) { ++playbacks; };
  }
  ~SoundCommandsTest() override { frame.sound().StopPlaying(); }

  bool plays() { return frame.sound().isPlaying(); }
  // Brings a buffer to the recording that runs, and waits until it is kept.
  void DeliverBuffer() {
    ASSERT_TRUE(frame.sound().isRecording());
    sound.in->Deliver(SamplesFrom(0, 4096));
    EXPECT_TRUE(Eventually([&] { return frame.sound().recordingProgress()->seconds > 0.3; }));
  }
  // The first and the number of the document's samples that play; they are stopped.
  std::pair<double, double> Stretch(CSonadexView& view) {
    EXPECT_TRUE(plays());
    const double first = *frame.sound().PlayedMs(view.document()) / view.channel().msPerSample();
    sound.out->Take(32768);
    const double end = *frame.sound().PlayedMs(view.document()) / view.channel().msPerSample();
    frame.sound().StopPlaying();
    return {std::round(first), std::round(end - first)};
  }

  int playbacks = 0;
};

TEST_F(SoundCommandsTest, ARecordingRunsUntilAClickAKeyOrTheEnd) {
  frame.NewDocument();
  QApplication::processEvents();
  CSonadexView& view = *frame.activeView();
  const std::function<void()> ends[] = {
      [&] {
        QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {200, 100});
      },
      [&] { QTest::keyClick(&Picture(), Qt::Key_Space); },
      [&] { QTest::keyClick(&Picture(), Qt::Key_Escape); }};
  const auto* const offer = Picture().findChild<QLabel*>();
  ASSERT_TRUE(offer->isVisible());
  for (const auto& end : ends) {
    Perform(Command::kRecord);
    EXPECT_FALSE(offer->isVisible()) << "no recording is asked for while one runs";
    DeliverBuffer();
    EXPECT_FALSE(Enabled(Command::kRecord) || Enabled(Command::kPlayAll) ||
                 Enabled(Command::kClose));
    EXPECT_TRUE(Enabled(Command::kNew));
    end();
    EXPECT_FALSE(frame.sound().isRecording());
    EXPECT_EQ(view.channel().totalLength, 4096.0);
    EXPECT_TRUE(view.document().isModified());
    EXPECT_TRUE(Enabled(Command::kRecord) && Enabled(Command::kPlayAll));
    EXPECT_FALSE(view.markerSet());
    view.document().SetModified(false);
  }
}

TEST_F(SoundCommandsTest, ClosingFirstEndsTheRecordingAndThenAsks) {
  frame.NewDocument();
  QApplication::processEvents();
  for (const bool whole : {false, true}) {
    Perform(Command::kRecord);
    DeliverBuffer();
    prompts.WillAnswer(Answer::kCancel);
    EXPECT_FALSE(whole ? frame.close() : frame.activeFrame()->close());
    EXPECT_THAT(prompts.TakeTranscript(),
                ElementsAre("ask yes/no/cancel: Save Changes to ' Untitled ' before closing ?"));
    EXPECT_FALSE(frame.sound().isRecording());
    EXPECT_EQ(frame.activeView()->channel().totalLength, 4096.0);
    frame.activeView()->document().SetModified(false);
  }
  // One of two windows goes without a question, the recording ends all the same.
  frame.OpenNewWindow(frame.activeView()->document());
  QApplication::processEvents();
  Perform(Command::kRecord);
  DeliverBuffer();
  EXPECT_TRUE(frame.activeFrame()->close());
  EXPECT_FALSE(frame.sound().isRecording());
  EXPECT_TRUE(frame.activeView()->document().isModified());
  frame.activeView()->document().SetModified(false);
}

TEST_F(SoundCommandsTest, RecordingsThatWereNotSavedOpenOneAfterTheOther) {
  Settings settings{{}, DefaultDocumentSettings()};
  settings.document.display.automaticAnalysis = 1;
  WriteConfiguration(ConfigPath(folder.path()), settings);
  // The analysis of the first is long enough for the others to come in between.
  for (int i = 0; i < 3; ++i) {
    auto file = RecordingFile::Create(folder.path(), "20261121-143005", 11025);
    file->Append(SamplesFrom(0, 2000000));
    frame.OpenRecording(std::move(file));
  }
  const auto all = [&] {
    const auto documents = frame.documents().All();
    return std::ranges::all_of(documents, [](const auto* document) { return document->loaded; });
  };
  EXPECT_TRUE(QTest::qWaitFor(all, 60000));
  for (CSonadexDoc* const document : frame.documents().All()) {
    EXPECT_EQ(document->channel().totalLength, 2000000.0);
    EXPECT_TRUE(document->channel().intensity.IntensityValid);
    document->SetModified(false);
  }
}

TEST_F(SoundCommandsTest, CommandsAndKeysPlayTheirStretchOrStop) {
  CSonadexView& view = OpenSample();
  Perform(Command::kPlayAll);
  EXPECT_EQ(sound.out->script.calls().back(), "Write");
  EXPECT_EQ(Stretch(view).first, 0.0);
  SelectSpan(view, 100.0, 300.0);
  const double first = std::trunc(view.channel().selectionStart.samples);
  const double count = std::trunc(view.channel().selectionEnd.samples) - first;
  Perform(Command::kPlaySelection);
  EXPECT_EQ(Stretch(view), std::pair(first, count));
  QTest::keyClick(&Picture(), Qt::Key_Space);
  EXPECT_EQ(Stretch(view), std::pair(first, count));
  ZoomView(view, Zoom::kSelection);
  view.DropMarks();
  Perform(Command::kPlayWindow);
  EXPECT_EQ(Stretch(view), std::pair(first, count));
  QTest::keyClick(&Picture(), Qt::Key_Space);
  EXPECT_EQ(Stretch(view), std::pair(first, count));
  // Space and Esc stop, and so does what the user does to the picture.
  const std::function<void()> stops[] = {
      [&] { QTest::keyClick(&Picture(), Qt::Key_Space); },
      [&] { QTest::keyClick(&Picture(), Qt::Key_Escape); },
      [&] {
        QTest::mouseClick(&Picture(), Qt::LeftButton, {}, {200, 100});
      },
      [&] { Perform(Command::kZoomOut); },
      [&] { Perform(Command::kPlayWindow); },
      [&] { frame.activeFrame()->close(); }};
  for (const auto& stop : stops) {
    Perform(Command::kPlayWindow);
    EXPECT_TRUE(plays());
    stop();
    EXPECT_FALSE(plays());
  }
  EXPECT_EQ(playbacks, 11);
}

TEST_F(SoundCommandsTest, APlaybackEndsByItselfAndOthersAreToldOnce) {
  CSonadexView& view = OpenSample();
  Perform(Command::kPlayAll);
  EXPECT_TRUE(view.services().sound.Sound().playingHere);
  sound.out->Take(32768);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !plays(); }));
  sound.onOutput = [](ScriptedOut& out) { out.script.Set(0, Outcome::kFails); };
  Perform(Command::kPlayAll);
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("message: No Sound Output Device"));
}

TEST_F(SoundCommandsTest, LabelsPlayToTheNextOne) {
  CSonadexView& view = OpenSample();
  Tier& tier = view.channel().tiers[5];
  tier.inUse = true;
  tier.labels.clear();
  for (const double ms : {400.0, 100.0, 250.0}) {
    Label label;
    label.timeMs = ms;
    label.text = "label";
    view.channel().AddLabel(5, label);
  }
  view.Changed(DocumentChange::kLabels);
  const double perMs = view.channel().sampleRateHz / 1000.0;
  const auto at = [&](double ms) { return std::trunc(ms * perMs); };
  frame.ShowLabelList();
  QTableView& table = frame.labelList().table();
  // The one to the end of the recording streams, and only its beginning is heard.
  const std::pair<double, double> stretches[] = {
      {at(400.0), 1e9}, {at(100.0), at(250.0)}, {at(250.0), at(400.0)}};
  const int lastRows = table.model()->rowCount() - 3;
  for (int i = 0; i < 3; ++i) {
    const QModelIndex cell = table.model()->index(lastRows + i, 1);
    table.scrollTo(cell);
    const QPoint place = table.visualRect(cell).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place);
    const auto [first, count] = Stretch(view);
    EXPECT_NEAR(first, stretches[i].first, 1);
    EXPECT_LE(first + count, stretches[i].second + 1);
    EXPECT_TRUE(i == 0 || first + count >= stretches[i].second - 1);
  }
  // In the picture, where the label is drawn.
  const PixelRect box = LabelRectangle(view, 5, tier.labels[1]);
  const QPoint onLabel((box.left + box.right) / 2, (box.top + box.bottom) / 2);
  QTest::mouseDClick(&Picture(), Qt::LeftButton, {}, onLabel);
  EXPECT_NEAR(Stretch(view).first, at(100.0), 1);
  QTest::mouseDClick(&Picture(), Qt::LeftButton, {}, {200, 60});
  EXPECT_FALSE(plays());
  view.labelEntry.enabled = true;
  PlayPressedLabel(view);
  EXPECT_FALSE(plays());
}

TEST_F(SoundCommandsTest, TheSpectrogramPlaysWhatItShows) {
  CSonadexView& view = OpenSample();
  DesktopServices services{
      app, progress, dialogs, textMeasurer, opener, clipboard, {sound, clock, memory}};
  AnalysisWindowSet windows(services);
  windows.Enter({&frame.desks(),
                 [this](CSonadexDoc& document) -> DocumentWaveform& {
                   return frame.documents().WaveformOf(document);
                 },
                 {},
                 {}});
  SelectSpan(view, 100.0, 300.0);
  windows.Open(view, {WindowKind::kSpectrogram, cantorix::Stretch::kSelection});
  AnalysisFrame& shown = *windows.Find(view, WindowKind::kSpectrogram);
  const double first = std::trunc(view.channel().selectionStart.samples);
  shown.Perform(WindowCommand::kPlayWindow);
  EXPECT_EQ(Stretch(view).first, first);
  shown.Perform(WindowCommand::kPlaySelection);
  EXPECT_EQ(Stretch(view).first, first);
  shown.Perform(WindowCommand::kPlayAll);
  EXPECT_EQ(Stretch(view).first, 0);
  QTest::keyClick(&shown.canvas(), Qt::Key_Space);
  EXPECT_EQ(Stretch(view).first, first);
  view.DropMarks();
  EXPECT_FALSE(IsEnabled(*RowOf(WindowKind::kSpectrogram, WindowCommand::kPlaySelection),
                         ConditionsOf(shown.model())));
  windows.CloseWindowsOf(view);
}

}  // namespace
}  // namespace cantorix
