// play_cursor.h - the line where a recording sounds now, or where the pointer is, over a picture
// that stays as it is: only the pixels that it leaves and enters are painted again.
#pragma once

#include <QLine>
#include <QPainter>
#include <QRect>
#include <cmath>
#include <functional>
#include <optional>

#include "desktop/paint/paint_style.h"

class QWidget;

namespace cantorix {

// The column of a place on an axis. A time that was read from a column has lost its last digits.
inline int ColumnOf(double x) { return static_cast<int>(std::floor(x + 1e-6)); }

class PlayCursor {
 public:
  // Where a time or a frequency stands in the picture now, in logical pixels from the first to the
  // last; nothing for one that is not in sight.
  using PlaceOf = std::function<std::optional<QLine>(double value)>;

  enum class Look { kPlayed, kPointed };

  // `canvas` holds the cursor.
  PlayCursor(QWidget& canvas, Look look, PlaceOf placeOf)
      : canvas_(canvas), look_(look), placeOf_(std::move(placeOf)) {}

  // Nothing: takes it away.
  void Show(std::optional<double> value);
  // To be called at the end of every paint event.
  void Draw(QPainter& painter, const PaintStyle& style);

 private:
  std::optional<QLine> Place() const { return value_ ? placeOf_(*value_) : std::nullopt; }

  QWidget& canvas_;
  Look look_;
  PlaceOf placeOf_;
  std::optional<double> value_;
  QRect shown_;  // empty while it is not in sight
};

}  // namespace cantorix
