// analysis_window_set.cpp - windows found again, made and taken along by their view.
#include "desktop/windows/analysis_window_set.h"

#include <QMdiArea>
#include <algorithm>

#include "desktop/desks.h"
#include "desktop/qt_progress.h"
#include "desktop/windows/fft_lpc_frame.h"
#include "desktop/windows/picture_output.h"
#include "desktop/windows/pitch_frame.h"
#include "desktop/windows/spectrogram_frame.h"

namespace cantorix {
AnalysisFrame* AnalysisWindowSet::Find(const CSonadexView& view, WindowKind kind) const {
  const auto found = std::find_if(frames_.begin(), frames_.end(), [&](AnalysisFrame* frame) {
    return &frame->view() == &view && frame->model().kind() == kind && !frame->isClosing();
  });
  return found == frames_.end() ? nullptr : *found;
}

void AnalysisWindowSet::Open(CSonadexView& view, const AnalysisRequest& request) {
  if (around_.desks == nullptr) return;
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
    around_.desks->area().addSubWindow(frame);
    around_.desks->Place(view, *frame, PlacementOfKind(kind));
  }
  if (frame->isMinimized()) frame->showNormal();
  frame->show();
  around_.desks->area().setActiveSubWindow(frame);
  frame->Settle();
  return *frame;
}

WindowPlacement& AnalysisWindowSet::PlacementOfKind(WindowKind kind) {
  ApplicationSettings& placements = services_.application.host.application;
  if (kind == WindowKind::kFftLpc) return placements.fftLpc;
  return kind == WindowKind::kSpectrogram ? placements.spectrogram : pitchPlacement_;
}

AnalysisFrame* AnalysisWindowSet::Make(CSonadexView& view, WindowKind kind) {
  WindowPlacement& placement = PlacementOfKind(kind);
  if (kind == WindowKind::kFftLpc) return new CFFTLPCFrame(view, *this, placement);
  if (kind == WindowKind::kSpectrogram) return new CSpectrogramFrame(view, *this, placement);
  return new CPitchFrame(view, *this, placement);
}

void AnalysisWindowSet::CursorMoved(CSonadexView& view, MousePhase phase, double ms) {
  Follow(view, phase, ms, nullptr);
}

void AnalysisWindowSet::Passed(AnalysisFrame& from, MousePhase phase, double ms) {
  Follow(from.view(), phase, ms, &from);
}

void AnalysisWindowSet::Follow(const CSonadexView& view, MousePhase phase, double ms,
                               const AnalysisFrame* from) {
  for (AnalysisFrame* const frame : frames_) {
    if (&frame->view() != &view || frame == from || frame->isClosing()) continue;
    frame->model().FollowMainView(phase, ms);
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

std::vector<AnalysisWindowOf> AnalysisWindowSet::WindowsOf(const CSonadexView& view) const {
  std::vector<AnalysisWindowOf> windows;
  for (const WindowKind kind :
       {WindowKind::kSpectrogram, WindowKind::kPitch, WindowKind::kFftLpc}) {
    if (AnalysisFrame* const frame = Find(view, kind)) windows.push_back({kind, frame});
  }
  return windows;
}

const CSpectrogramView* AnalysisWindowSet::SpectrogramOf(const CSonadexView& view) const {
  AnalysisFrame* const frame = Find(view, WindowKind::kSpectrogram);
  return frame == nullptr ? nullptr : dynamic_cast<CSpectrogramView*>(&frame->model());
}

void AnalysisWindowSet::Gone(AnalysisFrame& frame) {
  std::erase(frames_, &frame);
  if (around_.desks != nullptr) around_.desks->Gone(frame.view());
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

void AnalysisWindowSet::Activate(const CSonadexView& view, WindowKind kind) {
  AnalysisFrame* const frame = Find(view, kind);
  if (frame != nullptr) around_.desks->area().setActiveSubWindow(frame);
}

void AnalysisWindowSet::PointedAt(CSonadexView& view, const std::optional<Pointed>& pointed) {
  if (around_.pointedAt) around_.pointedAt(view, pointed);
}

void AnalysisWindowSet::Perform(Command command) {
  if (around_.perform) around_.perform(command);
}

void AnalysisWindowSet::ShowPointed(const CSonadexView& view,
                                    const std::optional<Pointed>& pointed) {
  for (AnalysisFrame* const frame : frames_) {
    if (&frame->view() == &view) frame->canvas().ShowPointed(pointed);
  }
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
