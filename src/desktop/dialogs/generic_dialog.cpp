// generic_dialog.cpp - the table of options with the preview beside it.
#include "desktop/dialogs/generic_dialog.h"

#include <QAbstractButton>
#include <QFormLayout>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <utility>

#include "desktop/paint/paint_style.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr int kHeight = 120;
constexpr double kFullScale = 32768.0;

// Two lines, whatever they say, so that the dialog keeps its size.
QString TextOf(const GenericOutcome& outcome) {
  if (!outcome.problem.empty()) return Translated(outcome.problem) + '\n';
  return Tr("Duration: %1 ms\nLength: %2 samples")
      .arg(Shown(FormatOneDecimal(outcome.durationMs)))
      .arg(outcome.samples);
}

}  // namespace

OutcomeView::OutcomeView(QWidget* parent) : QWidget(parent) {
  setFixedSize(kColumns, kHeight);
  setAccessibleName(Tr("Waveform"));
}

void OutcomeView::Show(GenericOutcome outcome) {
  outcome_ = std::move(outcome);
  setAccessibleDescription(TextOf(outcome_));
  update();
}

void OutcomeView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const PaintStyle style = StyleFor(palette());
  painter.fillRect(rect(), style.pane);
  const double middle = height() / 2.0;
  const auto yOf = [&](int sample) { return middle - sample / kFullScale * middle; };
  painter.setPen(style.zeroLine);
  painter.drawLine(QPointF(0.0, middle), QPointF(width(), middle));
  painter.setPen(style.waveform);
  const auto columns = static_cast<double>(outcome_.waveform.size());
  QPointF last;
  for (std::size_t i = 0; i < outcome_.waveform.size(); ++i) {
    const auto& [low, high] = outcome_.waveform[i];
    const double x = (static_cast<double>(i) + 0.5) * width() / columns;
    if (i > 0) painter.drawLine(last, QPointF(x, yOf(low)));
    painter.drawLine(QPointF(x, yOf(low)), QPointF(x, yOf(high)));
    last = QPointF(x, yOf(high));
  }
}

GenericDialog::GenericDialog(Prompts& prompts, const GenericParameters& preset,
                             GenericPreview& preview, QWidget* parent)
    : OptionDialog(prompts, GenericForm(), {preset}, parent),
      preview_(preview),
      view_(new OutcomeView(this)),
      text_(new QLabel(this)) {
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setFixedWidth(OutcomeView::kColumns);
  BeginColumn();
  QFormLayout* const form = AddGroup(Tr("Preview"));
  form->addRow(view_);
  form->addRow(text_);
  // What is typed or clicked in one go is shown once.
  auto* const pause = new QTimer(this);
  pause->setSingleShot(true);
  connect(pause, &QTimer::timeout, this, [this] { Refresh(); });
  const auto later = [pause] { pause->start(0); };
  for (auto* const field : findChildren<QLineEdit*>()) {
    connect(field, &QLineEdit::textChanged, this, later);
  }
  for (auto* const button : findChildren<QAbstractButton*>()) {
    connect(button, &QAbstractButton::toggled, this, later);
  }
  Refresh();
}

void GenericDialog::Refresh() {
  const GenericOutcome outcome = preview_.Try(Entered(), OutcomeView::kColumns);
  text_->setText(TextOf(outcome));
  view_->Show(outcome);
}

}  // namespace cantorix
