// child_frame.cpp - view, area and title of one document, and the question when it closes.
#include "desktop/child_frame.h"

#include <QCloseEvent>
#include <QTimer>

#include "desktop/desktop_services.h"
#include "desktop/main_view_area.h"
#include "desktop/main_view_widget.h"
#include "desktop/qt_progress.h"
#include "desktop/qt_text.h"
#include "desktop/tool_icon.h"
#include "mainview/label_list.h"
#include "mainview/recording_placement.h"
#include "mainview/sound_desk.h"
#include "platform/abandon.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr int kTryAgainMs = 50;  // while another operation runs

}  // namespace

CChildFrame::CChildFrame(CSonadexDoc& document, DocumentWaveform& waveform,
                         const DesktopServices& services, FrameHost& host)
    : DeskWindow(services.application.host.application.mainView),
      document_(&document),
      services_(services),
      host_(host) {
  view_ = std::make_unique<CSonadexView>(
      document, ViewServices{services.clipboard, services.application.temporaryDirectory,
                             services.textMeasurer, *this, *this, services.dialogs,
                             [&host] { return host.openLog(); }});
  area_ = new MainViewArea(*view_, waveform, host, this);
  setWidget(area_);
  setWindowIcon(DrawnIcon(QStringLiteral("program")));
  ShowTitle();
}

CChildFrame::~CChildFrame() { LetGo(); }

void CChildFrame::Begin() {
  if (!view_) return;
  if (services_.progress.running()) {
    QTimer::singleShot(kTryAgainMs, this, [this] { Begin(); });
    return;
  }
  host_.Run(*view_, [this] {
    BeginView();
    if (recording_) PlaceRecording(*view_, std::move(recording_));
  });
  area_->Refresh();
}

void CChildFrame::BeginView() {
  area_->picture().ViewBegun();
  try {
    view_->Begin(area_->picture().ClientSize());
  } catch (const Abandoned&) {
    throw;
  } catch (const std::exception&) {
    view_->prompts().Beep();
    view_->prompts().Message("Error in initilization of view.");
  }
}

void CChildFrame::SoundChanged() {
  if (area_ != nullptr) area_->OfferWhenEmpty();
}

void CChildFrame::SetNumber(int number) {
  number_ = number;
  ShowTitle();
}

void CChildFrame::closeEvent(QCloseEvent* event) {
  if (!view_) return DeskWindow::closeEvent(event);
  if (!host_.MayClose(*this)) return event->ignore();
  CSonadexDoc& document = *document_;
  LetGo();
  DeskWindow::closeEvent(event);
  host_.Closed(document);
}

void CChildFrame::ViewChanged(const ViewNotice& notice) {
  if (!view_) return;
  if (notice.changes.Has(DocumentChange::kTitle)) ShowTitle();
  if (area_ != nullptr) area_->Refresh();
  if (notice.changes.HasAny(kLabelListChanges)) host_.LabelsChanged(*view_);
  if (notice.pointer) host_.CursorMoved(*view_, notice.pointer->phase, notice.pointer->ms);
  if (!notice.said.empty()) host_.Said(*view_, notice.said);
  host_.StateChanged();
}

void CChildFrame::StopPlayback() {
  if (document_ != nullptr) host_.sound().StopPlaying(*document_);
}

bool CChildFrame::EndRecording() {
  return document_ != nullptr && host_.sound().EndRecording(*document_);
}

void CChildFrame::Record() {
  host_.PrepareRecording();
  host_.sound().Record(*view_);
}

void CChildFrame::Play(const SampleRange& range) { host_.sound().Play(*view_, range); }

SoundState CChildFrame::Sound() const {
  return document_ == nullptr ? SoundState{} : host_.sound().StateOf(*document_);
}

void CChildFrame::ShowTitle() {
  if (document_ == nullptr) return;
  const QString number = number_ > 0 ? QStringLiteral(":%1").arg(number_) : QString();
  // A doubled mark stands for itself; a single one shows the modified state.
  const QString title = Shown(document_->shownName()).replace("[*]", "[*][*]");
  setWindowTitle(title + number + "[*]");
  setWindowModified(document_->isModified());
}

void CChildFrame::LetGo() {
  if (!view_) return;
  host_.Closing(*view_);
  area_->LetGo();
  view_.reset();
  document_ = nullptr;
}

}  // namespace cantorix
