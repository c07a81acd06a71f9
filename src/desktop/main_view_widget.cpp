// main_view_widget.cpp - input as calls of the view's functions.
#include "desktop/main_view_widget.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <optional>

#include "analysisview/pointed.h"
#include "analysisview/spoken.h"
#include "desktop/label_field.h"
#include "desktop/paint/empty_panes.h"
#include "desktop/paint/main_view_canvas.h"
#include "desktop/paint/picture_axis.h"
#include "desktop/paint/words.h"
#include "desktop/picture_keys.h"
#include "desktop/qt_text.h"
#include "desktop/sound/sound_keys.h"
#include "mainview/context_commands.h"
#include "mainview/document_waveform.h"
#include "mainview/label_entry_state.h"
#include "mainview/label_typing.h"
#include "mainview/listening.h"
#include "mainview/mouse.h"
#include "mainview/selection_edges.h"
#include "mainview/time_axis.h"
#include "mainview/view_commands.h"
#include "mainview/wheel_zoom.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

struct KeyScroll {
  bool vertical;
  ScrollRequest request;
};

std::optional<KeyScroll> ScrollOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return KeyScroll{false, ScrollRequest::kLineBack};
    case Qt::Key_Right:
      return KeyScroll{false, ScrollRequest::kLineForward};
    case Qt::Key_PageUp:
      return KeyScroll{false, ScrollRequest::kPageBack};
    case Qt::Key_PageDown:
      return KeyScroll{false, ScrollRequest::kPageForward};
    case Qt::Key_Up:
      return KeyScroll{true, ScrollRequest::kLineBack};
    case Qt::Key_Down:
      return KeyScroll{true, ScrollRequest::kLineForward};
    default:
      return std::nullopt;
  }
}

Snap SnapOf(const QMouseEvent& event) {
  return event.modifiers().testFlag(Qt::AltModifier) ? Snap::kOff : Snap::kOn;
}

// A pointer on the line between two pixels belongs to the one on its left and top.
std::int32_t Pixel(double coordinate) { return static_cast<std::int32_t>(std::floor(coordinate)); }

}  // namespace

MainViewWidget::MainViewWidget(CSonadexView& view, DocumentWaveform& waveform, FrameHost& host,
                               QWidget* parent)
    : QWidget(parent),
      AccessiblePicture(this),
      view_(&view),
      host_(host),
      canvas_(std::make_unique<MainViewCanvas>(view, waveform)),
      played_(*this, PlayCursor::Look::kPlayed, [this](double ms) { return PlaceOf(ms); }),
      pointed_(*this, PlayCursor::Look::kPointed, [this](double ms) { return PlaceOf(ms); }),
      field_(new LabelField([this](const auto& action) { Pass(action); },
                            [this] { return host_.phoneticChartShown(); }, this)) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(240, 160);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName(Tr("Recording"));
}

MainViewWidget::~MainViewWidget() = default;

void MainViewWidget::TakeSign(const std::string& sign) {
  if (field_->isVisible()) return field_->insert(Shown(sign));
  Pass([&](CSonadexView& view) { BeginTyping(view, sign); });
}

QString MainViewWidget::PictureValue() {
  return view_ == nullptr ? QString() : Translated(SpokenPlace(*view_));
}

std::vector<AccessiblePicture::Part> MainViewWidget::AccessibleParts() {
  std::vector<Part> parts;
  if (view_ == nullptr || !begun_) return parts;
  for (const SpokenPart& part : SpokenParts(*view_)) {
    const PixelRect& place = part.place;
    const QRect rect(place.left, place.top, place.right - place.left, place.bottom - place.top);
    parts.push_back({Translated(part.name), Translated(part.value), rect});
  }
  return parts;
}

void MainViewWidget::Refresh() {
  update();
  ValueChanged();
  if (view_ != nullptr && begun_) field_->Follow(*view_);
}

void MainViewWidget::LetGo() {
  field_->LetGo();
  canvas_.reset();
  view_ = nullptr;
}

void MainViewWidget::Pass(const std::function<void(CSonadexView&)>& action) {
  if (view_ == nullptr || !begun_) return;
  host_.Run(*view_, [&] { action(*view_); });
}

void MainViewWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!canvas_ || !begun_) return painter.fillRect(rect(), palette().window());
  const PaintStyle style = StyleFor(palette());
  canvas_->Paint(painter, style);
  DrawEmptyPanes(painter, *view_, style);
  pointed_.Draw(painter, style);
  played_.Draw(painter, style);
  if (hasFocus()) DrawFocusRing(painter, rect(), style);
}

std::optional<QLine> MainViewWidget::PlaceOf(double ms) const {
  if (view_ == nullptr || !begun_) return std::nullopt;
  const ViewLayout& layout = view_->layout;
  const AxisScale time = TimeAxisOf(view_->channel(), layout.axisWidth());
  const double x = time.X(ms);
  if (x < time.left || x > time.right()) return std::nullopt;
  return QLine(ColumnOf(x), 0, ColumnOf(x), layout.timeAxis.top - 1);
}

void MainViewWidget::resizeEvent(QResizeEvent*) {
  if (view_ != nullptr && begun_) view_->LayOut(ClientSize());
}

void MainViewWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPointF at = event->position();
  const auto press = event->modifiers() == Qt::ShiftModifier ? PressToExtend : PressMouse;
  Pass([&](CSonadexView& view) { press(view, Pixel(at.x()), Pixel(at.y())); });
}

void MainViewWidget::mouseMoveEvent(QMouseEvent* event) {
  const QPointF at = event->position();
  if (event->buttons() == Qt::NoButton) {
    ShowShape(at);
  } else {
    const Snap snap = SnapOf(*event);
    Pass([&](CSonadexView& view) { MoveMouse(view, Pixel(at.x()), Pixel(at.y()), snap); });
  }
  TellPointed(at);
}

// An edge of the selection can be pulled.
void MainViewWidget::ShowShape(const QPointF& at) {
  const bool onEdge =
      view_ != nullptr && begun_ && EdgeUnder(*view_, Pixel(at.x()), Pixel(at.y())).has_value();
  if (onEdge) return setCursor(Qt::SizeHorCursor);
  unsetCursor();
}

void MainViewWidget::leaveEvent(QEvent*) {
  if (view_ != nullptr) host_.PointedAt(*view_, std::nullopt);
}

// Samples that cannot be read have no value under the pointer; whoever uses them is told why.
void MainViewWidget::TellPointed(const QPointF& at) {
  if (view_ == nullptr || !begun_) return;
  std::optional<Pointed> pointed;
  try {
    pointed = PointedIn(*view_, Pixel(at.x()), Pixel(at.y()));
  } catch (const FileError&) {
    pointed.reset();
  }
  host_.PointedAt(*view_, pointed);
}

void MainViewWidget::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPointF at = event->position();
  const Snap snap = SnapOf(*event);
  Pass([&](CSonadexView& view) { ReleaseMouse(view, Pixel(at.x()), Pixel(at.y()), snap); });
}

// The second press of a double click is a press like any other; on a label it plays that, too.
void MainViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  mousePressEvent(event);
  if (event->button() == Qt::LeftButton) Pass(PlayPressedLabel);
}

void MainViewWidget::wheelEvent(QWheelEvent* event) {
  const QPoint steps = wheel_.Take(*event);
  event->accept();
  TurnSteps(*event, steps.y());
  // A wheel that turns sideways moves the picture the way it turns.
  for (int i = 0; i < std::abs(steps.x()); ++i) {
    Pass([&](CSonadexView& view) {
      ScrollView(view, steps.x() > 0 ? ScrollRequest::kLineBack : ScrollRequest::kLineForward);
    });
  }
}

// Alone, the wheel scrolls through the recording; with Ctrl it zooms at the pointer, with Shift it
// scrolls tiers and panes.
void MainViewWidget::TurnSteps(QWheelEvent& event, int steps) {
  if (steps == 0) return;
  const int direction = steps > 0 ? 1 : -1;
  Pass([&](CSonadexView& view) {
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
      return ZoomViewAround(view, Pixel(event.position().x()), steps);
    }
    for (int i = 0; i != steps; i += direction) {
      if (event.modifiers().testFlag(Qt::ShiftModifier)) {
        ScrollViewVertically(
            view, direction > 0 ? ScrollRequest::kLineBack : ScrollRequest::kLineForward);
      } else {
        TurnWheel(view, direction);
      }
    }
  });
}

void MainViewWidget::keyPressEvent(QKeyEvent* event) {
  if (const auto sound = SoundKey(*event)) return Pass(*sound);
  if (BeginsLabel(*event)) return;
  const auto scroll = ScrollOf(event->key());
  const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
  if (!scroll || modifiers != Qt::NoModifier) return PassKey(*event);
  Pass([&](CSonadexView& view) {
    if (scroll->vertical) {
      ScrollViewVertically(view, scroll->request);
    } else {
      ScrollView(view, scroll->request);
    }
  });
}

bool MainViewWidget::BeginsLabel(const QKeyEvent& event) {
  constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  const QString text = event.text();
  if (view_ == nullptr || !view_->labelEntry.enabled || (event.modifiers() & kCommands) ||
      text.isEmpty() || !text.front().isPrint()) {
    return false;
  }
  Pass([&](CSonadexView& view) { BeginTyping(view, Typed(text)); });
  return true;
}

void MainViewWidget::PassKey(QKeyEvent& event) {
  if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier) {
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
    return contextMenuEvent(&asked);
  }
  if (const PictureKey* const key = PictureKeyOf(event)) return Pass(key->act);
  if (const auto command = PictureCommandOf(event)) return host_.Perform(*command);
  QWidget::keyPressEvent(&event);
}

void MainViewWidget::ShowMenu(const QPoint& at) {
  Pass([&](CSonadexView& view) {
    if (!KeepTyping(view)) return;
    host_.ShowContextMenu(ContextCommands(view, at.x(), at.y()), mapToGlobal(at));
  });
}

void MainViewWidget::contextMenuEvent(QContextMenuEvent* event) {
  if (view_ == nullptr || !begun_) return;
  if (event->reason() != QContextMenuEvent::Keyboard) return ShowMenu(event->pos());
  const PixelPoint at = ContextPoint(*view_);
  ShowMenu({at.x, at.y});
}

// Tab is a key of the picture like any other.
bool MainViewWidget::event(QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::event(event);
  keyPressEvent(static_cast<QKeyEvent*>(event));
  return event->isAccepted();
}

}  // namespace cantorix
