// qt_prompts.cpp - one function per kind of prompt.
#include "desktop/qt_prompts.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include "desktop/dialogs/channel_dialog.h"
#include "desktop/dialogs/generic_dialog.h"
#include "desktop/file_filter.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"

namespace cantorix {
namespace {

constexpr const char* kProgramName = "Cantorix";

Answer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return Answer::kYes;
    case QMessageBox::No:
      return Answer::kNo;
    case QMessageBox::Ok:
      return Answer::kOk;
    default:
      return Answer::kCancel;
  }
}

// A dialog names the filter with its patterns or, when those are hidden, without.
int ChosenIndex(const FileRequest& request, const QString& selected) {
  int index = 1;
  for (const FileFilter& filter : ReadFilters(request.filter)) {
    if (selected == filter.text || selected == QtFilter(filter)) return index;
    ++index;
  }
  return request.filterIndex;
}

}  // namespace

QWidget* QtPrompts::Parent() const {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  return owner_;
}

void QtPrompts::Beep() { QApplication::beep(); }

void QtPrompts::Message(const std::string& text) {
  QMessageBox box(QMessageBox::Warning, kProgramName, Translated(text), QMessageBox::Ok, Parent());
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

Answer QtPrompts::Ask(const std::string& text, Buttons buttons) {
  const auto offered = buttons == Buttons::kOkCancel
                           ? QMessageBox::Ok | QMessageBox::Cancel
                           : QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
  QMessageBox box(QMessageBox::Question, kProgramName, Translated(text), offered, Parent());
  box.setTextFormat(Qt::PlainText);
  return AnswerOf(box.exec());
}

std::optional<FileChoice> QtPrompts::ChooseFileToOpen(const FileRequest& request) {
  QFileDialog dialog(Parent());
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(request.fileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  return Run(dialog, request);
}

// An existing file is never overwritten unasked, whatever the request says.
std::optional<FileChoice> QtPrompts::ChooseFileToSave(const FileRequest& request) {
  QFileDialog dialog(Parent());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(Shown(request.defaultExtension));
  return Run(dialog, request);
}

std::optional<FileChoice> QtPrompts::Run(QFileDialog& dialog, const FileRequest& request) {
  QStringList filters;
  for (const FileFilter& filter : ReadFilters(request.filter)) filters << QtFilter(filter);
  dialog.setOption(QFileDialog::HideNameFilterDetails);  // the texts name the patterns already
  dialog.setWindowTitle(Translated(request.title));
  dialog.setNameFilters(filters);
  if (request.filterIndex >= 1 && request.filterIndex <= filters.size()) {
    dialog.selectNameFilter(filters[request.filterIndex - 1]);
  }
  if (!lastFolder_.isEmpty()) dialog.setDirectory(lastFolder_);
  if (!request.proposedName.empty()) dialog.selectFile(Shown(request.proposedName));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;

  const QString path = dialog.selectedFiles().constFirst();
  lastFolder_ = QFileInfo(path).absolutePath();
  return FileChoice{ChosenPath(path), ChosenIndex(request, dialog.selectedNameFilter())};
}

std::optional<std::string> QtPrompts::ChooseFolder(const std::string& startFolder) {
  const QString folder =
      QFileDialog::getExistingDirectory(Parent(), Tr("Select a folder"), ShownPath(startFolder));
  if (folder.isEmpty()) return std::nullopt;
  return ChosenPath(folder);
}

std::optional<int> QtPrompts::ChooseChannel(const std::string& text, int channelCount) {
  ChannelDialog dialog(Translated(text), channelCount, Parent());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Entered();
}

std::optional<GenericParameters> QtPrompts::AskGenericParameters(const GenericParameters& preset,
                                                                 GenericPreview& preview) {
  GenericDialog dialog(*this, preset, preview, Parent());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Entered();
}

}  // namespace cantorix
