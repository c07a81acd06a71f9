// analysis_canvas.cpp - events of the toolkit as calls of the model.
#include "desktop/windows/analysis_canvas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

#include "analysisview/spoken.h"
#include "analysisview/window_wheel.h"
#include "desktop/paint/paint_style.h"
#include "desktop/paint/picture_axis.h"
#include "desktop/paint/words.h"
#include "desktop/picture_keys.h"
#include "desktop/sound/sound_keys.h"
#include "mainview/label_moves.h"

namespace cantorix {
namespace {

constexpr int kFastStep = 10;  // pixels, with Shift

// A pointer on the line between two pixels belongs to the one on its right and bottom.
std::int32_t Pixel(double coordinate) { return static_cast<std::int32_t>(std::floor(coordinate)); }

// To the right and upward; null for another key.
QPoint StepOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return {-1, 0};
    case Qt::Key_Right:
      return {1, 0};
    case Qt::Key_Up:
      return {0, 1};
    case Qt::Key_Down:
      return {0, -1};
    default:
      return {};
  }
}

}  // namespace

QString TextOfReadouts(const AnalysisWindow& model) {
  QStringList pairs;
  for (const WindowReadout& readout : model.Readouts()) {
    pairs << QString::fromStdString(readout.label + ' ' + readout.value);
  }
  return pairs.join('\t');
}

AnalysisCanvas::AnalysisCanvas(AnalysisWindow& model, WindowPicture& picture, Guard guard,
                               QWidget* parent)
    : QWidget(parent),
      AccessiblePicture(this),
      model_(model),
      picture_(picture),
      guard_(std::move(guard)),
      note_(new EmptyNote(*this, EmptyNote::At::kTop)),
      played_(*this, PlayCursor::Look::kPlayed,
              [this](double ms) { return picture_.PlaceOf(size(), ms); }),
      pointed_(*this, PlayCursor::Look::kPointed,
               [this](double ms) { return picture_.PlaceOf(size(), ms); }),
      pointedHz_(*this, PlayCursor::Look::kPointed,
                 [this](double hz) { return picture_.PlaceOfHz(size(), hz); }) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(220, 120);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void AnalysisCanvas::Refresh(const PictureNote& note) {
  setAccessibleDescription(TextOfReadouts(model_));
  if (note.text != note_->text()) {
    note_->Say(note.text);
    note_->RemoveButtons();
    if (note.act) note_->AddButton(note.button, note.act);
  }
  note_->ShowWhen(!note.text.isEmpty());
  update();
  ValueChanged();
}

// A note that stands over the picture says why there is none.
QString AnalysisCanvas::PictureValue() {
  return note_->isHidden() ? Translated(SpokenPicture(model_)) : note_->text();
}

void AnalysisCanvas::LayOut() {
  picture_.LayOut(size());
  const PixelRect& plot = model_.plot;
  if (model_.kind() == WindowKind::kPitch) return;
  // A spectrogram has a level for each pixel of the screen; a spectrum is a curve of points, which
  // is sharp on any.
  const double ratio = model_.kind() == WindowKind::kSpectrogram ? devicePixelRatioF() : 1.0;
  const auto pixels = [ratio](int logical) {
    return std::max(static_cast<int>(std::lround(logical * ratio)), 1);
  };
  model_.WantSize({pixels(plot.right - plot.left), pixels(plot.bottom - plot.top)});
}

void AnalysisCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const PaintStyle style = StyleFor(palette());
  try {
    picture_.PaintCanvas(painter, size(), style);
    pointed_.Draw(painter, style);
    pointedHz_.Draw(painter, style);
    played_.Draw(painter, style);
    if (hasFocus()) DrawFocusRing(painter, rect(), style);
  } catch (const std::exception& error) {
    painter.fillRect(rect(), style.background);
    painter.setPen(style.text);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, QString::fromUtf8(error.what()));
  }
}

void AnalysisCanvas::resizeEvent(QResizeEvent*) { LayOut(); }

void AnalysisCanvas::PassPointer(const QMouseEvent& event, MousePhase phase) {
  const std::int32_t x = Pixel(event.position().x());
  const std::int32_t y = Pixel(event.position().y());
  guard_([&] {
    switch (phase) {
      case MousePhase::kPress:
        return model_.Press(x, y);
      case MousePhase::kMove:
        return model_.Move(x, y);
      case MousePhase::kRelease:
        return model_.Release(x, y);
    }
  });
}

void AnalysisCanvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) PassPointer(*event, MousePhase::kPress);
}

void AnalysisCanvas::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() != Qt::NoButton) PassPointer(*event, MousePhase::kMove);
  if (!pointedAt) return;
  pointedAt(PointedIn(model_, Pixel(event->position().x()), Pixel(event->position().y())));
}

void AnalysisCanvas::ShowPointed(const std::optional<Pointed>& pointed) {
  pointed_.Show(pointed ? pointed->ms : std::nullopt);
  pointedHz_.Show(pointed ? pointed->hz : std::nullopt);
  SayPointed(pointed ? Translated(pointed->text) : QString());
}

// As in the main view: alone it scrolls, with Ctrl it zooms at the pointer.
void AnalysisCanvas::wheelEvent(QWheelEvent* event) {
  const QPoint steps = wheel_.Take(*event);
  event->accept();
  const PixelRect& plot = model_.plot;
  const double place = (event->position().x() - plot.left) / std::max(plot.right - plot.left, 1);
  guard_([&] {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
      return ZoomByWheel(model_, std::clamp(place, 0.0, 1.0), steps.y());
    }
    ScrollByWheel(model_, steps.x() + steps.y());
  });
}

void AnalysisCanvas::leaveEvent(QEvent*) {
  if (pointedAt) pointedAt(std::nullopt);
}

void AnalysisCanvas::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) PassPointer(*event, MousePhase::kRelease);
}

// The second press of a double click is a press like any other.
void AnalysisCanvas::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void AnalysisCanvas::keyPressEvent(QKeyEvent* event) {
  CSonadexView* const view = model_.mainView();
  if (const auto sound = SoundKey(*event); sound && view != nullptr) {
    return guard_([&] { (*sound)(*view); });
  }
  const QPoint step = StepOf(event->key());
  const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool fast = modifiers == Qt::ShiftModifier;
  if (step.isNull() || (modifiers != Qt::NoModifier && !fast)) return PassKey(*event);
  const QPoint pixels = step * (fast ? kFastStep : 1);
  guard_([&] { model_.StepCursor(pixels.x(), pixels.y()); });
}

// Tab goes from label to label, and behind the last one to the next widget of the window.
bool AnalysisCanvas::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && GoesToLabel(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QWidget::event(event);
}

bool AnalysisCanvas::GoesToLabel(const QKeyEvent& event) {
  CSonadexView* const view = model_.mainView();
  const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
  if (!isTab || view == nullptr || event.modifiers().testFlag(Qt::ControlModifier)) return false;
  bool moved = false;
  guard_([&] { moved = StepLabel(*view, event.key() == Qt::Key_Tab ? 1 : -1); });
  return moved;
}

// The keys of the recording work in all its windows.
void AnalysisCanvas::PassKey(QKeyEvent& event) {
  CSonadexView* const view = model_.mainView();
  if (const PictureKey* const key = PictureKeyOf(event); key != nullptr && view != nullptr) {
    return guard_([&] { key->act(*view); });
  }
  if (const auto command = PictureCommandOf(event); command && perform) return perform(*command);
  QWidget::keyPressEvent(&event);
}

}  // namespace cantorix
