// program_test.cpp - runs of the whole program: what its arguments open and when it refuses to
// start.
#include "desktop/program.h"

#include <gmock/gmock.h>
#include <stdlib.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "audio/recording_file.h"
#include "desktop/child_frame.h"
#include "support/samples.h"
#include "support/scripted_sound.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

// The message boxes that stand up while the event loop of one of them runs, pressed away at once.
class BoxWatcher {
 public:
  BoxWatcher() {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      if (auto* const box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        texts.push_back(box->text().toStdString());
        QAbstractButton* const yes = box->button(QMessageBox::Yes);
        yes != nullptr ? yes->click() : box->accept();
      }
    });
    timer_.start(5);
  }
  std::vector<std::string> texts;

 private:
  QTimer timer_;
};

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
    std::filesystem::current_path(folder.path());
  }
  ~ProgramTest() override { std::filesystem::current_path("/"); }

  static CMainFrame* Frame() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (auto* const frame = dynamic_cast<CMainFrame*>(widget)) return frame;
    }
    return nullptr;
  }

  TemporaryFolder folder;
  BoxWatcher boxes;
  ScriptedSound sound;
};

TEST_F(ProgramTest, WithoutArgumentsAnEmptyDocumentOpensMaximised) {
  Program program(sound);
  ASSERT_TRUE(program.Start({}));
  EXPECT_EQ(sound.questions, 0) << "no device is looked for at the start";
  EXPECT_TRUE(sound.openedInputs.empty() && sound.out == nullptr);
  CMainFrame* const frame = Frame();
  ASSERT_NE(frame, nullptr);
  EXPECT_TRUE(frame->isMaximized());
  ASSERT_EQ(frame->documents().All().size(), 1U);
  EXPECT_FALSE(frame->documents().All()[0]->loaded);
  EXPECT_TRUE(std::filesystem::is_directory(folder / "tmp"));
}

TEST_F(ProgramTest, AFileArgumentOpensInstead) {
  {
    Program program(sound);
    ASSERT_TRUE(program.Start({SamplesDirectory() + "/vowels.qrv"}));
    ASSERT_EQ(Frame()->documents().All().size(), 1U);
    EXPECT_EQ(Frame()->documents().All()[0]->title(), "vowels.qrv");
    for (const Command command : {Command::kSpectrogramAll, Command::kPrint}) {
      EXPECT_TRUE(Frame()->actions().ActionOf(command).isEnabled()) << RowOf(command).text;
    }
  }
  EXPECT_TRUE(std::filesystem::exists(folder / "CantorixConf.cfg"))
      << "a document that closes writes the configuration";
}

TEST_F(ProgramTest, EndsItsStartWhereAFileOrTheProfileFails) {
  WriteBytes(folder / "config", {});
  EXPECT_FALSE(Program(sound).Start({}));
  std::filesystem::remove(folder / "config");
  EXPECT_FALSE(Program(sound).Start({folder / "none.wav"}));
  EXPECT_THAT(boxes.texts,
              testing::ElementsAre(
                  "Unable to update the system registry.\n"
                  "Please contact your system administrator and/or the vender.",
                  (folder / "none.wav") + " could not be opened. No such file or directory."));
  EXPECT_EQ(Frame(), nullptr);
}

TEST_F(ProgramTest, OffersWhatAKilledProgramRecorded) {
  std::filesystem::create_directory(folder / "tmp");
  const std::vector<std::int16_t> samples(4096, 7);
  RecordingFile::Create(folder / "tmp", "20261121-143005", 11025)->Append(samples);
  {
    Program program(sound);
    ASSERT_TRUE(program.Start({SamplesDirectory() + "/vowels.qrv"}));
    EXPECT_THAT(boxes.texts, testing::ElementsAre(testing::HasSubstr("was not saved")));
    QApplication::processEvents();
    const auto frames = Frame()->Frames();
    ASSERT_EQ(frames.size(), 2U) << "behind the file of the command line";
    const CSonadexDoc& document = frames[1]->view()->document();
    EXPECT_EQ(document.channel().totalLength, 4096.0);
    EXPECT_EQ(document.channel().sampleRateHz, 11025.0);
    EXPECT_TRUE(document.isModified() && document.newRecording);
  }
  EXPECT_TRUE(std::filesystem::exists(folder / "tmp/Recording-20261121-143005-11025Hz-1.raw"));
}

// The journal of a program that runs is what it leaves behind when it is killed.
TEST_F(ProgramTest, RestoresTheWorkOfAKilledProgram) {
  namespace fs = std::filesystem;
  const fs::path temporary = folder / "tmp";
  fs::create_directory(temporary);
  fs::path left;
  {
    Program program(sound);
    ASSERT_TRUE(program.Start({SamplesDirectory() + "/vowels.qrv"}));
    CSonadexDoc& document = Frame()->activeView()->document();
    document.channel().tiers[0].name = "changed";
    document.Notify(DocumentChange::kLabels);
    QTest::qWait(700);  // ticks come four times a second
    for (const auto& file : fs::directory_iterator(temporary)) {
      if (file.path().filename().string().starts_with("Work-")) left = file.path().filename();
    }
    ASSERT_FALSE(left.empty());
    fs::copy_file(temporary / left, fs::path(folder.path()) / left);
    document.SetModified(false);
  }
  EXPECT_FALSE(fs::exists(temporary / left)) << "after a normal end";
  fs::copy_file(fs::path(folder.path()) / left, temporary / left);
  Program program(sound);
  ASSERT_TRUE(program.Start({}));
  EXPECT_THAT(boxes.texts, testing::ElementsAre(testing::HasSubstr("Would you like to restore")));
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_EQ(Frame()->Frames().size(), 1U) << "the untouched one has gone";
  CSonadexDoc& document = Frame()->activeView()->document();
  EXPECT_EQ(document.channel().tiers[0].name, "changed");
  EXPECT_TRUE(document.isModified());
  EXPECT_TRUE(Frame()->isWindowModified());
  document.SetModified(false);
}

TEST_F(ProgramTest, TheEndOfTheSessionKeepsARecordingThatRuns) {
  {
    Program program(sound);
    ASSERT_TRUE(program.Start({}));
    QApplication::processEvents();
    CMainFrame& frame = *Frame();
    frame.actions().ActionOf(Command::kRecord).trigger();
    sound.in->Deliver(std::vector<std::int16_t>(4096, 7));
    const auto isKept = [&] { return frame.sound().recordingProgress()->seconds > 0.0; };
    EXPECT_TRUE(QTest::qWaitFor(isKept));
    EXPECT_TRUE(program.EndSession(false));
    EXPECT_FALSE(frame.sound().isRecording());
    EXPECT_TRUE(boxes.texts.empty());
    // With questions it closes as by the user, who is asked what becomes of the recording.
    frame.activeView()->document().SetModified(false);
    EXPECT_TRUE(program.EndSession(true));
    EXPECT_FALSE(frame.isVisible());
  }
}

}  // namespace
}  // namespace cantorix
