// status_window.cpp - text, bar and place of the window.
#include "desktop/status_window.h"

#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "desktop/paint/words.h"

namespace cantorix {
namespace {

constexpr int kLeastWidth = 360;  // logical pixels
constexpr double kPercent = 100.0;

}  // namespace

CStatusWindow::CStatusWindow(QWidget* owner)
    : QFrame(owner, Qt::Tool | Qt::FramelessWindowHint),
      owner_(owner),
      text_(new QLabel(this)),
      bar_(new QProgressBar(this)) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  setMinimumWidth(kLeastWidth);
  text_->setTextFormat(Qt::PlainText);
  bar_->setTextVisible(false);
  bar_->setAccessibleName(Tr("Progress"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(16, 12, 16, 14);
  column->addWidget(text_);
  column->addWidget(bar_);
}

void CStatusWindow::ShowText(const QString& text, double totalUnits) {
  totalUnits_ = std::isfinite(totalUnits) && totalUnits > 0.0 ? totalUnits : 0.0;
  text_->setText(text);
  bar_->setValue(0);
  adjustSize();
  CentreOverOwner();
  show();
}

void CStatusWindow::SetDone(double doneUnits) {
  if (totalUnits_ <= 0.0 || !std::isfinite(doneUnits)) return;
  bar_->setValue(static_cast<int>(std::clamp(doneUnits / totalUnits_, 0.0, 1.0) * kPercent));
}

QString CStatusWindow::Text() const { return text_->text(); }
int CStatusWindow::Percent() const { return bar_->value(); }

void CStatusWindow::CentreOverOwner() {
  const bool over = owner_ != nullptr && owner_->isVisible();
  const QRect place =
      over ? owner_->frameGeometry() : QGuiApplication::primaryScreen()->availableGeometry();
  move(place.center() - rect().center());
}

}  // namespace cantorix
