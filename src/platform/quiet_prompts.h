// quiet_prompts.h - prompts when nobody sits in front of them: messages go unheard, questions are
// declined, dialogs are cancelled, and of several channels the first one is read.
#pragma once

#include "platform/prompts.h"

namespace cantorix {

class QuietPrompts : public Prompts {
 public:
  void Beep() override {}
  void Message(const std::string&) override {}
  Answer Ask(const std::string& text, Buttons) override {
    Message(text);
    return Answer::kCancel;
  }
  std::optional<FileChoice> ChooseFileToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<std::string> ChooseFolder(const std::string&) override { return {}; }
  std::optional<int> ChooseChannel(const std::string&, int) override { return 0; }
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters&,
                                                        GenericPreview&) override {
    return {};
  }
};

}  // namespace cantorix
