// prompts.h - everything the system says to the user and asks of the user, as one interface.
// The desktop shows boxes and dialogs, the batch program answers from its options, the tests
// script the answers and fail on a prompt they did not expect.
#pragma once

#include <optional>
#include <string>

#include "platform/generic_parameters.h"

namespace cantorix {

enum class Buttons { kOkCancel, kYesNoCancel };
enum class Answer { kOk, kCancel, kYes, kNo };

struct FileRequest {
  std::string title;
  std::string proposedName;      // without a folder; empty for none
  std::string defaultExtension;  // without the point; empty for none
  std::string filter;            // "text|pattern|text|pattern|", as the dialogs quote it
  int filterIndex = 1;           // selected filter entry, counted from 1
  bool hideReadOnly = false;
  bool overwritePrompt = false;
  bool fileMustExist = false;
};

struct FileChoice {
  std::string path;
  int filterIndex = 1;  // counted from 1
};

class Prompts {
 public:
  virtual ~Prompts() = default;

  virtual void Beep() = 0;
  // A box with one OK button.
  virtual void Message(const std::string& text) = 0;
  virtual Answer Ask(const std::string& text, Buttons buttons) = 0;

  // Each returns nothing when the user cancels.
  virtual std::optional<FileChoice> ChooseFileToOpen(const FileRequest& request) = 0;
  virtual std::optional<FileChoice> ChooseFileToSave(const FileRequest& request) = 0;
  virtual std::optional<std::string> ChooseFolder(const std::string& startFolder) = 0;
  // "Select channels" over a recording of `channelCount` >= 2 channels; counted from 0.
  virtual std::optional<int> ChooseChannel(const std::string& text, int channelCount) = 0;
  // The "Generic File Selection" dialog, which shows what `preview` says of the values entered.
  virtual std::optional<GenericParameters> AskGenericParameters(const GenericParameters& preset,
                                                                GenericPreview& preview) = 0;
};

}  // namespace cantorix
