// main_frame.cpp - the frame's windows and how they follow each other.
#include "desktop/main_frame.h"

#include <QApplication>
#include <QMdiArea>
#include <QStatusBar>
#include <new>

#include "app/manual.h"
#include "app/recovery.h"
#include "app/unsaved_recordings.h"
#include "desktop/accessible_picture.h"
#include "desktop/child_frame.h"
#include "desktop/display_option_frame.h"
#include "desktop/label_list_frame.h"
#include "desktop/log_frame.h"
#include "desktop/main_view_area.h"
#include "desktop/main_view_widget.h"
#include "desktop/phonetic_chart.h"
#include "desktop/qt_progress.h"
#include "desktop/sound/record_play_frame.h"
#include "desktop/sound/sound_windows.h"
#include "desktop/tool_icon.h"
#include "mainview/commands.h"
#include "platform/claimed_file.h"
#include "platform/host_services.h"

namespace cantorix {
namespace {

RecordingPlace PlaceOfRecordings(const Application& application) {
  const std::string& folder = application.temporaryDirectory;
  return {folder.substr(0, folder.find_last_not_of('/') + 1), LocalTimeStamp()};
}

}  // namespace

CMainFrame::CMainFrame(DesktopServices services)
    : services_(services),
      documents_(services.application),
      sound_({services.sound, services.application.prompts(),
              [this] { return PlaceOfRecordings(services_.application); }},
             *this),
      soundTimer_(sound_, services.progress, [this] { FollowSound(); }),
      commands_(*this, services_),
      area_(new QMdiArea(this)),
      desks_(*area_),
      actions_(*this, {[this](Command command) { commands_.Perform(command); },
                       [this](const std::string& path) { OpenFile(path); }}),
      keyboardPanes_(*statusBar()),
      pointerStatus_(*statusBar()),
      displayOptions_(new CDisplayOptionFrame(this, *this)),
      labelList_(new LabelListFrame(this, *this, services_.application.host.application.labelList)),
      phoneticChart_(new PhoneticChart(this,
                                       [this](const std::string& sign) {
                                         CChildFrame* const frame = activeFrame();
                                         if (frame != nullptr)
                                           frame->area().picture().TakeSign(sign);
                                       })),
      statistics_(new StatisticsFrame(this, *this, StatisticsSources())),
      log_(new CFrameLog(this, services_.application, [this] { Refresh(); })),
      soundWindows_(new SoundWindows(*this, *this, services_)),
      journals_(services_.application, documents_, services_.sound.clock, services_.progress) {
  MakePicturesAccessible();
  setWindowTitle(QStringLiteral("Cantorix"));
  setWindowIcon(DrawnIcon(QStringLiteral("program")));
  setCentralWidget(area_);
  setAcceptDrops(true);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  connect(area_, &QMdiArea::subWindowActivated, this, [this] { Refresh(); });
  // The area raises the window itself when everybody has been told.
  connect(
      area_, &QMdiArea::subWindowActivated, this,
      [this] { desks_.Raise(area_->currentSubWindow()); }, Qt::QueuedConnection);
  connect(&actions_.MenuOf(Menu::kWindow), &QMenu::aboutToShow, this, [this] { ListWindows(); });
  connect(&actions_.toolBar(), &QToolBar::visibilityChanged, this, [this] { Refresh(); });
  actions_.ActionOf(Command::kToolBar).setCheckable(true);
  actions_.ActionOf(Command::kStatusBar).setCheckable(true);
  resize(1100, 760);
  Refresh();
}

CMainFrame::~CMainFrame() {
  disconnect(area_, nullptr, this, nullptr);
  disconnect(&actions_.toolBar(), nullptr, this, nullptr);
  soundWindows_->Leave();
  displayOptions_->Follow(nullptr);
  labelList_->Follow(nullptr);
  statistics_->Follow(nullptr);
  // The views go before the documents that they look at.
  for (CChildFrame* const frame : Frames()) delete frame;
}

void CMainFrame::NewDocument() { OpenNewWindow(documents_.New()); }

bool CMainFrame::OpenFile(const std::string& path) {
  if (services_.progress.running()) return false;
  const auto before = documents_.All();
  CSonadexDoc* const document = documents_.Open(path);
  Refresh();
  if (document == nullptr) return false;
  const auto frames = FramesOf(*document);
  if (frames.empty()) {
    OpenNewWindow(*document);
  } else {
    area_->setActiveSubWindow(frames.front());
  }
  for (CSonadexDoc* const other : before) CloseUntouched(*other);
  return true;
}

void CMainFrame::OpenRecording(std::unique_ptr<RecordingFile> file) {
  OpenNewWindow(documents_.New(), std::move(file));
}

void CMainFrame::OfferWhatWasLeft() {
  try {
    TakeUpWhatWasLeft();
  } catch (const std::bad_alloc&) {
    SayOutOfMemory(services_.application.prompts());
  }
}

void CMainFrame::TakeUpWhatWasLeft() {
  Application& application = services_.application;
  OfferedWork offered = OfferLeftWork(application);
  const auto before = documents_.All();
  for (LeftWork& left : offered.wanted) {
    CSonadexDoc* const document = documents_.Restore(std::move(left));
    if (document == nullptr) continue;
    OpenNewWindow(*document);
    for (CSonadexDoc* const other : before) CloseUntouched(*other);
  }
  if (const auto journal = OfferLeftLog(application)) {
    ShowLog();
    if (journals_.WriteLog()) DeleteClaimed(*journal);
  }
  for (auto& recording : OfferUnsavedRecordings(application, offered.recordingsForLater)) {
    OpenRecording(std::move(recording));
  }
}

CChildFrame& CMainFrame::OpenNewWindow(CSonadexDoc& document,
                                       std::unique_ptr<RecordingFile> recording) {
  auto* const frame = new CChildFrame(document, documents_.WaveformOf(document), services_, *this);
  frame->TakeUp(std::move(recording));
  area_->addSubWindow(frame);
  desks_.Enter(*frame, services_.application.host.application.mainView);
  frame->show();
  Number(document);
  // The window has its size only after its layout ran.
  QMetaObject::invokeMethod(
      frame, [frame] { frame->Begin(); }, Qt::QueuedConnection);
  return *frame;
}

bool CMainFrame::CloseDocument(CSonadexDoc& document) {
  const auto frames = FramesOf(document);
  if (frames.empty() || !AgreesToClose(document)) return false;
  agreedToClose_ = &document;
  for (CChildFrame* const frame : frames) frame->close();
  agreedToClose_ = nullptr;
  return true;
}

CChildFrame* CMainFrame::activeFrame() const {
  const QMdiSubWindow* const current = area_->currentSubWindow();
  const CSonadexView* const analysed = current != nullptr && analysisWindows_ != nullptr
                                           ? analysisWindows_->ViewOf(*current)
                                           : nullptr;
  // An analysis window in front leaves the commands to its own main view, another kind of window
  // to the one used last.
  const auto windows = area_->subWindowList(QMdiArea::ActivationHistoryOrder);
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
    auto* const frame = dynamic_cast<CChildFrame*>(*window);
    if (frame == nullptr || frame->view() == nullptr) continue;
    if (analysed == nullptr || frame->view() == analysed) return frame;
  }
  return nullptr;
}

