// steady_icons.cpp - arrows differ with the direction of writing, nothing else with the widget.
#include "desktop/steady_icons.h"

#include <QFileSystemModel>
#include <QGuiApplication>
#include <QHeaderView>
#include <QStyleOption>

namespace cantorix {
namespace {

bool IsAboveFiles(const QWidget* widget) {
  const auto* const header = qobject_cast<const QHeaderView*>(widget);
  return header != nullptr && qobject_cast<const QFileSystemModel*>(header->model()) != nullptr;
}

}  // namespace

QIcon SteadyIcons::standardIcon(StandardPixmap which, const QStyleOption* option,
                                const QWidget* widget) const {
  const auto direction = option != nullptr ? option->direction : QGuiApplication::layoutDirection();
  QIcon& icon = icons_[{which, direction}];
  if (icon.isNull()) icon = QProxyStyle::standardIcon(which, option, widget);
  return icon;
}

void SteadyIcons::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  const auto* const heading = qstyleoption_cast<const QStyleOptionHeaderV2*>(option);
  if (element != CE_Header || heading == nullptr || !IsAboveFiles(widget)) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  QStyleOptionHeaderV2 plain = *heading;
  plain.icon = {};
  QProxyStyle::drawControl(element, &plain, painter, widget);
}

}  // namespace cantorix
