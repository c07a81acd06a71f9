// tool_bar_names.h - a name for the toolkit's own button at the end of a tool bar, behind which
// stands what does not fit: a screen reader finds it.
#pragma once

#include <QToolBar>
#include <QToolButton>

#include "desktop/paint/words.h"

namespace cantorix {

inline void NameExtension(QToolBar& bar) {
  auto* const button = bar.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
  if (button != nullptr) button->setAccessibleName(Tr("More"));
}

}  // namespace cantorix
