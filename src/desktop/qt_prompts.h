// qt_prompts.h - messages, questions, and the dialogs for files, folders and channels as windows.
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/prompts.h"

class QFileDialog;

namespace cantorix {

class QtPrompts : public Prompts {
 public:
  // The window that boxes stand over while no dialog is open; they stand free until it is set.
  void SetOwner(QWidget* owner) { owner_ = owner; }
  // Where the next box belongs: the dialog that is open, else the owner. May be null.
  QWidget* Parent() const;

  void Beep() override;
  void Message(const std::string& text) override;
  Answer Ask(const std::string& text, Buttons buttons) override;
  std::optional<FileChoice> ChooseFileToOpen(const FileRequest& request) override;
  std::optional<FileChoice> ChooseFileToSave(const FileRequest& request) override;
  std::optional<std::string> ChooseFolder(const std::string& startFolder) override;
  std::optional<int> ChooseChannel(const std::string& text, int channelCount) override;
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters& preset,
                                                        GenericPreview& preview) override;

 private:
  std::optional<FileChoice> Run(QFileDialog& dialog, const FileRequest& request);

  QPointer<QWidget> owner_;
  QString lastFolder_;
};

}  // namespace cantorix
