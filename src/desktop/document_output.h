// document_output.h - where the frame sends what is printed or saved as a picture. `window` is the
// main frame.
#pragma once

#include <vector>

#include "desktop/analysis_windows.h"

class QWidget;

namespace cantorix {

class CSonadexView;

class DocumentOutput {
 public:
  virtual ~DocumentOutput() = default;

  virtual void SavePicture(CSonadexView& view) = 0;
  virtual void SaveScreen(CSonadexView& view, QWidget& window) = 0;
  // The view and those of its windows that are over time and in sight, under each other.
  virtual void SaveGroup(CSonadexView& view, const std::vector<AnalysisWindowOf>& windows) = 0;
  virtual void Print(CSonadexView& view, QWidget& window) = 0;
  virtual void PrintScreen(CSonadexView& view, QWidget& window) = 0;
  virtual void Preview(CSonadexView& view, QWidget& window) = 0;
  virtual void SetUp(QWidget& window) = 0;
};

}  // namespace cantorix
