// hint_line.cpp - sign, sentence and buttons in the colours of hints.
#include "desktop/windows/hint_line.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <utility>

#include "desktop/paint/words.h"

namespace cantorix {
namespace {

constexpr int kHeight = 26;
constexpr const char* kSign = "\u26a0 ";

struct Colours {
  QColor text, ground;
};
// Contrast 9.0 and 10.3 to 1.
Colours ColoursFor(const QPalette& palette) {
  const bool dark =
      palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
  if (dark) return {QColor(0xff, 0xe0, 0xa3), QColor(0x3a, 0x2f, 0x14)};
  return {QColor(0x5c, 0x3d, 0x00), QColor(0xff, 0xf4, 0xd6)};
}

}  // namespace

HintLine::HintLine(Answers answers, QWidget* parent)
    : QWidget(parent), text_(new QLabel(this)), use_(new QToolButton(this)) {
  setObjectName(QStringLiteral("hint"));
  setFixedHeight(kHeight);
  setAutoFillBackground(true);
  auto* const close = new QToolButton(this);
  close->setText(QStringLiteral("\u00d7"));
  close->setAccessibleName(Tr("Close the hint"));
  close->setToolTip(Tr("No more hints beside this recording"));
  for (QToolButton* const button : {use_, close}) button->setFocusPolicy(Qt::TabFocus);
  use_->setToolTip(Tr("Use the usual value in this document"));
  connect(use_, &QToolButton::clicked, this, std::move(answers.use));
  connect(close, &QToolButton::clicked, this, std::move(answers.close));
  // A narrow window cuts the sentence, which the tooltip has whole.
  text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  text_->setTextFormat(Qt::PlainText);
  auto* const line = new QHBoxLayout(this);
  line->setContentsMargins(6, 1, 4, 1);
  line->setSpacing(6);
  line->addWidget(text_, 1);
  line->addWidget(use_);
  line->addWidget(close);
  TakeColours();
  hide();
}

void HintLine::Say(const QString& text, const QString& use) {
  if (!text.isEmpty()) {
    text_->setText(QString::fromUtf8(kSign) + text);
    text_->setToolTip(text);
    text_->setAccessibleName(text);
    use_->setText(use);
  }
  setVisible(!text.isEmpty());
}

// The layout counts the sentence for nothing, because it may be cut.
int HintLine::NeededWidth() const {
  return layout()->sizeHint().width() + text_->sizeHint().width();
}

void HintLine::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !isColouring_) TakeColours();
}

// The change that this makes itself comes back as an event.
void HintLine::TakeColours() {
  isColouring_ = true;
  const Colours colours = ColoursFor(parentWidget()->palette());
  QPalette own = palette();
  own.setColor(QPalette::Window, colours.ground);
  own.setColor(QPalette::WindowText, colours.text);
  setPalette(own);
  isColouring_ = false;
}

}  // namespace cantorix
