// document_output.h - where the frame sends what is printed or saved as a picture.
#pragma once

#include "mainview/commands.h"

class QWidget;

namespace cantorix {

class DocumentOutput {
 public:
  virtual ~DocumentOutput() = default;

  // Whether it carries out a command (printing, bitmaps); those it does not stay disabled.
  virtual bool Offers(Command command) const = 0;
  // `view` may be null for a command that needs no document; `window` is the main frame.
  virtual void Perform(Command command, CSonadexView* view, QWidget& window) = 0;
};

}  // namespace cantorix
