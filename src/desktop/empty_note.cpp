// empty_note.cpp - a label and buttons, as wide as there is room.
#include "desktop/empty_note.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace cantorix {
namespace {

constexpr int kFontPixels = 13;
constexpr int kMargin = 12;  // pixels, around and inside
constexpr int kMostWidth = 520;

}  // namespace

EmptyNote::EmptyNote(QWidget& over)
    : QFrame(&over), over_(over), text_(new QLabel(this)), column_(new QVBoxLayout(this)) {
  QFont font = this->font();
  font.setPixelSize(kFontPixels);
  setFont(font);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Window);
  setForegroundRole(QPalette::WindowText);
  column_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setAlignment(Qt::AlignCenter);
  column_->addWidget(text_);
  over.installEventFilter(this);
  hide();
}

void EmptyNote::Say(const QString& text) {
  text_->setText(text);
  Place();
}

void EmptyNote::AddButton(const QString& text, const std::function<void()>& act) {
  auto* const button = new QPushButton(QString(text).replace('&', "&&"), this);
  button->setAutoDefault(true);
  connect(button, &QPushButton::clicked, this, act);
  column_->addWidget(button);
  buttons_.push_back(button);
  Place();
}

// One of them may be the one whose click leads here.
void EmptyNote::RemoveButtons() {
  for (QPushButton* const button : buttons_) {
    button->hide();
    button->deleteLater();
  }
  buttons_.clear();
}

void EmptyNote::ShowWhen(bool isEmpty) {
  setVisible(isEmpty);
  if (isEmpty) Place();
}

bool EmptyNote::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &over_ && event->type() == QEvent::Resize) Place();
  return QFrame::eventFilter(watched, event);
}

void EmptyNote::Place() {
  const int line = text_->fontMetrics().horizontalAdvance(text_->text()) + 4 * kMargin;
  const int room = over_.width() - 2 * kMargin;
  setFixedWidth(std::max(std::min({std::max(line, 240), kMostWidth, room}), 1));
  const int height =
      std::min(heightForWidth(width()) > 0 ? heightForWidth(width()) : sizeHint().height(),
               std::max(over_.height() - 2, 1));
  resize(width(), height);
  move((over_.width() - width()) / 2, (over_.height() - height) / 2);
}

}  // namespace cantorix
