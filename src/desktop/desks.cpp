// desks.cpp - which group a window belongs to, where the group lies, and what lies above what.
#include "desktop/desks.h"

#include <QEvent>
#include <QMdiArea>
#include <QScrollBar>
#include <algorithm>

#include "analysisview/desk_layout.h"
#include "desktop/child_frame.h"
#include "desktop/main_view_area.h"
#include "desktop/window_place.h"

namespace cantorix {
namespace {

// Pixels.
constexpr int kStep = 28;  // of a cascade
constexpr int kFreeStep = 24;
constexpr QSize kLeastCell(600, 400);
constexpr QSize kLeastFreePlace(400, 210);

QRect ToQRect(const PixelRect& rect, const QPoint& origin) {
  return QRect(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top)
      .translated(origin);
}

const PixelRect& PlaceIn(const DeskLayout& layout, WindowKind kind) {
  if (kind == WindowKind::kFftLpc) return layout.spectrum;
  return kind == WindowKind::kSpectrogram ? layout.spectrogram : layout.pitch;
}

std::int32_t HeightOf(const PixelRect& rect) { return rect.bottom - rect.top; }

DeskContents ContentsOf(const CSonadexView& view, const std::vector<AnalysisWindowOf>& analyses) {
  DeskContents contents;
  for (const auto& [kind, window] : analyses) {
    contents.spectrogram = contents.spectrogram || kind == WindowKind::kSpectrogram;
    contents.pitch = contents.pitch || kind == WindowKind::kPitch;
    contents.spectrum = contents.spectrum || kind == WindowKind::kFftLpc;
  }
  for (const PixelRect& tier : view.layout.tiers) contents.tiersHeight += HeightOf(tier);
  for (const PixelRect& pane : {view.layout.audio, view.layout.intensity, view.layout.pitch}) {
    if (HeightOf(pane) > 0) ++contents.panes;
  }
  return contents;
}

}  // namespace

Desks::Desk::Desk(CChildFrame& window) : main(&window), view(window.view()) {}

Desks::Desks(QMdiArea& area) : area_(area) { area_.viewport()->installEventFilter(this); }

// Which windows belong together
std::vector<AnalysisWindowOf> Desks::AnalysesOf(const Desk& desk) const {
  return analyses_ == nullptr ? std::vector<AnalysisWindowOf>() : analyses_->WindowsOf(*desk.view);
}

std::vector<DeskWindow*> Desks::WindowsOf(const Desk& desk) const {
  std::vector<DeskWindow*> windows{desk.main};
  for (const auto& [kind, window] : AnalysesOf(desk)) windows.push_back(window);
  return windows;
}

std::vector<QMdiSubWindow*> Desks::Windows() const {
  std::vector<QMdiSubWindow*> windows;
  for (const Desk& desk : desks_) {
    for (DeskWindow* const window : WindowsOf(desk)) windows.push_back(window);
  }
  return windows;
}

Desks::Desk* Desks::Find(const CSonadexView& view) {
  const auto found = std::ranges::find(desks_, &view, &Desk::view);
  return found == desks_.end() ? nullptr : &*found;
}

Desks::Desk* Desks::FindOf(const QMdiSubWindow* window) {
  for (Desk& desk : desks_) {
    const auto windows = WindowsOf(desk);
    if (std::ranges::find(windows, window) != windows.end()) return &desk;
  }
  return nullptr;
}

Desks::Desk* Desks::Active() { return FindOf(area_.currentSubWindow()); }

// Coming and going
void Desks::Enter(CChildFrame& main, const WindowPlacement& chosen) {
  desks_.push_back(Desk(main));
  main.chosen = [this, &main] { Chosen(main); };
  connect(&main, &QMdiSubWindow::windowStateChanged, this,
          [this, &main](Qt::WindowStates before, Qt::WindowStates now) {
            if (Desk* const desk = FindOf(&main)) FollowMain(*desk, before, now);
          });
  if (const auto place = PlaceOf(chosen)) {
    main.setGeometry(*place);
  } else {
    GiveWhole(desks_.back());
  }
}

void Desks::Leave(const CChildFrame& main) {
  std::erase_if(desks_, [&](const Desk& desk) { return desk.main == &main; });
}

void Desks::Place(const CSonadexView& view, DeskWindow& window, const WindowPlacement& chosen) {
  Desk* const desk = Find(view);
  if (desk == nullptr) return;
  window.chosen = [this, &window] { Chosen(window); };
  const QScrollBar& bar = desk->main->area().verticalBar();
  window.KeepFree(bar.isHidden() ? 0 : bar.sizeHint().width());
  const auto place = PlaceOf(chosen);
  if (place && area_.viewport()->rect().intersects(*place)) {
    desk->order = Order::kFree;
    window.setGeometry(*place);
  } else if (desk->order == Order::kFree) {
    window.Give(FreePlace(*desk, window));
  } else {
    BeginArranging(*desk);
    LayOut(*desk);
  }
}

void Desks::Gone(const CSonadexView& view) {
  Desk* const desk = Find(view);
  if (desk == nullptr) return;
  if (!AnalysesOf(*desk).empty()) {
    if (desk->order == Order::kArranged) LayOut(*desk);
    return;
  }
  const Order order = std::exchange(desk->order, Order::kAlone);
  if (order != Order::kArranged) return;
  if (desk->cell) {
    desk->main->Give(*desk->cell);
  } else if (desk->fills) {
    GiveWhole(*desk);
  } else {
    desk->main->Give(desk->before);
  }
  if (desk->wasMaximized) desk->main->showMaximized();
}

void Desks::BeginArranging(Desk& desk) {
  if (desk.order == Order::kAlone) {
    desk.wasMaximized = desk.main->isMaximized();
    desk.before = desk.main->geometry();
  }
  desk.order = Order::kArranged;
}

void Desks::Chosen(DeskWindow& window) {
  Desk* const desk = FindOf(&window);
  if (desk == nullptr) return;
  if (&window == desk->main) desk->fills = false;
  desk->cell.reset();
  if (desk->order == Order::kArranged) desk->order = Order::kFree;
}

// Minimised windows of analyses would be scattered, so that they go out of sight.
void Desks::FollowMain(Desk& desk, Qt::WindowStates before, Qt::WindowStates now) {
  // Then the next one has all of the area, too.
  if (now.testFlag(Qt::WindowMaximized)) desk.main->ForgetChosenPlace();
  const bool wasMinimized = before.testFlag(Qt::WindowMinimized);
  const bool isMinimized = now.testFlag(Qt::WindowMinimized);
  if (wasMinimized == isMinimized) return;
  for (const auto& [kind, window] : AnalysesOf(desk)) window->setVisible(!isMinimized);
  if (!isMinimized) Raise(desk.main);
}

// Places
bool Desks::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) {
    for (Desk& desk : desks_) {
      if (desk.main->isMaximized() || desk.main->isMinimized() || desk.cell) continue;
      if (desk.order == Order::kArranged) {
        LayOut(desk);
      } else if (desk.order == Order::kAlone && desk.fills) {
        GiveWhole(desk);
      }
    }
  }
  return QObject::eventFilter(watched, event);
}

