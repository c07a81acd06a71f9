// main_frame.h - the main window: the documents' windows in its middle, menus, tool bar and status
// bar around them, the floating windows over it.
#pragma once

#include <QMainWindow>
#include <memory>
#include <string>
#include <vector>

#include "desktop/command_actions.h"
#include "desktop/desks.h"
#include "desktop/desktop_services.h"
#include "desktop/frame_commands.h"
#include "desktop/frame_host.h"
#include "desktop/journal_timer.h"
#include "desktop/keyboard_panes.h"
#include "desktop/modal_keys.h"
#include "desktop/open_documents.h"
#include "desktop/pointer_status.h"
#include "desktop/sound/sound_timer.h"
#include "desktop/statistics_frame.h"
#include "document/save_commands.h"
#include "mainview/sound_desk.h"

class QMdiArea;

namespace cantorix {

class CDisplayOptionFrame;
class CFrameLog;
class DocumentOutput;
class LabelListFrame;
class PhoneticChart;
class SoundWindows;

// main_frame.cpp holds its windows, main_frame_events.cpp what happens to them.
class CMainFrame : public QMainWindow, private FrameHost, private SoundDeskListener {
 public:
  explicit CMainFrame(DesktopServices services);
  ~CMainFrame() override;

  void NewDocument();
  // Opens a recording in a window of its own, or shows the window it has. False when it could not
  // be opened.
  bool OpenFile(const std::string& path);
  // Shows a recording that was not saved in a new document.
  void OpenRecording(std::unique_ptr<RecordingFile> file);
  // Offers what a program that was killed had not saved: work, the log, recordings.
  void OfferWhatWasLeft();
  // `recording` becomes the document's samples with the first update of the window; may be null.
  CChildFrame& OpenNewWindow(CSonadexDoc& document,
                             std::unique_ptr<RecordingFile> recording = nullptr);
  // Closes all windows of a document. False when the user keeps it open.
  bool CloseDocument(CSonadexDoc& document);

  // The document's window that is in front; null without one.
  CChildFrame* activeFrame() const;
  CSonadexView* activeView() const;
  std::vector<CChildFrame*> Frames() const;
  std::vector<CChildFrame*> FramesOf(const CSonadexDoc& document) const;
  OpenDocuments& documents() { return documents_; }
  JournalTimer& journals() { return journals_; }
  SoundDesk& sound() override { return sound_; }

  // What opens analysis windows and what prints: there before a command of theirs is carried out,
  // and for as long as the frame lives. Null windows are told nothing.
  void SetAnalysisWindows(AnalysisWindows* windows) {
    analysisWindows_ = windows;
    desks_.SetAnalyses(windows);
  }
  void SetOutput(DocumentOutput* output) { output_ = output; }
  AnalysisWindows* analysisWindows() const { return analysisWindows_; }
  DocumentOutput* output() const { return output_; }

  // What is under the pointer, in the status bar; its time in all windows of the view.
  void PointedAt(CSonadexView& view, const std::optional<Pointed>& pointed) override;
  // Commands, floating windows and the list of recent files in step with the state.
  void Refresh();
  // As by its menu: nothing while it is greyed.
  void Perform(Command command) override;
  // The page of the manual about the window in front.
  std::string PageOfWindow() const;
  void ShowLog();
  void ShowLabelList();
  void TogglePhoneticChart();
  // Shows the statistics of the selection; those that are shown already go into the log.
  void ShowStatistics();
  void ShowDisplayOptions();
  void ShowRecordPlayOptions();
  void ToggleToolBar();
  void ToggleStatusBar();

  CommandActions& actions() { return actions_; }
  CDisplayOptionFrame& displayOptions() { return *displayOptions_; }
  LabelListFrame& labelList() { return *labelList_; }
  PhoneticChart& phoneticChart() { return *phoneticChart_; }
  StatisticsFrame& statistics() { return *statistics_; }
  CFrameLog& log() { return *log_; }
  SoundWindows& soundWindows() { return *soundWindows_; }
  Desks& desks() { return desks_; }
  QMdiArea& area() { return *area_; }

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void TakeUpWhatWasLeft();
  void ShowTitle(const CSonadexView* view);
  void ShowModified(const CSonadexView* view);
  void StateChanged() override;
  void LabelsChanged(CSonadexView& view) override;
  void CursorMoved(CSonadexView& view, MousePhase phase, double ms) override;
  bool phoneticChartShown() const override;
  void ShowContextMenu(const std::vector<std::vector<Command>>& groups, const QPoint& at) override;
  void Said(CSonadexView& view, const std::string& text) override;
  LogSink* openLog() override;
  void Run(CSonadexView& view, const std::function<void()>& action) override;
  bool MayClose(CChildFrame& frame) override;
  void Closing(CSonadexView& view) override;
  void Closed(CSonadexDoc& document) override;
  std::vector<std::string> RecentRecordings() const override;
  std::string SampleRecording() const override;
  void OpenOffered(const std::string& path) override;
  void PrepareRecording() override;
  void SoundChanged() override;
  void SoundNote(const std::string& text) override;
  // What sounds has moved on.
  void FollowSound();

  bool IsBusy() const;
  // Asks about unsaved changes, which the document keeps.
  CloseAnswer AskAbout(CSonadexDoc& document);
  // The same of a document that goes alone.
  bool AgreesToClose(CSonadexDoc& document);
  void Number(const CSonadexDoc& document);
  void ListWindows();
  StatisticsFrame::Surroundings StatisticsSources();
  // Closes a document that nobody has put anything into.
  void CloseUntouched(CSonadexDoc& document);

  DesktopServices services_;
  OpenDocuments documents_;
  SoundDesk sound_;
  SoundTimer soundTimer_;
  FrameCommands commands_;
  QMdiArea* area_;
  Desks desks_;
  CommandActions actions_;
  KeyboardPanes keyboardPanes_;
  PointerStatus pointerStatus_;
  CDisplayOptionFrame* displayOptions_;
  LabelListFrame* labelList_;
  PhoneticChart* phoneticChart_;
  StatisticsFrame* statistics_;
  CFrameLog* log_;
  std::unique_ptr<SoundWindows> soundWindows_;
  AnalysisWindows* analysisWindows_ = nullptr;
  DocumentOutput* output_ = nullptr;
  const CSonadexDoc* agreedToClose_ = nullptr;  // the user was asked about it already
  bool isRunning_ = false;                      // the frame is brought up to date at the end of it
  std::vector<QAction*> windowList_;
  std::vector<std::string> shownRecent_;
  JournalTimer journals_;
  ModalKeys modalKeys_;
};

}  // namespace cantorix
