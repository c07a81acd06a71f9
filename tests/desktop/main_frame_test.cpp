// main_frame_test.cpp - documents and their windows: opened, numbered, closed.
#include <QDropEvent>
#include <QMdiArea>
#include <QMimeData>
#include <QUrl>
#include <filesystem>

#include "desktop/desktop_fixture.h"
#include "desktop/log_frame.h"
#include "mainview/view_commands.h"

namespace cantorix {
namespace {

using testing::ElementsAre;

class Frame : public DesktopTest {
 protected:
  std::string CopySample(const std::string& name) {
    std::filesystem::copy_file(SamplePath(), folder / name);
    return folder / name;
  }
  std::vector<std::string> Titles() {
    std::vector<std::string> titles;
    for (CChildFrame* const child : frame.Frames()) titles.push_back(Typed(child->windowTitle()));
    return titles;
  }
};

TEST_F(Frame, OpensEachFileOnceAndSaysWhatFails) {
  for (int time = 0; time < 2; ++time) {
    prompts.WillChooseFile(SamplePath());
    Perform(Command::kOpen);
    EXPECT_THAT(Titles(), ElementsAre("vowels.qrv[*]"));
  }
  prompts.TakeTranscript();
  EXPECT_FALSE(frame.OpenFile(folder / "none.wav"));
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("message: " + (folder / "none.wav") +
                                                    " could not be opened. No such file or "
                                                    "directory."));
  // A file of no known type is given up without more.
  WriteBytes(folder / "notes.txt", std::vector<std::byte>(100, std::byte{'x'}));
  prompts.WillAnswer(Answer::kCancel);
  EXPECT_FALSE(frame.OpenFile(folder / "notes.txt"));
  EXPECT_EQ(prompts.TakeTranscript().size(), 1U);
  EXPECT_EQ(frame.Frames().size(), 1U);
}

TEST_F(Frame, DroppedFilesOpen) {
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(ShownPath(CopySample("a b.qrv"))),
                 QUrl::fromLocalFile(ShownPath(CopySample("c.qrv")))});
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&frame, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop({10, 10}, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&frame, &drop);
  QApplication::processEvents();
  EXPECT_THAT(Titles(), ElementsAre("a b.qrv[*]", "c.qrv[*]"));
}

TEST_F(Frame, AFurtherWindowSharesStretchAndSelection) {
  CSonadexView& first = OpenSample();
  Perform(Command::kNewWindow);
  EXPECT_THAT(Titles(), ElementsAre("vowels.qrv:1[*]", "vowels.qrv:2[*]"));
  CSonadexView& second = *frame.activeView();
  ASSERT_NE(&first, &second);
  Perform(Command::kZoomIn);
  SelectSpan(second, 100.0, 300.0);
  EXPECT_TRUE(first.zoomed());
  EXPECT_TRUE(first.selectionShown());
  // The first of two windows closes without a question, also of a modified document.
  second.document().SetModified(true);
  {
    const ProgressScope runs(progress, "something", 1.0);
    EXPECT_FALSE(frame.activeFrame()->close());
  }
  frame.activeFrame()->close();
  EXPECT_THAT(Titles(), testing::Contains("vowels.qrv[*]"));
  first.document().SetModified(false);
}

TEST_F(Frame, AModifiedDocumentAsksBeforeItCloses) {
  CSonadexDoc& document = Open(CopySample("talk.qrv")).document();
  document.SetModified(true);
  EXPECT_TRUE(frame.activeFrame()->isWindowModified());
  const std::string question = "ask yes/no/cancel: Save Changes to ' talk.qrv ' before closing ?";
  prompts.WillAnswer(Answer::kCancel);
  EXPECT_FALSE(frame.activeFrame()->close());
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre(question));
  // A save that fails keeps it open, too.
  std::filesystem::remove(folder / "talk.qrv");
  std::filesystem::create_directory(folder / "talk.qrv");
  prompts.WillAnswer(Answer::kYes);
  EXPECT_FALSE(frame.activeFrame()->close());
  EXPECT_EQ(prompts.TakeTranscript().size(), 2U);

  prompts.WillAnswer(Answer::kNo);
  Perform(Command::kClose);
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre(question));
  EXPECT_TRUE(frame.documents().All().empty());
}

