// desks.h - the windows of each recording as one group in the area: placed beside each other while
// the program places them, raised, minimised and restored together, never mixed with those of
// another recording. A user who moves one of them is free to; then the program moves none.
#pragma once

#include <QObject>
#include <QRect>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/analysis_windows.h"

class QMdiArea;

namespace cantorix {

class CChildFrame;

class Desks : public QObject {
 public:
  explicit Desks(QMdiArea& area);

  QMdiArea& area() { return area_; }
  // What knows the windows of the analyses; null: there are none.
  void SetAnalyses(const AnalysisWindows* analyses) { analyses_ = analyses; }

  // A main view's window is in the area: it gets the place that its user chose last, or all of it.
  void Enter(CChildFrame& main, const WindowPlacement& chosen);
  // Its view goes, and the windows of its analyses go first.
  void Leave(const CChildFrame& main);
  // A window of an analysis is in the area, not yet shown: at the user's place when there is one;
  // else with the first one the whole group is arranged.
  void Place(const CSonadexView& view, DeskWindow& window, const WindowPlacement& chosen);
  // One has gone: an arranged group closes the gap; after the last one the main view lies as
  // before.
  void Gone(const CSonadexView& view);

  // Puts the view's group into order, and its windows under the program's care again.
  void Arrange(const CSonadexView& view);
  // All windows in steps, or each group in a cell of its own; where cells would be too small for
  // work only the group in front is laid out and the others are minimised. Neither is the user's
  // choice of a place.
  void Cascade();
  void Tile();
  // The minimised ones in a row along the bottom.
  void ArrangeIcons();

  // A window was activated: its group above all others, itself above its group.
  void Raise(QMdiSubWindow* active);
  // The next window of the group in front, by that many steps; the last used one of the next group.
  void ActivateNext(int step);
  void ActivateNextDesk();

  // Windows in the order of a list: each main view, then its analyses.
  std::vector<QMdiSubWindow*> Windows() const;

 private:
  enum class Order { kAlone, kArranged, kFree };
  struct Desk {
    explicit Desk(CChildFrame& window);

    CChildFrame* main;
    const CSonadexView* view;
    Order order = Order::kAlone;
    bool fills = false;         // the main view alone covers the area
    std::optional<QRect> cell;  // of a tiled group
    QRect before;               // the place of the main view before it was arranged
    bool wasMaximized = false;
  };

  bool eventFilter(QObject* watched, QEvent* event) override;
  std::vector<AnalysisWindowOf> AnalysesOf(const Desk& desk) const;
  std::vector<DeskWindow*> WindowsOf(const Desk& desk) const;
  Desk* Find(const CSonadexView& view);
  // The desk that a window belongs to; null for one of another kind.
  Desk* FindOf(const QMdiSubWindow* window);
  Desk* Active();
  void BeginArranging(Desk& desk);
  void LayOut(Desk& desk);
  void GiveWhole(Desk& desk);
  void Chosen(DeskWindow& window);
  void FollowMain(Desk& desk, Qt::WindowStates before, Qt::WindowStates now);
  QRect FreePlace(const Desk& desk, const DeskWindow& window) const;

  QMdiArea& area_;
  const AnalysisWindows* analyses_ = nullptr;
  std::vector<Desk> desks_;  // in the order in which they came
};

}  // namespace cantorix
