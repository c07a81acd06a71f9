// desktop_fixture.h - a main frame with scripted prompts and dialogs, in a program folder of its
// own, and helpers that use it as a user would.
#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>
#include <string>

#include "app/application.h"
#include "desktop/analysis_windows.h"
#include "desktop/child_frame.h"
#include "desktop/document_output.h"
#include "desktop/main_frame.h"
#include "desktop/main_view_area.h"
#include "desktop/main_view_widget.h"
#include "desktop/qt_progress.h"
#include "desktop/qt_text.h"
#include "mainview/view_commands.h"
#include "support/fake_services.h"
#include "support/samples.h"
#include "support/scripted_prompts.h"
#include "support/scripted_sound.h"
#include "support/temporary_folder.h"
#include "support/view_fakes.h"

namespace cantorix {

inline std::string SamplePath() { return SamplesDirectory() + "/vowels.qrv"; }

// Notes what it is asked to analyse.
class RecordingWindows : public AnalysisWindows {
 public:
  void Open(CSonadexView&, const AnalysisRequest& request) override { opened.push_back(request); }
  void CursorMoved(CSonadexView&, MousePhase phase, double) override { moves.push_back(phase); }
  void ShowPlayed(const CSonadexDoc&, std::optional<double>) override {}
  const CSpectrogramView* SpectrogramOf(const CSonadexView&) const override { return nullptr; }
  void ShowPointed(const CSonadexView&, const std::optional<Pointed>&) override {}
  void RefreshCommands() override { ++refreshes; }
  void CloseWindowsOf(CSonadexView&) override { ++closed; }
  std::vector<AnalysisWindowOf> WindowsOf(const CSonadexView&) const override { return {}; }
  CSonadexView* ViewOf(const QMdiSubWindow&) const override { return nullptr; }

  std::vector<AnalysisRequest> opened;
  std::vector<MousePhase> moves;
  int closed = 0;
  int refreshes = 0;  // the frame asks for one with each of its own
};

// Notes what it is asked to save and print.
class RecordingOutput : public DocumentOutput {
 public:
  void SavePicture(CSonadexView&) override { done.emplace_back("save picture"); }
  void SaveScreen(CSonadexView&, QWidget&) override { done.emplace_back("save screen"); }
  void SaveGroup(CSonadexView&, const std::vector<AnalysisWindowOf>&) override {
    done.emplace_back("save group");
  }
  void Print(CSonadexView&, QWidget&) override { done.emplace_back("print"); }
  void PrintScreen(CSonadexView&, QWidget&) override { done.emplace_back("print screen"); }
  void Preview(CSonadexView&, QWidget&) override { done.emplace_back("preview"); }
  void SetUp(QWidget&) override { done.emplace_back("set up"); }

  std::vector<std::string> done;
};

class DesktopTest : public testing::Test {
 protected:
  DesktopTest() {
    app.host.programDirectory = folder.path();
    app.host.documentsWriteConfiguration = false;
    app.temporaryDirectory = folder.path() + "/";
    frame.SetAnalysisWindows(&analyses);
    frame.SetOutput(&outputs);
    frame.resize(1000, 700);
    frame.show();
    // Keys go to the active window, which it becomes only after a while on a busy machine.
    frame.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&frame));
  }
  ~DesktopTest() override { progress.SetOwner(nullptr); }

  // The sample recording in a window that has been laid out.
  CSonadexView& OpenSample() { return Open(SamplePath()); }
  CSonadexView& Open(const std::string& path) {
    EXPECT_TRUE(frame.OpenFile(path));
    QApplication::processEvents();
    return *frame.activeView();
  }
  MainViewWidget& Picture() { return frame.activeFrame()->area().picture(); }
  void Perform(Command command) {
    frame.actions().ActionOf(command).trigger();
    QApplication::processEvents();
  }
  void Select(CSonadexView& view, double startMs, double endMs) {
    SelectSpan(view, startMs, endMs);
    frame.Refresh();
  }
  void Mark(CSonadexView& view, double ms) {
    PlaceMarker(view, ms);
    frame.Refresh();
  }
  bool Enabled(Command command) { return frame.actions().ActionOf(command).isEnabled(); }

  TemporaryFolder folder;
  FakeProfileStore profile;
  ScriptedPrompts prompts;
  QtProgress progress;
  FakeMemoryProbe memory;
  Application app{{profile, prompts, progress, memory}};
  Clipboard clipboard;
  QtTextMeasurer textMeasurer;
  ScriptedDialogs dialogs;
  FakeOpener opener;
  RecordingWindows analyses;
  RecordingOutput outputs;
  ScriptedSound sound;
  FakeClock clock;
  CMainFrame frame{
      {app, progress, dialogs, textMeasurer, opener, clipboard, {sound, clock, memory}}};
};

}  // namespace cantorix
