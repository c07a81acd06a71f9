// steady_icons.h - the user's style, which gives the same icon each time it is asked for one.
// Styles load an icon anew for every dialog of files and every message. Qt keeps what it draws of
// each for icons that never come back, and of the names under which it keeps them it forgets none:
// a program that is used for days would grow with every dialog.
#pragma once

#include <QIcon>
#include <QProxyStyle>
#include <map>
#include <utility>

namespace cantorix {

// For QApplication::setStyle; drawing and measures are those of the style that was chosen.
class SteadyIcons : public QProxyStyle {
 public:
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                     const QWidget* widget) const override;
  // A heading above files comes with an empty picture, another one each time: it is left out.
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;

 private:
  mutable std::map<std::pair<StandardPixmap, Qt::LayoutDirection>, QIcon> icons_;
};

}  // namespace cantorix
