// main_frame_events.cpp - what reaches the main frame: from the documents' windows, from the user's
// window manager, and the floating windows it shows in answer.
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMdiArea>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <filesystem>

#include "analysisview/pointed.h"
#include "app/log_documents.h"
#include "desktop/child_frame.h"
#include "desktop/display_option_frame.h"
#include "desktop/label_list_frame.h"
#include "desktop/log_frame.h"
#include "desktop/main_frame.h"
#include "desktop/main_view_area.h"
#include "desktop/main_view_widget.h"
#include "desktop/paint/words.h"
#include "desktop/phonetic_chart.h"
#include "desktop/qt_progress.h"
#include "desktop/qt_text.h"
#include "desktop/sound/sound_windows.h"

namespace cantorix {
namespace {

void BringForward(QWidget& window) {
  window.show();
  window.raise();
  window.activateWindow();
}

}  // namespace

void CMainFrame::Refresh() {
  CSonadexView* const view = activeView();
  ShowTitle(view);
  actions_.Refresh(view);
  actions_.ActionOf(Command::kToolBar).setChecked(!actions_.toolBar().isHidden());
  actions_.ActionOf(Command::kStatusBar).setChecked(!statusBar()->isHidden());
  const auto& recent = services_.application.recentFiles.paths();
  if (recent != shownRecent_) actions_.ShowRecentFiles(shownRecent_ = recent);
  pointerStatus_.ShowStretch(view == nullptr ? std::string() : StretchText(*view));
  displayOptions_->Follow(view);
  labelList_->Follow(view);
  statistics_->Follow(view);
  soundWindows_->Refresh();
  log_->Refresh();
  if (analysisWindows_ != nullptr) analysisWindows_->RefreshCommands();
}

// The window in front, in the words that a maximised one puts there itself.
void CMainFrame::ShowTitle(const CSonadexView* view) {
  QString title = QStringLiteral("Cantorix");
  if (const QMdiSubWindow* const front = area_->currentSubWindow()) {
    title += QStringLiteral(" - [") + front->windowTitle() + QStringLiteral("]");
    if (!title.contains(QStringLiteral("[*]"))) title += QStringLiteral("[*]");
  }
  setWindowTitle(title);
  ShowModified(view);
}

void CMainFrame::ShowModified(const CSonadexView* view) {
  const bool isModified = view != nullptr && view->document().isModified();
  if (isWindowModified() != isModified) setWindowModified(isModified);
}

void CMainFrame::ShowLog() {
  log_->ShowNewLog();
  Refresh();
}

void CMainFrame::ShowStatistics() {
  if (statistics_->isVisible()) {
    statistics_->Measure();
    statistics_->EnterIntoLog();
  }
  BringForward(*statistics_);
}

StatisticsFrame::Surroundings CMainFrame::StatisticsSources() {
  return {[this](const CSonadexView& view) {
            return analysisWindows_ == nullptr ? nullptr : analysisWindows_->SpectrogramOf(view);
          },
          [this](CSonadexDoc& document) -> DocumentWaveform& {
            return documents_.WaveformOf(document);
          }};
}

void CMainFrame::ShowLabelList() { BringForward(*labelList_); }

void CMainFrame::TogglePhoneticChart() { phoneticChart_->Toggle(); }

bool CMainFrame::phoneticChartShown() const { return phoneticChart_->isVisible(); }

void CMainFrame::ShowDisplayOptions() { BringForward(*displayOptions_); }

void CMainFrame::ShowRecordPlayOptions() { soundWindows_->ShowRecordPlay(); }

void CMainFrame::ToggleToolBar() { actions_.toolBar().setVisible(actions_.toolBar().isHidden()); }

void CMainFrame::ToggleStatusBar() { statusBar()->setVisible(statusBar()->isHidden()); }

// The windows at the end of the Window menu, that in front with a tick, each analysis below its
// recording.
void CMainFrame::ListWindows() {
  for (QAction* const action : windowList_) action->deleteLater();
  windowList_.clear();
  QMenu& menu = actions_.MenuOf(Menu::kWindow);
  windowList_.push_back(menu.addSeparator());
  int number = 0;
  for (QMdiSubWindow* const window : desks_.Windows()) {
    const QString title = window->windowTitle().remove(QStringLiteral("[*]")).replace('&', "&&");
    const bool isAnalysis = dynamic_cast<CChildFrame*>(window) == nullptr;
    const QString entry =
        isAnalysis ? "  " + title : QStringLiteral("&%1 %2").arg(++number).arg(title);
    auto* const action = menu.addAction(entry);
    action->setCheckable(true);
    action->setChecked(window == area_->currentSubWindow());
    connect(action, &QAction::triggered, window,
            [this, window] { area_->setActiveSubWindow(window); });
    windowList_.push_back(action);
  }
}

// A window that closes takes the mark of this one along, as if it were its own. What had the keys
// may have gone behind a question; Qt would give them to the first window of all.
void CMainFrame::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ModifiedChange) ShowModified(activeView());
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  const QMdiSubWindow* const front = area_->currentSubWindow();
  if (front == nullptr || (focusWidget() != nullptr && focusWidget()->isVisible())) return;
  front->widget()->setFocus();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
  // Nothing is given up before every answer is in.
  std::vector<CSonadexDoc*> givenUp;
  for (CSonadexDoc* const document : documents_.All()) {
    const CloseAnswer answer = AskAbout(*document);
    if (answer == CloseAnswer::kStays) return event->ignore();
    if (answer == CloseAnswer::kGivesUp) givenUp.push_back(document);
  }
  if (!MayDropLog(services_.application)) return event->ignore();
  for (CSonadexDoc* const document : givenUp) document->SetModified(false);
  services_.application.log.reset();
  for (CSonadexDoc* const document : documents_.All()) {
    agreedToClose_ = document;
    for (CChildFrame* const frame : FramesOf(*document)) frame->close();
  }
  agreedToClose_ = nullptr;
  event->accept();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile()) return event->acceptProposedAction();
  }
}

