// pointer_status.cpp - labels that never make the window wider.
#include "desktop/pointer_status.h"

#include <QLabel>
#include <QStatusBar>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"

namespace cantorix {
namespace {

QLabel* NewText(QStatusBar& bar, const QString& name) {
  auto* const text = new QLabel(&bar);
  text->setTextFormat(Qt::PlainText);
  text->setAccessibleName(name);
  text->setContentsMargins(8, 0, 8, 0);
  text->setMinimumWidth(1);
  return text;
}

// What it shows is what a reader of the screen says of it, besides its name.
void Say(QLabel& label, const QString& text) {
  label.setText(text);
  label.setAccessibleDescription(text);
}

}  // namespace

PointerStatus::PointerStatus(QStatusBar& bar)
    : pointed_(NewText(bar, Tr("Under the pointer"))),
      stretch_(NewText(bar, Tr("Recording in front"))) {
  pointed_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  bar.addWidget(pointed_, 1);
  bar.insertPermanentWidget(1, stretch_);
}

void PointerStatus::ShowPointed(const std::string& text) { Say(*pointed_, Translated(text)); }

void PointerStatus::ShowStretch(const std::string& text) { Say(*stretch_, Translated(text)); }

}  // namespace cantorix
