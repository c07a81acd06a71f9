// analysis_window_set.cpp - windows found again, made and taken along by their view.
#include "desktop/windows/analysis_window_set.h"

#include <QMdiArea>
#include <algorithm>

#include "desktop/qt_progress.h"
#include "desktop/window_place.h"
#include "desktop/windows/fft_lpc_frame.h"
#include "desktop/windows/picture_output.h"
#include "desktop/windows/pitch_frame.h"
#include "desktop/windows/spectrogram_frame.h"

namespace cantorix {
namespace {

// Parts of the area, so that the recording stays in sight: a spectrum on the right, a spectrogram
// or a pitch track along the bottom.
QRect DefaultPlace(const QRect& area, WindowKind kind) {
  if (kind == WindowKind::kFftLpc) {
    const int width = area.width() * 11 / 20;
    return {area.right() - width + 1, area.top(), width, area.height() / 2};
  }
  const int height = area.height() / 2;
  return {area.left(), area.bottom() - height + 1, area.width(), height};
}

}  // namespace

AnalysisFrame* AnalysisWindowSet::Find(const CSonadexView& view, WindowKind kind) const {
  const auto found = std::find_if(frames_.begin(), frames_.end(), [&](AnalysisFrame* frame) {
    // A hidden one was closed and is about to go.
    return &frame->view() == &view && frame->model().kind() == kind && !frame->isHidden();
  });
  return found == frames_.end() ? nullptr : *found;
}

void AnalysisWindowSet::Open(CSonadexView& view, const AnalysisRequest& request) {
  if (around_.area == nullptr) return;
  const WindowKind kind = request.kind;
  if (kind == WindowKind::kPitch) return OpenPitch(view, request.stretch.value_or(Stretch::kAll));
  const bool isNew = Find(view, kind) == nullptr;
  AnalysisFrame& frame = Show(view, kind);
  const auto closeWhenEmpty = [&] {
    if (isNew && !frame.model().computed()) delete &frame;
  };
  try {
    Analyse(frame, request);
  } catch (...) {
    closeWhenEmpty();
    throw;
  }
  closeWhenEmpty();
}

void AnalysisWindowSet::Analyse(AnalysisFrame& frame, const AnalysisRequest& request) {
  CSonadexView& view = frame.view();
  if (auto* const spectrum = dynamic_cast<CFFTLPCView*>(&frame.model())) {
    SpectrumPlace place{.position = view.channel().cursor.samples, .selection = {}};
    if (request.stretch) place.selection = StretchOf(view, *request.stretch);
    spectrum->Show(place);
  } else if (auto* const spectrogram = dynamic_cast<CSpectrogramView*>(&frame.model())) {
    spectrogram->Show(StretchOf(view, request.stretch.value_or(Stretch::kAll)));
  }
}

void AnalysisWindowSet::OpenPitch(CSonadexView& view, Stretch stretch) {
  AnalysePitch(view, stretch);
  const bool drawnAlready =
      stretch == Stretch::kAll && view.document().settings.display.drawPitch != 0;
  AnalysisFrame* const frame = Find(view, WindowKind::kPitch);
  if (!drawnAlready || frame != nullptr) Show(view, WindowKind::kPitch).Refresh();
}

AnalysisFrame& AnalysisWindowSet::Show(CSonadexView& view, WindowKind kind) {
  AnalysisFrame* frame = Find(view, kind);
  if (frame == nullptr) {
    frame = Make(view, kind);
    frames_.push_back(frame);
    around_.area->addSubWindow(frame);
    // A working view that fills the area would hide it at the next click.
    frame->setWindowFlag(Qt::WindowStaysOnTopHint);
    Place(*frame, kind);
  }
  if (frame->isMinimized()) frame->showNormal();
  frame->show();
  around_.area->setActiveSubWindow(frame);
  frame->Settle();
  return *frame;
}

WindowPlacement& AnalysisWindowSet::PlacementOfKind(WindowKind kind) {
  ApplicationSettings& placements = services_.application.host.application;
  if (kind == WindowKind::kFftLpc) return placements.fftLpc;
  return kind == WindowKind::kSpectrogram ? placements.spectrogram : pitchPlacement_;
}

AnalysisFrame* AnalysisWindowSet::Make(CSonadexView& view, WindowKind kind) {
  WindowPlacement* const placement = &PlacementOfKind(kind);
  if (kind == WindowKind::kFftLpc) return new CFFTLPCFrame(view, *this, placement);
  if (kind == WindowKind::kSpectrogram) return new CSpectrogramFrame(view, *this, placement);
  return new CPitchFrame(view, *this, placement);
}

void AnalysisWindowSet::Place(AnalysisFrame& frame, WindowKind kind) {
  const QRect area = around_.area->viewport()->rect();
  const auto stored = PlaceOf(PlacementOfKind(kind));
  frame.setGeometry(stored && area.intersects(*stored) ? *stored : DefaultPlace(area, kind));
}

void AnalysisWindowSet::CursorMoved(CSonadexView& view, MousePhase phase, double ms) {
  AnalysisFrame* const frame = Find(view, WindowKind::kSpectrogram);
  if (frame == nullptr) return;
  if (auto* const spectrogram = dynamic_cast<CSpectrogramView*>(&frame->model())) {
    spectrogram->FollowMainView(phase, ms);
  }
}

void AnalysisWindowSet::ShowPlayed(const CSonadexDoc& document, std::optional<double> ms) {
  for (AnalysisFrame* const frame : frames_) {
    if (&frame->view().document() == &document) frame->canvas().ShowPlayed(ms);
  }
}

void AnalysisWindowSet::RefreshCommands() {
  for (AnalysisFrame* const frame : frames_) frame->actions().Refresh();
}

void AnalysisWindowSet::CloseWindowsOf(CSonadexView& view) {
  const auto frames = frames_;
  for (AnalysisFrame* const frame : frames) {
    if (&frame->view() == &view) delete frame;
  }
}

CSonadexView* AnalysisWindowSet::ViewOf(const QMdiSubWindow& window) const {
  const auto found = std::find(frames_.begin(), frames_.end(), &window);
  return found == frames_.end() ? nullptr : &(*found)->view();
}

void AnalysisWindowSet::Run(CSonadexView& view, const std::function<void()>& action) {
  if (busy()) return;
  Guarded(view, action);
  if (around_.stateChanged) around_.stateChanged();
}

bool AnalysisWindowSet::busy() const { return services_.progress.running(); }

void AnalysisWindowSet::Output(AnalysisFrame& frame, WindowCommand command) {
  Run(frame.view(), [&] {
    OutputPicture(
        frame, command,
        {services_.application.prompts(), WaveformOf(frame.view().document()), around_.printer});
  });
}

}  // namespace cantorix
