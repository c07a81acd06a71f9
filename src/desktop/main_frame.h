// main_frame.h - the main window: the documents' windows in its middle, menus, tool bar and status
// bar around them, the floating windows over it.
#pragma once

#include <QMainWindow>
#include <string>
#include <vector>

#include "desktop/desktop_services.h"
#include "desktop/frame_host.h"
#include "desktop/open_documents.h"

class QMdiArea;

namespace cantorix {

class CMainFrame : public QMainWindow, private FrameHost {
 public:
  explicit CMainFrame(DesktopServices services);
  ~CMainFrame() override;

  void NewDocument();
  // Opens a recording in a window of its own, or shows the window it has. False when it could not
  // be opened.
  bool OpenFile(const std::string& path);
  void OpenNewWindow(CSonadexDoc& document);

  // The document's window that is in front; null without one.
  CChildFrame* activeFrame() const;
  CSonadexView* activeView() const;
  std::vector<CChildFrame*> Frames() const;
  std::vector<CChildFrame*> FramesOf(const CSonadexDoc& document) const;
  OpenDocuments& documents() { return documents_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void StateChanged() override;
  void LabelsChanged(CSonadexView& view) override;
  void CursorMoved(CSonadexView& view, MousePhase phase, double ms) override;
  LogSink* openLog() override;
  void Run(CSonadexView& view, const std::function<void()>& action) override;
  bool MayClose(CChildFrame& frame) override;
  void Closed(CSonadexDoc& document) override;

  void Place(CChildFrame& frame);
  void Number(const CSonadexDoc& document);

  DesktopServices services_;
  OpenDocuments documents_;
  QMdiArea* area_;
};

}  // namespace cantorix
