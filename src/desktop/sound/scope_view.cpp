// scope_view.cpp - the kept image on the screen, and the texts around it.
#include "desktop/sound/scope_view.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "desktop/sound/level_meter_view.h"
#include "mainview/sound_texts.h"

namespace cantorix {
namespace {

QString StateText(const SoundDesk& desk, const std::optional<InputLevel>& level) {
  if (!level) {
    const std::string failure = desk.watchFailure();
    return failure.empty() ? Tr("Nothing is heard.") : Translated(failure);
  }
  const QString rate = QStringLiteral("%1 Hz").arg(level->rateHz);
  if (desk.isRecording()) return Tr("Recording at %1").arg(rate);
  return Tr("Listening at %1; nothing is recorded.").arg(rate);
}

}  // namespace

ScopeCanvas::ScopeCanvas(QWidget* parent) : QWidget(parent) {
  setMinimumSize(200, 80);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName(Tr("Trace of the sound input"));
}

void ScopeCanvas::SetRate(std::uint32_t rateHz) {
  if (rateHz == rateHz_) return;
  rateHz_ = rateHz;
  pacer_ = TracePacer(rateHz);
  Begin();
}

void ScopeCanvas::Begin() {
  trace_.Begin(size(), devicePixelRatioF(), StyleFor(palette()));
  trace_.SetRate(rateHz_);
  update();
}

void ScopeCanvas::Advance(double nowMs) {
  if (trace_.image().devicePixelRatio() != devicePixelRatioF()) Begin();
  const QRegion changed = trace_.Draw(pacer_.Due(nowMs));
  if (!changed.isEmpty()) update(changed);
}

void ScopeCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.drawImage(QPointF(0.0, 0.0), trace_.image());
}

void ScopeCanvas::resizeEvent(QResizeEvent*) { Begin(); }

void ScopeCanvas::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) Begin();
  QWidget::changeEvent(event);
}

CScopeView::CScopeView(QWidget* parent)
    : QWidget(parent),
      state_(new QLabel(this)),
      canvas_(new ScopeCanvas(this)),
      meter_(new LevelMeterView(Qt::Vertical, this)),
      level_(new QLabel(this)) {
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(8, 6, 8, 6);
  grid->addWidget(state_, 0, 0, 1, 2);
  grid->addWidget(canvas_, 1, 0);
  grid->addWidget(meter_, 1, 1);
  grid->addWidget(level_, 2, 0, 1, 2);
  grid->setRowStretch(1, 1);
  for (QLabel* const label : {state_, level_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
}

void CScopeView::ShowLevel(const SoundDesk& desk) {
  const auto level = desk.inputLevel();
  if (level) canvas_->SetRate(level->rateHz);
  state_->setText(StateText(desk, level));
  meter_->Show(level);
  level_->setText(level ? Translated(PeakText(level->reading) + "     " + RmsText(level->reading) +
                                     "     " + ClippedText(*level))
                        : QStringLiteral(" "));
}

}  // namespace cantorix
