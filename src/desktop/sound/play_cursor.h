// play_cursor.h - the line where a recording sounds now, or where the pointer is, over a picture
// that stays as it is: only the columns that it leaves and enters are painted again.
#pragma once

#include <QPainter>
#include <QRect>
#include <cmath>
#include <functional>
#include <optional>

#include "desktop/paint/paint_style.h"

class QWidget;

namespace cantorix {

// In logical pixels of the picture; bottom is just outside.
struct PlayPlace {
  int x = 0;
  int top = 0;
  int bottom = 0;
};

// The column of a place on an axis. A time that was read from a column has lost its last digits.
inline int ColumnOf(double x) { return static_cast<int>(std::floor(x + 1e-6)); }

class PlayCursor {
 public:
  // Where a time stands in the picture now; nothing for one that is not in sight.
  using PlaceOf = std::function<std::optional<PlayPlace>(double ms)>;

  enum class Look { kPlayed, kPointed };

  // `canvas` holds the cursor.
  PlayCursor(QWidget& canvas, Look look, PlaceOf placeOf)
      : canvas_(canvas), look_(look), placeOf_(std::move(placeOf)) {}

  // Nothing: takes it away.
  void Show(std::optional<double> ms);
  // To be called at the end of every paint event.
  void Draw(QPainter& painter, const PaintStyle& style);

 private:
  std::optional<PlayPlace> Place() const { return ms_ ? placeOf_(*ms_) : std::nullopt; }

  QWidget& canvas_;
  Look look_;
  PlaceOf placeOf_;
  std::optional<double> ms_;
  QRect shown_;  // empty while it is not in sight
};

}  // namespace cantorix
