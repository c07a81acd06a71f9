// analysis_canvas.h - the area of an analysis window in which its picture is drawn. It passes mouse
// and keys on to the window's model and keeps nothing that the model could be asked for.
#pragma once

#include <QWidget>
#include <functional>

#include "analysisview/pointed.h"
#include "desktop/accessible_picture.h"
#include "desktop/empty_note.h"
#include "desktop/wheel_steps.h"
#include "desktop/windows/window_picture.h"
#include "mainview/commands.h"

namespace cantorix {

// "name value" of all readouts, separated by TABs.
QString TextOfReadouts(const AnalysisWindow& model);

// What stands over a picture, with what a press of its button does; no text: nothing.
struct PictureNote {
  QString text{}, button{};
  std::function<void()> act{};
};

class AnalysisCanvas : public QWidget, public AccessiblePicture {
 public:
  // Runs what the user began on the model, guarded.
  using Guard = std::function<void(const std::function<void()>&)>;

  AnalysisCanvas(AnalysisWindow& model, WindowPicture& picture, Guard guard, QWidget* parent);

  // Told what is under the pointer while no button is held; nothing: it points at nothing.
  std::function<void(const std::optional<Pointed>&)> pointedAt;

  // Carries out a command of the recording whose key is pressed here.
  std::function<void(Command)> perform;

  // The model has changed: draws it, with a note over it where it needs one, and tells those who
  // cannot see it.
  void Refresh(const PictureNote& note);
  // The time of the recording that is heard now; nothing: none.
  void ShowPlayed(std::optional<double> ms) { played_.Show(ms); }
  // What is under the pointer in any window of the recording; nothing: it is in none.
  void ShowPointed(const std::optional<Pointed>& pointed);
  // The place of the plot and the size that the model is to compute for.
  void LayOut();

 protected:
  QString PictureValue() override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  bool GoesToLabel(const QKeyEvent& event);
  void PassKey(QKeyEvent& event);
  void PassPointer(const QMouseEvent& event, MousePhase phase);

  AnalysisWindow& model_;
  WindowPicture& picture_;
  Guard guard_;
  EmptyNote* note_;
  PlayCursor played_;
  PlayCursor pointed_;
  PlayCursor pointedHz_;
  WheelSteps wheel_;
};

}  // namespace cantorix