void CMainFrame::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile()) OpenFile(ChosenPath(url.toLocalFile()));
  }
}

std::vector<std::string> CMainFrame::RecentRecordings() const {
  return services_.application.recentFiles.paths();
}

std::string CMainFrame::SampleRecording() const {
  const std::string path = InstalledDirectory() + "/samples/vowels.qrv";
  std::error_code failure;
  return std::filesystem::exists(path, failure) ? path : std::string();
}

// Later: the window that offers it may go then.
void CMainFrame::OpenOffered(const std::string& path) {
  QTimer::singleShot(0, this, [this, path] { OpenFile(path); });
}

void CMainFrame::StateChanged() {
  if (!isRunning_) Refresh();
}

void CMainFrame::LabelsChanged(CSonadexView& view) {
  if (&view == activeView()) labelList_->Refresh();
}

void CMainFrame::CursorMoved(CSonadexView& view, MousePhase phase, double ms) {
  if (analysisWindows_ != nullptr) analysisWindows_->CursorMoved(view, phase, ms);
}

void CMainFrame::PointedAt(CSonadexView& view, const std::optional<Pointed>& pointed) {
  pointerStatus_.ShowPointed(pointed ? pointed->text : std::string());
  const auto ms = pointed ? pointed->ms : std::nullopt;
  for (CChildFrame* const frame : Frames()) {
    if (frame->view() != &view) continue;
    frame->area().picture().ShowPointed(ms);
    frame->area().picture().SayPointed(pointed ? Translated(pointed->text) : QString());
  }
  if (analysisWindows_ != nullptr) analysisWindows_->ShowPointed(view, pointed);
}

void CMainFrame::Said(CSonadexView& view, const std::string& text) {
  pointerStatus_.ShowPointed(text);
  for (CChildFrame* const frame : Frames()) {
    if (frame->view() == &view) frame->area().picture().setAccessibleDescription(Translated(text));
  }
}

