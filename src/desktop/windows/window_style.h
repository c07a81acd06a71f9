// window_style.h - the style of pictures in windows of a palette.
#pragma once

#include <QPalette>

#include "desktop/paint/paint_style.h"

namespace cantorix {

inline PaintStyle StyleFor(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Window).lightness() < 128;
  return StyleOf(dark ? PaletteKind::kDark : PaletteKind::kLight);
}

}  // namespace cantorix
