// scope_frame.cpp - thirty pictures a second, a third of them with new texts.
#include "desktop/sound/scope_frame.h"

#include "desktop/desk_window.h"
#include "desktop/tool_icon.h"

namespace cantorix {
namespace {

constexpr int kPicturesPerText = 4;

}  // namespace

CScopeChildFrame::CScopeChildFrame(SoundDesk& desk) : desk_(desk), view_(new CScopeView(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(QStringLiteral("Scope Window"));
  setWindowIcon(DrawnIcon(QStringLiteral("program")));
  setWidget(view_);
  CloseByItsOwnKey(*this);
  pictures_.setTimerType(Qt::PreciseTimer);
  connect(&pictures_, &QTimer::timeout, this, [this] { Advance(); });
  clock_.start();
  pictures_.start(kTickMs);
  desk_.SetWatcher(&view_->canvas());
}

CScopeChildFrame::~CScopeChildFrame() { desk_.SetWatcher(nullptr); }

void CScopeChildFrame::Advance() {
  if (!isVisible()) return;
  view_->canvas().Advance(static_cast<double>(clock_.nsecsElapsed()) / 1e6);
  if (--picturesToText_ > 0) return;
  picturesToText_ = kPicturesPerText;
  view_->ShowLevel(desk_);
}

}  // namespace cantorix
