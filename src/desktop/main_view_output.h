// main_view_output.h - the working view and the whole main frame as files and on paper.
#pragma once

#include <QPrinter>
#include <functional>
#include <memory>

#include "desktop/document_output.h"

namespace cantorix {

class CSonadexDoc;
class DocumentWaveform;
class Prompts;

// Files and paper take the view in the size of prints of the display settings, laid out for that
// size, in the light palette. The main frame leaves as it is on the screen. Says so when a file
// could not be written; throws FileError when a print fails or samples cannot be read.
class MainViewOutput : public DocumentOutput {
 public:
  // The waveform that the windows of an open document share.
  using WaveformOf = std::function<DocumentWaveform&(CSonadexDoc&)>;

  MainViewOutput(Prompts& prompts, WaveformOf waveformOf);

  void SavePicture(CSonadexView& view) override;
  void SaveScreen(CSonadexView& view, QWidget& window) override;
  void SaveGroup(CSonadexView& view, const std::vector<AnalysisWindowOf>& windows) override;
  void Print(CSonadexView& view, QWidget& window) override;
  void PrintScreen(CSonadexView& view, QWidget& window) override;
  void Preview(CSonadexView& view, QWidget& window) override;
  void SetUp(QWidget& window) override;

  // The printer with its paper as they were last set up, for all that is printed. Made when it is
  // first asked for, because looking for printers takes its time.
  QPrinter& printer();

 private:
  // Asks for the printer, then prints `page`.
  void PrintPage(CSonadexView& view, QWidget& window, const std::function<void()>& page);
  void PrintView(CSonadexView& view);

  Prompts& prompts_;
  WaveformOf waveformOf_;
  std::unique_ptr<QPrinter> printer_;
};

}  // namespace cantorix
