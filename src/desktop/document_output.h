// document_output.h - where the frame sends what is printed or saved as a picture. `window` is the
// main frame.
#pragma once

class QWidget;

namespace cantorix {

class CSonadexView;

class DocumentOutput {
 public:
  virtual ~DocumentOutput() = default;

  virtual void SavePicture(CSonadexView& view) = 0;
  virtual void SaveScreen(CSonadexView& view, QWidget& window) = 0;
  virtual void Print(CSonadexView& view, QWidget& window) = 0;
  virtual void PrintScreen(CSonadexView& view, QWidget& window) = 0;
  virtual void Preview(CSonadexView& view, QWidget& window) = 0;
  virtual void SetUp(QWidget& window) = 0;
};

}  // namespace cantorix
