// document_output.h - where the frame sends what is printed or saved as a picture.
#pragma once

#include "mainview/commands.h"

class QWidget;

namespace cantorix {

// Whether a command prints or saves a picture of a view or of the frame. Without an output those
// stay disabled.
constexpr bool IsOutput(Command command) {
  switch (command) {
    case Command::kSaveAsBmp:
    case Command::kSaveScreenAsBmp:
    case Command::kPrint:
    case Command::kPrintScreen:
    case Command::kPrintPreview:
    case Command::kPrintSetup:
      return true;
    default:
      return false;
  }
}

class DocumentOutput {
 public:
  virtual ~DocumentOutput() = default;

  // Carries out a command of output. `view` may be null for a command that needs no document;
  // `window` is the main frame.
  virtual void Perform(Command command, CSonadexView* view, QWidget& window) = 0;
};

}  // namespace cantorix
