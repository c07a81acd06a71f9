// empty_note.cpp - a label and buttons, as wide as there is room.
#include "desktop/empty_note.h"

#include <QAbstractScrollArea>
#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

namespace cantorix {
namespace {

constexpr int kFontPixels = 13;
constexpr int kMargin = 12;  // pixels, around and inside
constexpr int kLeastWidth = 240;
constexpr int kMostWidth = 600;
constexpr int kMostLine = 900;  // of text and buttons beside each other

QWidget& RoomOf(QWidget& over) {
  const auto* const scrolled = qobject_cast<QAbstractScrollArea*>(&over);
  return scrolled ? *scrolled->viewport() : over;
}

}  // namespace

EmptyNote::EmptyNote(QWidget& over, At at)
    : QFrame(&over),
      room_(RoomOf(over)),
      at_(at),
      text_(new QLabel(this)),
      parts_(new QBoxLayout(at == At::kTop ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom,
                            this)) {
  QFont font = this->font();
  font.setPixelSize(kFontPixels);
  setFont(font);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Window);
  setForegroundRole(QPalette::WindowText);
  const int edge = at == At::kTop ? kMargin / 3 : kMargin;
  parts_->setContentsMargins(kMargin, edge, kMargin, edge);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setAlignment(Qt::AlignCenter);
  parts_->addWidget(text_, at == At::kTop ? 1 : 0);
  room_.installEventFilter(this);
  hide();
}

void EmptyNote::Say(const QString& text) {
  text_->setText(text);
  Place();
}

QString EmptyNote::text() const { return text_->text(); }

void EmptyNote::AddButton(const QString& text, const std::function<void()>& act) {
  auto* const button = new QPushButton(QString(text).replace('&', "&&"), this);
  button->setAutoDefault(true);
  connect(button, &QPushButton::clicked, this, act);
  parts_->addWidget(button);
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
  if (watched == &room_ && event->type() == QEvent::Resize) Place();
  return QFrame::eventFilter(watched, event);
}

void EmptyNote::Place() {
  int line = text_->fontMetrics().horizontalAdvance(text_->text()) + 4 * kMargin;
  if (at_ == At::kTop) {
    for (const QPushButton* const button : buttons_) line += button->sizeHint().width() + kMargin;
  }
  const int most = at_ == At::kTop ? kMostLine : kMostWidth;
  const int room = room_.width() - 2 * kMargin;
  setFixedWidth(std::max(std::min({std::max(line, kLeastWidth), most, room}), 1));
  const int height =
      std::min(heightForWidth(width()) > 0 ? heightForWidth(width()) : sizeHint().height(),
               std::max(room_.height() - 2, 1));
  resize(width(), height);
  // What scrolls in a viewport would take a child of it along.
  const QPoint corner = &room_ == parentWidget() ? QPoint() : room_.pos();
  move(corner + QPoint((room_.width() - width()) / 2,
                       at_ == At::kTop ? kMargin : (room_.height() - height) / 2));
}

}  // namespace cantorix