void CMainFrame::Perform(Command command) { actions_.ActionOf(command).trigger(); }

void CMainFrame::ShowContextMenu(const std::vector<std::vector<Command>>& groups,
                                 const QPoint& at) {
  if (services_.progress.running() || groups.empty()) return;
  Refresh();
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const auto& group : groups) {
    if (!menu->isEmpty()) menu->addSeparator();
    for (const Command command : group) menu->addAction(&actions_.ActionOf(command));
  }
  menu->popup(at);
}

LogSink* CMainFrame::openLog() {
  auto& log = services_.application.log;
  return log ? &*log : nullptr;
}

void CMainFrame::Run(CSonadexView& view, const std::function<void()>& action) {
  if (services_.progress.running()) return;
  {
    const QScopedValueRollback running(isRunning_, true);
    Guarded(view, action);
  }
  StateChanged();
}

void CMainFrame::SoundChanged() {
  soundTimer_.Follow();
  soundWindows_->SoundChanged();
  for (CChildFrame* const each : Frames()) each->SoundChanged();
  StateChanged();
}

void CMainFrame::PrepareRecording() { soundWindows_->UseChosenInput(); }

void CMainFrame::SoundNote(const std::string& text) { soundWindows_->Note(text); }

void CMainFrame::FollowSound() { soundWindows_->Tick(); }

// What runs, or waits for an answer, may hold the very view or document that would go.
bool CMainFrame::IsBusy() const {
  return services_.progress.running() || QApplication::activeModalWidget() != nullptr;
}

CloseAnswer CMainFrame::AskAbout(CSonadexDoc& document) {
  const auto frames = FramesOf(document);
  if (IsBusy()) return CloseAnswer::kStays;
  if (frames.empty()) return CloseAnswer::kCloses;
  sound_.EndRecording(document);
  for (CChildFrame* const frame : frames) KeepsTyping(*frame->view());
  CloseAnswer answer = CloseAnswer::kStays;
  Guarded(*frames.front()->view(), [&] { answer = AskToClose(document); });
  return answer;
}

bool CMainFrame::AgreesToClose(CSonadexDoc& document) {
  const CloseAnswer answer = AskAbout(document);
  if (answer == CloseAnswer::kGivesUp) document.SetModified(false);
  return answer != CloseAnswer::kStays;
}

bool CMainFrame::MayClose(CChildFrame& frame) {
  CSonadexDoc& document = frame.view()->document();
  if (agreedToClose_ == &document) return true;
  if (FramesOf(document).size() > 1) {
    if (IsBusy()) return false;
    sound_.EndRecording(document);
    return true;
  }
  return AgreesToClose(document);
}

void CMainFrame::Closing(CSonadexView& view) {
  sound_.Leave(view);
  for (CChildFrame* const frame : Frames()) {
    if (frame->view() == &view) desks_.Leave(*frame);
  }
  if (analysisWindows_ != nullptr) analysisWindows_->CloseWindowsOf(view);
  // The last one, as what went before has brought everything up to date once more.
  if (statistics_->view() == &view) statistics_->Follow(nullptr);
}

void CMainFrame::Closed(CSonadexDoc& document) {
  if (FramesOf(document).empty()) {
    documents_.Close(document);
  } else {
    Number(document);
  }
  Refresh();
}

void CMainFrame::CloseUntouched(CSonadexDoc& document) {
  if (document.loaded || document.isModified() || !document.pathName().empty()) return;
  if (sound_.StateOf(document).recordingHere || FramesOf(document).size() != 1) return;
  CloseDocument(document);
}

void CMainFrame::Number(const CSonadexDoc& document) {
  const auto frames = FramesOf(document);
  int number = 0;
  for (CChildFrame* const frame : frames) frame->SetNumber(frames.size() > 1 ? ++number : 0);
}

}  // namespace cantorix
