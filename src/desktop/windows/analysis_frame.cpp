// analysis_frame.cpp - the strip of commands, the timer, and failures shown.
#include "desktop/windows/analysis_frame.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/paint/empty_panes.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "desktop/tool_bar_names.h"
#include "desktop/tool_icon.h"
#include "mainview/option_commands.h"

namespace cantorix {
namespace {

constexpr int kRestMs = 250;
constexpr int kFollowMs = 50;     // between two spectra at a marker that is dragged
constexpr int kHintBeside = 500;  // pixels that it needs beside the strip

}  // namespace

AnalysisFrame::AnalysisFrame(CSonadexView& view, AnalysisFrameHost& host,
                             WindowPlacement& placement)
    : DeskWindow(placement), view_(view), host_(host) {
  rest_.setSingleShot(true);
  connect(&rest_, &QTimer::timeout, this, [this] { Rest(); });
}

AnalysisFrame::~AnalysisFrame() { host_.Gone(*this); }

void AnalysisFrame::Build() {
  auto* const content = new QWidget(this);
  strip_ = new QToolBar(content);
  canvas_ = new AnalysisCanvas(
      model(), picture(), [this](const auto& action) { Run(action); }, content);
  canvas_->pointedAt = [this](const auto& pointed) { host_.PointedAt(view_, pointed); };
  canvas_->perform = [this](Command command) { host_.Perform(command); };
  auto* const column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  hint_ = new HintLine({[this] { UseHints(); }, [this] { CloseHints(); }}, content);
  head_ = new QBoxLayout(QBoxLayout::TopToBottom);
  head_->setSpacing(0);
  head_->addWidget(strip_);
  head_->addWidget(hint_, 1);
  column->addLayout(head_);
  QToolBar* const ownRow = hasOwnRow() ? new QToolBar(content) : strip_;
  if (ownRow != strip_) column->addWidget(ownRow);
  column->addWidget(canvas_, 1);
  setWidget(content);
  canvas_->setAccessibleName(KindName());
  actions_ = std::make_unique<WindowActions>(*canvas_, model(),
                                             [this](WindowCommand command) { Perform(command); });
  AddPlaceSwitch();
  actions_->Fill(*strip_);
  FillStrip(*ownRow);
  NameExtension(*strip_);
  NameExtension(*ownRow);
  setWindowIcon(DrawnIcon(IconName()));
  setFocusProxy(canvas_);
  Refresh();
}

WindowServices AnalysisFrame::Services() {
  return {&view_, [this] { Refresh(); },
          [this]() -> LogSink* {
            const auto& openLog = view_.services().openLog;
            return openLog ? openLog() : nullptr;
          },
          [this](MousePhase phase, double ms) { host_.Passed(*this, phase, ms); }};
}

void AnalysisFrame::Run(const std::function<void()>& action) { host_.Run(view_, action); }

// So that times stand below those of the main view; a spectrum has none.
void AnalysisFrame::KeepFree(int pixels) {
  if (model().kind() != WindowKind::kFftLpc)
    widget()->layout()->setContentsMargins(0, 0, pixels, 0);
}

void AnalysisFrame::AddPlaceSwitch() {
  if (model().kind() == WindowKind::kFftLpc) return;
  for (const auto& [kind, name] : {std::pair{WindowKind::kSpectrogram, Marked("Spectrogram")},
                                   {WindowKind::kPitch, Marked("Pitch")}}) {
    auto* const button = new QToolButton(strip_);
    button->setText(Tr(name));
    button->setCheckable(true);
    button->setChecked(kind == model().kind());
    button->setToolTip(Tr("Both windows lie in one place (F6)"));
    connect(button, &QToolButton::clicked, this, [this, button, shown = kind] {
      button->setChecked(shown == model().kind());
      host_.Activate(view_, shown);
    });
    placeSwitch_.push_back(strip_->addWidget(button));
  }
  placeSwitch_.push_back(strip_->addSeparator());
  SharePlace(false);
}

void AnalysisFrame::SharePlace(bool shares) {
  for (QAction* const part : placeSwitch_) part->setVisible(shares);
}

void AnalysisFrame::Settle() {
  ShowHint();
  widget()->layout()->activate();
  canvas_->LayOut();
}

void AnalysisFrame::Perform(WindowCommand command) {
  const WindowCommandRow* const row = RowOf(model().kind(), command);
  if (row == nullptr) return;
  // What the widget does takes care of itself: one closes it, others ask the program.
  if (row->carrier.IsFor<WindowActionsHost>()) {
    RunWindowCommand(model(), command, this);
    return;
  }
  Run([this, command] { RunWindowCommand(model(), command); });
  Refresh();
}

void AnalysisFrame::ShowOptions() {
  Run([this] { RunCommand(view_, OptionsCommand()); });
  Refresh();
}

void AnalysisFrame::CopyReadouts() {
  QGuiApplication::clipboard()->setText(TextOfReadouts(model()));
}

void AnalysisFrame::Refresh() {
  if (!actions_) return;
  ShowHint();
  // A switch may have added or removed a strip.
  canvas_->LayOut();
  canvas_->Refresh(Note());
  actions_->Refresh();
  RefreshStrip();
  setWindowTitle(KindName() + QStringLiteral(" \u2013 ") + Shown(view_.document().shownName()));
  AwaitRest();
}

// A change begins the wait anew, but where the picture follows a marker it comes during a drag.
void AnalysisFrame::AwaitRest() {
  if (!model().UpdateDue()) return;
  const std::int32_t* const follows = model().SwitchOf(WindowSwitch::kFollowMarker);
  if (follows == nullptr || *follows == 0) return rest_.start(kRestMs);
  if (!rest_.isActive()) rest_.start(kFollowMs);
}

void AnalysisFrame::ShowHint() {
  const bool open = !view_.document().rateHintsClosed && !edited();
  const RateHint hint = open ? Hint() : RateHint();
  hint_->Say(Translated(hint.text), Translated(hint.button));
  const int needed = std::max(kHintBeside, hint_->NeededWidth());
  const bool beside = width() - strip_->sizeHint().width() >= needed;
  head_->setDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

// Both for all windows of the recording.
void AnalysisFrame::UseHints() {
  Run([this] { cantorix::UseHints(view_); });
  Refresh();
}

void AnalysisFrame::CloseHints() {
  view_.document().rateHintsClosed = true;
  view_.Changed(DocumentChange::kSettings);
  Refresh();
}

PictureNote AnalysisFrame::Note() {
  const bool isPitch = model().kind() == WindowKind::kPitch;
  const auto update = [this] { Perform(WindowCommand::kUpdate); };
  if (model().samplesChanged()) {
    return {Tr("The recording has changed since this was computed. Press Update (F5) to compute "
               "again."),
            QStringLiteral("Update"), update};
  }
  if (!isPitch) {
    if (model().computed()) return {};
    return {Tr("Nothing computed. Update (F5)."), QStringLiteral("Update"), update};
  }
  if (!model().computed()) {
    return {Tr(kNoPitchNote), QStringLiteral("Pitch All"),
            [this] { host_.Perform(Command::kPitchAll); }};
  }
  const QString unvoiced = Translated(UnvoicedNote(view_));
  if (unvoiced.isEmpty()) return {};
  return {unvoiced, QStringLiteral("Options..."), [this] { Perform(WindowCommand::kOptions); }};
}

// Not while the mouse is held or something else runs: the user does not rest then.
void AnalysisFrame::Rest() {
  if (!model().UpdateDue()) return;
  if (model().press.held || host_.busy()) return rest_.start();
  Run([this] { model().Update(); });
  Refresh();
}

void AnalysisFrame::closeEvent(QCloseEvent* event) {
  DeskWindow::closeEvent(event);
  isClosing_ = event->isAccepted();
}

void AnalysisFrame::resizeEvent(QResizeEvent* event) {
  DeskWindow::resizeEvent(event);
  if (actions_) ShowHint();
}

}  // namespace cantorix
