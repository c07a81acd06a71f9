// main_view_widget.h - the window area in which a working view is drawn. It passes mouse, wheel and
// keys on to the view and paints it; everything worth knowing is kept by the view.
#pragma once

#include <QWidget>
#include <memory>

#include "desktop/accessible_picture.h"
#include "desktop/frame_host.h"
#include "desktop/sound/play_cursor.h"
#include "desktop/wheel_steps.h"

namespace cantorix {

class DocumentWaveform;
class LabelField;
class MainViewCanvas;

class MainViewWidget : public QWidget, public AccessiblePicture {
 public:
  MainViewWidget(CSonadexView& view, DocumentWaveform& waveform, FrameHost& host, QWidget* parent);

  PixelSize ClientSize() const { return {width(), height()}; }
  ~MainViewWidget() override;

  // The view has been laid out for the first time.
  void ViewBegun() { begun_ = true; }
  // A sign of the phonetic chart, for the label that is typed; without one it begins one.
  void TakeSign(const std::string& sign);
  // The view has changed: draws it, and the field of the label that is typed.
  void Refresh();
  // The view is about to go: nothing is passed on or drawn any more.
  void LetGo();
  // The time that is heard now; nothing: none.
  void ShowPlayed(std::optional<double> ms) { played_.Show(ms); }
  // The time under the pointer in any window of the recording; nothing: none.
  void ShowPointed(std::optional<double> ms) { pointed_.Show(ms); }

  std::vector<Part> AccessibleParts() override;

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
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void ShowShape(const QPointF& at);
  void TellPointed(const QPointF& at);
  // Runs `action` on the view under the frame's guard; nothing before the view has begun.
  void Pass(const std::function<void(CSonadexView&)>& action);
  // A letter in label entry mode. False for another key.
  bool BeginsLabel(const QKeyEvent& event);
  void ShowMenu(const QPoint& at);
  void PassKey(QKeyEvent& event);
  void TurnSteps(QWheelEvent& event, int steps);
  std::optional<QLine> PlaceOf(double ms) const;

  CSonadexView* view_;
  FrameHost& host_;
  std::unique_ptr<MainViewCanvas> canvas_;  // gone when the view is
  PlayCursor played_;
  PlayCursor pointed_;
  LabelField* field_;
  bool begun_ = false;
  WheelSteps wheel_;
};

}  // namespace cantorix