CSonadexView* CMainFrame::activeView() const {
  CChildFrame* const frame = activeFrame();
  return frame == nullptr ? nullptr : frame->view();
}

std::string CMainFrame::PageOfWindow() const {
  const QWidget* active = QApplication::activeWindow();
  for (const QWidget* part = QApplication::focusWidget(); part != nullptr;
       part = part->parentWidget()) {
    if (dynamic_cast<const ToolFrame*>(part) != nullptr) active = part;  // docked or not
  }
  if (active == labelList_) return "labellist.html";
  if (active == log_) return "log.html";
  if (active == statistics_) return "statistics.html";
  if (active == displayOptions_) return "options.html";
  if (active == &soundWindows_->recordPlay()) return "recordplay.html";
  const CSonadexView* const view = activeView();
  if (view == nullptr) return kManualIndex;
  if (analysisWindows_ == nullptr) return "mainview.html";
  for (const AnalysisWindowOf& window : analysisWindows_->WindowsOf(*view)) {
    if (window.window != area_->currentSubWindow()) continue;
    if (window.kind == WindowKind::kPitch) return "pitchwindow.html";
    return window.kind == WindowKind::kFftLpc ? "spectrum.html" : "spectrogram.html";
  }
  return "mainview.html";
}

std::vector<CChildFrame*> CMainFrame::Frames() const {
  std::vector<CChildFrame*> frames;
  for (QMdiSubWindow* const window : area_->subWindowList()) {
    auto* const frame = dynamic_cast<CChildFrame*>(window);
    if (frame != nullptr) frames.push_back(frame);
  }
  return frames;
}

std::vector<CChildFrame*> CMainFrame::FramesOf(const CSonadexDoc& document) const {
  std::vector<CChildFrame*> frames;
  for (CChildFrame* const frame : Frames()) {
    if (frame->view() != nullptr && &frame->view()->document() == &document) {
      frames.push_back(frame);
    }
  }
  return frames;
}

}  // namespace cantorix
