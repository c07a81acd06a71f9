// analysis_window_set.h - the open analysis windows: at most one of a kind for each working view.
// They lie in the area of the documents' windows.
#pragma once

#include <functional>
#include <vector>

#include "desktop/analysis_windows.h"
#include "desktop/desktop_services.h"
#include "desktop/windows/analysis_frame.h"

class QPrinter;

namespace cantorix {

class Desks;

class AnalysisWindowSet : public AnalysisWindows, private AnalysisFrameHost {
 public:
  explicit AnalysisWindowSet(const DesktopServices& services) : services_(services) {}

  // The desks where the windows lie, the waveform that a document's windows share, what is told
  // when commands may have been enabled or disabled, and the printer as it was set up. Null desks
  // end the use of all.
  struct Surroundings {
    Desks* desks = nullptr;
    std::function<DocumentWaveform&(CSonadexDoc&)> waveformOf;
    std::function<void()> stateChanged;
    std::function<QPrinter&()> printer;
    std::function<void(CSonadexView&, const std::optional<Pointed>&)> pointedAt = {};
    std::function<void(Command)> perform = {};
  };
  void Enter(Surroundings surroundings) { around_ = std::move(surroundings); }

  // A new window is closed again when nothing could be computed. A pitch track of the whole
  // recording gets a window only while the working view does not draw it; one of a stretch always,
  // because there it has the whole width.
  void Open(CSonadexView& view, const AnalysisRequest& request) override;
  void CursorMoved(CSonadexView& view, MousePhase phase, double ms) override;
  void ShowPlayed(const CSonadexDoc& document, std::optional<double> ms) override;
  void ShowPointed(const CSonadexView& view, const std::optional<Pointed>& pointed) override;
  void RefreshCommands() override;
  void CloseWindowsOf(CSonadexView& view) override;
  const CSpectrogramView* SpectrogramOf(const CSonadexView& view) const override;
  std::vector<AnalysisWindowOf> WindowsOf(const CSonadexView& view) const override;
  CSonadexView* ViewOf(const QMdiSubWindow& window) const override;

  // Null when the view has no such window.
  AnalysisFrame* Find(const CSonadexView& view, WindowKind kind) const;

 private:
  void Run(CSonadexView& view, const std::function<void()>& action) override;
  bool busy() const override;
  void Activate(const CSonadexView& view, WindowKind kind) override;
  void PointedAt(CSonadexView& view, const std::optional<Pointed>& pointed) override;
  void Passed(AnalysisFrame& from, MousePhase phase, double ms) override;
  void Perform(Command command) override;
  void Gone(AnalysisFrame& frame) override;
  void Output(AnalysisFrame& frame, WindowCommand command) override;
  DocumentWaveform& WaveformOf(CSonadexDoc& document) override {
    return around_.waveformOf(document);
  }

  // All windows of the view but one, which has moved the cursor itself.
  void Follow(const CSonadexView& view, MousePhase phase, double ms, const AnalysisFrame* from);
  AnalysisFrame& Show(CSonadexView& view, WindowKind kind);
  AnalysisFrame* Make(CSonadexView& view, WindowKind kind);
  WindowPlacement& PlacementOfKind(WindowKind kind);
  void Analyse(AnalysisFrame& frame, const AnalysisRequest& request);
  void OpenPitch(CSonadexView& view, Stretch stretch);

  const DesktopServices& services_;
  Surroundings around_;
  std::vector<AnalysisFrame*> frames_;
  WindowPlacement pitchPlacement_;  // for as long as the program runs
};

}  // namespace cantorix
