// prompts_test.cpp - boxes and file dialogs, answered as soon as they stand.
#include "desktop/qt_prompts.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "app/file_open.h"
#include "desktop/qt_text.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

// Runs `action` on the dialog that is open next.
template <typename Dialog>
void WhenOpen(std::function<void(Dialog&)> action) {
  QTimer::singleShot(0, qApp, [action] {
    auto* const dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    action(*dialog);
  });
}

class PromptsTest : public testing::Test {
 protected:
  QtPrompts prompts;
};

TEST_F(PromptsTest, TheButtonPressedIsTheAnswer) {
  struct Row {
    Buttons buttons;
    QMessageBox::StandardButton pressed;
    Answer answer;
  };
  for (const Row& row : {Row{Buttons::kYesNoCancel, QMessageBox::Yes, Answer::kYes},
                         Row{Buttons::kYesNoCancel, QMessageBox::No, Answer::kNo},
                         Row{Buttons::kYesNoCancel, QMessageBox::Cancel, Answer::kCancel},
                         Row{Buttons::kOkCancel, QMessageBox::Ok, Answer::kOk},
                         Row{Buttons::kOkCancel, QMessageBox::Cancel, Answer::kCancel},
                         Row{Buttons::kYesNoCancel, QMessageBox::NoButton, Answer::kCancel}}) {
    WhenOpen<QMessageBox>([&](QMessageBox& box) {
      EXPECT_EQ(box.text(), "Save <b>this</b> ?");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      if (row.pressed == QMessageBox::NoButton) return box.reject();  // Escape
      box.button(row.pressed)->click();
    });
    EXPECT_EQ(prompts.Ask("Save <b>this</b> ?", row.buttons), row.answer);
  }
}

TEST_F(PromptsTest, TheOpenDialogGivesPathAndFilter) {
  const TemporaryFolder folder;
  WriteBytes(folder / "NoPoint", std::vector<std::byte>(1));
  FileRequest request;
  request.title = "Open";
  request.filter = OpenFilter();
  request.filterIndex = 4;
  request.fileMustExist = true;
  WhenOpen<QFileDialog>([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QComboBox*>("fileTypeCombo")->currentText(), "Wave files (*.wav)");
    dialog.setDirectory(ShownPath(folder.path()));
    dialog.selectNameFilter(dialog.nameFilters().constLast());
    dialog.selectFile("NoPoint");
    static_cast<QDialog&>(dialog).done(QDialog::Accepted);
  });
  const auto choice = prompts.ChooseFileToOpen(request);
  ASSERT_TRUE(choice.has_value());
  EXPECT_EQ(choice->path, folder / "NoPoint");
  EXPECT_EQ(choice->filterIndex, 20);
}

TEST_F(PromptsTest, AFolderIsChosen) {
  const TemporaryFolder folder;
  for (const bool chosen : {true, false}) {
    WhenOpen<QFileDialog>([chosen](QFileDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Select a folder");
      static_cast<QDialog&>(dialog).done(chosen ? QDialog::Accepted : QDialog::Rejected);
    });
    EXPECT_EQ(prompts.ChooseFolder(folder.path()).value_or("none"),
              chosen ? folder.path() : "none");
  }
}

TEST_F(PromptsTest, TheSaveDialogProposesANameAndAlwaysAsksBeforeOverwriting) {
  FileRequest request;
  request.title = "Save a Copy As";
  request.proposedName = "Copy of talk_qrv";
  request.defaultExtension = "pmf";
  request.filter = "Cantorix files (*.qrv)|*.qrv|";
  request.fileMustExist = true;
  WhenOpen<QFileDialog>([](QFileDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save a Copy As");
    EXPECT_EQ(dialog.defaultSuffix(), "pmf");
    EXPECT_EQ(dialog.fileMode(), QFileDialog::AnyFile);
    EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
    EXPECT_TRUE(dialog.selectedFiles().constFirst().contains("Copy of talk_qrv"));
    dialog.reject();
  });
  EXPECT_FALSE(prompts.ChooseFileToSave(request).has_value());
}

TEST_F(PromptsTest, ChannelsCountFromNought) {
  WhenOpen<QDialog>([](QDialog& dialog) {
    auto* const list = dialog.findChild<QComboBox*>();
    ASSERT_EQ(list->count(), 3);
    list->setCurrentIndex(2);
    dialog.accept();
  });
  EXPECT_EQ(prompts.ChooseChannel("Which?", 3), 2);
}

TEST_F(PromptsTest, GenericParametersComeBackAsTheyWent) {
  const GenericParameters preset{512, 20000, 0, 1, 0};
  struct : GenericPreview {
    GenericOutcome Try(const GenericParameters&, int) override { return {}; }
  } preview;
  WhenOpen<QDialog>([](QDialog& dialog) { dialog.accept(); });
  const auto [header, rate, sixteen, highFirst, binary] =
      prompts.AskGenericParameters(preset, preview).value();
  EXPECT_EQ(std::tuple(header, rate, sixteen, highFirst, binary), std::tuple(512, 20000, 0, 1, 0));
  WhenOpen<QDialog>([](QDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(prompts.AskGenericParameters(preset, preview).has_value());
}

TEST_F(PromptsTest, MessagesArePlainWarningsOfTheProgram) {
  WhenOpen<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.windowTitle(), "Cantorix");
    EXPECT_EQ(box.text(), "No <b>disk</b>.");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    box.accept();
  });
  prompts.Message("No <b>disk</b>.");
}

}  // namespace
}  // namespace cantorix