TEST_F(Frame, LeavingGivesNothingUpBeforeEveryAnswerIsIn) {
  CSonadexDoc& first = Open(CopySample("one.qrv")).document();
  CSonadexDoc& second = Open(CopySample("two.qrv")).document();
  Perform(Command::kLogNew);
  app.log->Append({"one.qrv", "Duration", {"1.0"}});
  first.SetModified(true);
  second.SetModified(true);
  for (const auto& answers :
       {std::vector{Answer::kCancel}, std::vector{Answer::kNo, Answer::kCancel},
        std::vector{Answer::kNo, Answer::kNo, Answer::kCancel}}) {
    SCOPED_TRACE(answers.size());
    for (const Answer answer : answers) prompts.WillAnswer(answer);
    EXPECT_FALSE(frame.close());
    EXPECT_EQ(prompts.TakeTranscript().size(), answers.size());
    EXPECT_THAT(Titles(), ElementsAre("one.qrv[*]", "two.qrv[*]"));
    EXPECT_TRUE(first.isModified());
    EXPECT_TRUE(second.isModified());
    ASSERT_TRUE(app.log.has_value());
    EXPECT_TRUE(app.log->isModified());
    EXPECT_TRUE(frame.log().isVisible());
  }
  for (int i = 0; i < 3; ++i) prompts.WillAnswer(Answer::kNo);
  EXPECT_TRUE(frame.close());
  EXPECT_TRUE(frame.documents().All().empty());
  EXPECT_FALSE(app.log.has_value());
  const auto question = [](const char* title) {
    return std::string("ask yes/no/cancel: Save Changes to ' ") + title + " ' before closing ?";
  };
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre(question("one.qrv"), question("two.qrv"), question("Untitled Log")));
}

TEST_F(Frame, TheWindowKeepsItsPlaceForTheNextOne) {
  OpenSample();
  EXPECT_EQ(app.host.application.mainView.width, 0) << "a window that fills the space has none";
  EXPECT_EQ(frame.activeFrame()->size(), frame.area().viewport()->size());
  frame.activeFrame()->setGeometry(30, 20, 640, 420);
  QApplication::processEvents();
  EXPECT_EQ(app.host.application.mainView.x, 30);
  EXPECT_EQ(app.host.application.mainView.height, 420);
  Perform(Command::kNew);
  EXPECT_EQ(frame.activeFrame()->geometry(), QRect(30, 20, 640, 420));
}

TEST_F(Frame, WindowsAreListedAndIconsArranged) {
  Open(CopySample("a&b.qrv"));
  Open(CopySample("c.qrv"));
  QMenu& menu = frame.actions().MenuOf(Menu::kWindow);
  const auto list = [&menu] {
    QMetaObject::invokeMethod(&menu, "aboutToShow");
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return menu.actions().last(2);
  };
  EXPECT_EQ(list()[0]->text(), "&1 a&&b.qrv");
  EXPECT_EQ(list()[1]->text(), "&2 c.qrv");
  EXPECT_TRUE(list()[1]->isChecked());
  list()[0]->trigger();
  EXPECT_EQ(frame.activeView()->document().title(), "a&b.qrv");
  EXPECT_TRUE(list()[0]->isChecked());
  EXPECT_FALSE(list()[1]->isChecked());

  const auto frames = frame.Frames();
  for (CChildFrame* const child : frames) child->showMinimized();
  for (CChildFrame* const child : frames) child->move(50, 50);
  Perform(Command::kArrangeIcons);
  EXPECT_EQ(frames[0]->geometry().bottomLeft(), QPoint(0, frame.area().viewport()->height() - 1));
  EXPECT_EQ(frames[1]->geometry().bottomLeft(), frames[0]->geometry().bottomRight() + QPoint(1, 0));
}

}  // namespace
}  // namespace cantorix
