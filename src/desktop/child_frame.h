// child_frame.h - the window of a document inside the main frame: it owns the working view and the
// area that shows it, and follows the document's title.
#pragma once

#include <memory>

#include "audio/recording_file.h"
#include "desktop/desk_window.h"
#include "desktop/frame_host.h"
#include "document/document.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

class DocumentWaveform;
class MainViewArea;
struct DesktopServices;

class CChildFrame : public DeskWindow, private ViewListener, private SoundControl {
 public:
  CChildFrame(CSonadexDoc& document, DocumentWaveform& waveform, const DesktopServices& services,
              FrameHost& host);
  ~CChildFrame() override;

  // Null once the window was closed.
  CSonadexView* view() { return view_.get(); }
  MainViewArea& area() { return *area_; }
  // A recording that becomes the document's samples when the view begins; null for none. A window
  // that is closed before leaves its file where it is.
  void TakeUp(std::unique_ptr<RecordingFile> recording) { recording_ = std::move(recording); }
  // The view's first update, in the size that the window has now; later while an operation runs.
  void Begin();
  // What records or plays has begun or ended.
  void SoundChanged();
  // The number shown behind the title while a document has several windows; 0 for none.
  void SetNumber(int number);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void ViewChanged(const ViewNotice& notice) override;
  void StopPlayback() override;
  bool EndRecording() override;
  void Record() override;
  void Play(const SampleRange& range) override;
  SoundState Sound() const override;

  void BeginView();
  void ShowTitle();
  void LetGo();

  CSonadexDoc* document_;
  const DesktopServices& services_;
  FrameHost& host_;
  std::unique_ptr<CSonadexView> view_;
  MainViewArea* area_ = nullptr;
  std::unique_ptr<RecordingFile> recording_;  // until the view begins
  int number_ = 0;
};

}  // namespace cantorix
