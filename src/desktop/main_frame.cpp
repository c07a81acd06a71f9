// main_frame.cpp
#include "desktop/main_frame.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMdiArea>
#include <QMimeData>
#include <QUrl>
#include <new>

#include "desktop/child_frame.h"
#include "desktop/qt_progress.h"
#include "desktop/qt_text.h"
#include "platform/abandon.h"
#include "platform/prompts.h"

namespace cantorix {

CMainFrame::CMainFrame(DesktopServices services)
    : services_(services), documents_(services.application), area_(new QMdiArea(this)) {
  setWindowTitle(QStringLiteral("Cantorix"));
  setCentralWidget(area_);
  setAcceptDrops(true);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  resize(1100, 760);
}

CMainFrame::~CMainFrame() {
  // The views go before the documents that they look at.
  for (CChildFrame* const frame : Frames()) delete frame;
}

void CMainFrame::NewDocument() { OpenNewWindow(documents_.New()); }

bool CMainFrame::OpenFile(const std::string& path) {
  if (services_.progress.running()) return false;
  CSonadexDoc* const document = documents_.Open(path);
  if (document == nullptr) return false;
  const auto frames = FramesOf(*document);
  if (frames.empty()) {
    OpenNewWindow(*document);
  } else {
    area_->setActiveSubWindow(frames.front());
  }
  return true;
}

void CMainFrame::OpenNewWindow(CSonadexDoc& document) {
  auto* const frame = new CChildFrame(document, services_, *this);
  area_->addSubWindow(frame);
  Place(*frame);
  frame->show();
  Number(document);
  // The window has its size only after its layout ran.
  QMetaObject::invokeMethod(
      frame, [frame] { frame->Begin(); }, Qt::QueuedConnection);
}

CChildFrame* CMainFrame::activeFrame() const {
  return dynamic_cast<CChildFrame*>(area_->activeSubWindow());
}

CSonadexView* CMainFrame::activeView() const {
  CChildFrame* const frame = activeFrame();
  return frame == nullptr ? nullptr : frame->view();
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

void CMainFrame::closeEvent(QCloseEvent* event) {
  for (CChildFrame* const frame : Frames()) {
    if (!frame->close()) return event->ignore();
  }
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

void CMainFrame::StateChanged() {}

void CMainFrame::LabelsChanged(CSonadexView&) {}

void CMainFrame::CursorMoved(CSonadexView&, MousePhase, double) {}

LogSink* CMainFrame::openLog() { return nullptr; }

void CMainFrame::Run(CSonadexView& view, const std::function<void()>& action) {
  if (services_.progress.running()) return;
  try {
    action();
  } catch (const Abandoned&) {
  } catch (const std::exception& error) {
    view.prompts().Message(error.what());
  }
  StateChanged();
}

bool CMainFrame::MayClose(CChildFrame&) { return !services_.progress.running(); }

void CMainFrame::Closed(CSonadexDoc& document) {
  if (FramesOf(document).empty()) {
    documents_.Close(document);
  } else {
    Number(document);
  }
  StateChanged();
}

// A window that never was moved fills the space; further ones keep the place that Qt gives them.
void CMainFrame::Place(CChildFrame& frame) {
  const WindowPlacement& stored = services_.application.host.application.mainView;
  if (stored.width > 0 && stored.height > 0) {
    frame.setGeometry(stored.x, stored.y, stored.width, stored.height);
  } else {
    frame.setGeometry(area_->viewport()->rect());
  }
}

void CMainFrame::Number(const CSonadexDoc& document) {
  const auto frames = FramesOf(document);
  int number = 0;
  for (CChildFrame* const frame : frames) frame->SetNumber(frames.size() > 1 ? ++number : 0);
}

}  // namespace cantorix
