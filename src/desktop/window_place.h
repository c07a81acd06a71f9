// window_place.h - the place of a window as the settings keep it.
#pragma once

#include <QRect>
#include <optional>

#include "settings/settings.h"

namespace cantorix {

inline WindowPlacement PlacementOf(const QRect& place) {
  return {place.x(), place.y(), place.width(), place.height()};
}

// Nothing where the settings name the default place.
inline std::optional<QRect> PlaceOf(const WindowPlacement& stored) {
  if (stored.width <= 0 || stored.height <= 0) return std::nullopt;
  return QRect(stored.x, stored.y, stored.width, stored.height);
}

}  // namespace cantorix
