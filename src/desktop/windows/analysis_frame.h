// analysis_frame.h - what the windows of the analyses have in common: a strip of commands above
// the picture, and a timer that computes again when the user rests.
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "desktop/desk_window.h"
#include "desktop/windows/analysis_canvas.h"
#include "desktop/windows/hint_line.h"
#include "desktop/windows/window_actions.h"
#include "mainview/commands.h"
#include "settings/suggested_settings.h"

class QBoxLayout;
class QToolBar;

namespace cantorix {

class AnalysisFrame;
class DocumentWaveform;

// What an analysis window asks of the program. It outlives the window.
class AnalysisFrameHost {
 public:
  virtual ~AnalysisFrameHost() = default;
  // Carries out what the user began: nothing while another operation runs; what is given up ends
  // silently, a failure is shown.
  virtual void Run(CSonadexView& view, const std::function<void()>& action) = 0;
  // Brings the view's window of a kind to the front.
  virtual void Activate(const CSonadexView& view, WindowKind kind) = 0;
  // What is under the pointer in a window of the view; nothing: it points at nothing there.
  virtual void PointedAt(CSonadexView& view, const std::optional<Pointed>& pointed) = 0;
  // The main view has taken a press or a drag of the window.
  virtual void Passed(AnalysisFrame& from, MousePhase phase, double ms) = 0;
  // A command of the recording, as by its menu.
  virtual void Perform(Command command) = 0;
  // Whether an operation runs.
  virtual bool busy() const = 0;
  // The window ends: it is not to be used any more.
  virtual void Gone(AnalysisFrame& frame) = 0;
  // Saves, copies or prints the picture.
  virtual void Output(AnalysisFrame& frame, WindowCommand command) = 0;
  // For the strip of audio beside a picture.
  virtual DocumentWaveform& WaveformOf(CSonadexDoc& document) = 0;
};

class AnalysisFrame : public DeskWindow, private WindowActionsHost {
 public:
  AnalysisFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement& placement);
  ~AnalysisFrame() override;

  virtual AnalysisWindow& model() = 0;
  virtual WindowPicture& picture() = 0;

  CSonadexView& view() { return view_; }
  AnalysisCanvas& canvas() { return *canvas_; }
  WindowActions& actions() { return *actions_; }

  // The window was closed and is about to go.
  bool isClosing() const { return isClosing_; }
  void KeepFree(int pixels) override;
  void SharePlace(bool shares) override;

  // Gives canvas and strip their sizes at once, so that the model knows what to compute for.
  void Settle();
  // Carries out a command of the window.
  void Perform(WindowCommand command);
  // Everything shown in step with the model.
  void Refresh();

 protected:
  // To be called once by the constructor of a window, whose model and picture exist by then.
  void Build();
  // Widgets that a window adds to its strip, or to a row of their own below it.
  virtual void FillStrip(QToolBar&) {}
  virtual bool hasOwnRow() const { return false; }
  virtual void RefreshStrip() {}
  // What does not fit the recording.
  virtual RateHint Hint() const { return {}; }
  // Whether a field of the strip is being typed into.
  virtual bool edited() const { return false; }
  virtual QString KindName() const = 0;
  virtual QString IconName() const = 0;
  virtual Command OptionsCommand() const = 0;
  WindowServices Services();
  void Run(const std::function<void()>& action);
  bool busy() const { return host_.busy(); }

  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddPlaceSwitch();
  void ShowOptions() override;
  void SavePicture() override { host_.Output(*this, WindowCommand::kSavePicture); }
  void CopyPicture() override { host_.Output(*this, WindowCommand::kCopyPicture); }
  void CopyReadouts() override;
  void Print() override { host_.Output(*this, WindowCommand::kPrint); }
  void CloseWindow() override { close(); }

  void ShowHint();
  void UseHints();
  void CloseHints();
  PictureNote Note();
  void AwaitRest();
  void Rest();

  CSonadexView& view_;
  AnalysisFrameHost& host_;
  QBoxLayout* head_ = nullptr;  // the strip, and the hint beside or below it
  QToolBar* strip_ = nullptr;
  std::vector<QAction*> placeSwitch_;  // of windows over time
  HintLine* hint_ = nullptr;
  AnalysisCanvas* canvas_ = nullptr;
  std::unique_ptr<WindowActions> actions_;
  QTimer rest_;
  bool isClosing_ = false;
};

}  // namespace cantorix
