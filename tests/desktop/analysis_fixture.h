// analysis_fixture.h - a main frame with the analysis windows and the output of the program.
#pragma once

#include <QPrinter>
#include <functional>
#include <stdexcept>
#include <string>

#include "desktop/desktop_fixture.h"
#include "desktop/main_view_output.h"
#include "desktop/windows/analysis_window_set.h"
#include "platform/file_error.h"

namespace cantorix {

class AnalysisDesktopTest : public DesktopTest {
 protected:
  AnalysisDesktopTest() {
    Enter(windows, frame);
    frame.SetAnalysisWindows(&windows);
    frame.SetOutput(&output);
  }
  ~AnalysisDesktopTest() override {
    for (CChildFrame* const child : frame.Frames()) windows.CloseWindowsOf(*child->view());
    frame.SetAnalysisWindows(nullptr);
    frame.SetOutput(nullptr);
  }

  // Makes `around` the frame that the windows of `set` stand in.
  void Enter(AnalysisWindowSet& set, CMainFrame& around) {
    set.Enter({&around.desks(),
               [&around](CSonadexDoc& document) -> DocumentWaveform& {
                 return around.documents().WaveformOf(document);
               },
               [&around] { around.Refresh(); }, [this]() -> QPrinter& { return output.printer(); },
               [&around](CSonadexView& view, const std::optional<Pointed>& pointed) {
                 around.PointedAt(view, pointed);
               },
               [&around](Command command) { around.Perform(command); }});
  }
  AnalysisFrame& Find(const CSonadexView& view, WindowKind kind) {
    AnalysisFrame* const found = windows.Find(view, kind);
    if (found == nullptr) throw std::runtime_error("no such window");
    return *found;
  }
  // The picture that `save` writes under a name of the test's folder, asking for nothing else.
  QImage Saved(const std::function<void()>& save) {
    const std::string path = folder / "picture.png";
    prompts.WillChooseFile(path);
    save();
    EXPECT_EQ(prompts.TakeTranscript().size(), 1U);
    return QImage(ShownPath(path)).convertToFormat(QImage::Format_RGB32);
  }
  QImage SavedFrom(AnalysisFrame& window) {
    return Saved([&] { window.Perform(WindowCommand::kSavePicture); });
  }

  bool unreadable = false;  // the samples for a picture, as of a disk that is gone
  MainViewOutput output{prompts, [this](CSonadexDoc& document) -> DocumentWaveform& {
                          if (unreadable) throw FileError("The disk is gone.");
                          return frame.documents().WaveformOf(document);
                        }};
  DesktopServices services{
      app, progress, dialogs, textMeasurer, opener, clipboard, {sound, clock, memory}};
  AnalysisWindowSet windows{services};
};

}  // namespace cantorix
