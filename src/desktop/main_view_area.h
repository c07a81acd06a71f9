// main_view_area.h - the widget of a working view between its two scroll bars.
#pragma once

#include <QWidget>

#include "desktop/frame_host.h"
#include "mainview/sonadex_view.h"

class QScrollBar;

namespace cantorix {

class DocumentWaveform;
class EmptyNote;
class MainViewWidget;

class MainViewArea : public QWidget {
 public:
  MainViewArea(CSonadexView& view, DocumentWaveform& waveform, FrameHost& host, QWidget* parent);

  MainViewWidget& picture() { return *picture_; }
  QScrollBar& horizontalBar() { return *horizontal_; }
  QScrollBar& verticalBar() { return *vertical_; }

  // The view has changed: draws it and puts the bars where it has them.
  void Refresh();
  // What to do while there is no recording, nor one being made.
  void OfferWhenEmpty();
  // The view is about to go.
  void LetGo();

 private:
  void Connect(QScrollBar& bar, bool isVertical);
  void Offer();

  CSonadexView* view_;
  FrameHost& host_;
  MainViewWidget* picture_;
  QScrollBar* horizontal_;
  QScrollBar* vertical_;
  EmptyNote* note_;
  std::vector<std::string> offered_;  // paths of the buttons
};

}  // namespace cantorix