void Desks::GiveWhole(Desk& desk) {
  desk.fills = true;
  desk.main->Give(area_.viewport()->rect());
}

void Desks::LayOut(Desk& desk) {
  const QRect space = desk.cell.value_or(area_.viewport()->rect());
  const auto analyses = AnalysesOf(desk);
  const DeskLayout layout =
      LayOutDesk({space.width(), space.height()}, ContentsOf(*desk.view, analyses));
  desk.main->Give(ToQRect(layout.main, space.topLeft()));
  for (const auto& [kind, window] : analyses) {
    window->SharePlace(layout.isPlaceShared);
    window->Give(ToQRect(PlaceIn(layout, kind), space.topLeft()));
  }
}

// The largest place that no window of the group covers: above, below or beside all of them.
QRect Desks::FreePlace(const Desk& desk, const DeskWindow& window) const {
  const QRect area = area_.viewport()->rect();
  QRect taken = desk.main->isMaximized() ? area : desk.main->geometry();
  QRect last = taken;
  for (const auto& [kind, other] : AnalysesOf(desk)) {
    if (other == &window) continue;
    last = other->geometry();
    taken |= last;
  }
  QRect best;
  for (const QRect& place : {QRect(QPoint(area.left(), taken.bottom() + 1), area.bottomRight()),
                             QRect(area.topLeft(), QPoint(area.right(), taken.top() - 1)),
                             QRect(QPoint(taken.right() + 1, area.top()), area.bottomRight()),
                             QRect(area.topLeft(), QPoint(taken.left() - 1, area.bottom()))}) {
    if (place.width() < kLeastFreePlace.width() || place.height() < kLeastFreePlace.height()) {
      continue;
    }
    if (best.isNull() || place.width() * place.height() > best.width() * best.height()) {
      best = place;
    }
  }
  if (!best.isNull()) return best;
  const QSize size(std::max(area.width() / 2, kLeastFreePlace.width()),
                   std::max(area.height() / 2, kLeastFreePlace.height()));
  return {last.topLeft() + QPoint(kFreeStep, kFreeStep), size};
}

void Desks::Arrange(const CSonadexView& view) {
  Desk* const desk = Find(view);
  if (desk == nullptr) return;
  desk->cell.reset();
  if (AnalysesOf(*desk).empty()) return GiveWhole(*desk);
  desk->fills = true;
  BeginArranging(*desk);
  for (const auto& [kind, window] : AnalysesOf(*desk)) window->ForgetChosenPlace();
  desk->main->ForgetChosenPlace();
  LayOut(*desk);
}

void Desks::Cascade() {
  const QRect area = area_.viewport()->rect();
  QPoint at = area.topLeft();
  for (Desk& desk : desks_) {
    desk.fills = false;
    desk.cell.reset();
    if (desk.order == Order::kArranged) desk.order = Order::kFree;
    for (DeskWindow* const window : WindowsOf(desk)) {
      const QRect place(at, area.size() * 2 / 3);
      window->Give(place);
      window->raise();
      at += QPoint(kStep, kStep);
      if (!area.contains(QRect(at, place.size()))) at = area.topLeft();
    }
  }
  Raise(area_.currentSubWindow());
}

void Desks::Tile() {
  const QRect area = area_.viewport()->rect();
  const int count = static_cast<int>(desks_.size());
  if (count == 0) return;
  int columns = 1;
  while (columns * columns < count) ++columns;
  const int rows = (count + columns - 1) / columns;
  const QSize cell(area.width() / columns, area.height() / rows);
  const bool isOneOnly =
      count > 1 && (cell.width() < kLeastCell.width() || cell.height() < kLeastCell.height());
  const Desk* const front = Active();
  for (int i = 0; i < count; ++i) {
    Desk& desk = desks_[static_cast<std::size_t>(i)];
    if (isOneOnly && &desk != front) {
      desk.main->showMinimized();
      continue;
    }
    const QPoint corner(i % columns * cell.width(), i / columns * cell.height());
    desk.cell = isOneOnly ? area : QRect(area.topLeft() + corner, cell);
    if (AnalysesOf(desk).empty()) {
      desk.main->Give(*desk.cell);
    } else {
      BeginArranging(desk);
      LayOut(desk);
    }
  }
  if (isOneOnly) ArrangeIcons();
}

void Desks::ArrangeIcons() {
  int left = 0;
  for (const Desk& desk : desks_) {
    if (!desk.main->isMinimized()) continue;
    desk.main->move(left, area_.viewport()->height() - desk.main->height());
    left += desk.main->width();
  }
}

// Order
void Desks::Raise(QMdiSubWindow* active) {
  const Desk* const desk = FindOf(active);
  if (desk == nullptr) return;
  desk->main->raise();
  const auto group = WindowsOf(*desk);
  for (QMdiSubWindow* const window : area_.subWindowList(QMdiArea::ActivationHistoryOrder)) {
    if (window != desk->main && window != active &&
        std::ranges::find(group, window) != group.end()) {
      window->raise();
    }
  }
  if (active != desk->main) active->raise();
}

void Desks::ActivateNext(int step) {
  const Desk* const desk = Active();
  if (desk == nullptr) return;
  const auto windows = WindowsOf(*desk);
  const auto at = std::ranges::find(windows, area_.currentSubWindow()) - windows.begin();
  const auto count = static_cast<std::ptrdiff_t>(windows.size());
  area_.setActiveSubWindow(windows[static_cast<std::size_t>((at + step + count) % count)]);
}

void Desks::ActivateNextDesk() {
  const Desk* const desk = Active();
  if (desk == nullptr) return;
  const auto next = static_cast<std::size_t>(desk - desks_.data() + 1) % desks_.size();
  const auto group = WindowsOf(desks_[next]);
  const auto history = area_.subWindowList(QMdiArea::ActivationHistoryOrder);
  for (auto window = history.rbegin(); window != history.rend(); ++window) {
    if (std::ranges::find(group, *window) != group.end()) {
      return area_.setActiveSubWindow(*window);
    }
  }
}

}  // namespace cantorix
