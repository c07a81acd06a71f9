// level_meter_view.h - a level as a bar from -60 dB to full scale: RMS, the peak over it, the peak
// held for a second as a line, a mark where good recordings stay below, and a lamp that stays lit
// once something was clipped. The texts beside it say the same.
#pragma once

#include <QWidget>
#include <optional>

#include "desktop/accessible_picture.h"
#include "mainview/sound_desk.h"

namespace cantorix {

class LevelMeterView : public QWidget, public AccessiblePicture {
 public:
  LevelMeterView(Qt::Orientation orientation, QWidget* parent);

  // Nothing: no sound is listened to.
  void Show(const std::optional<InputLevel>& level);

  QSize sizeHint() const override;

 protected:
  QString PictureValue() override { return accessibleDescription(); }
  void paintEvent(QPaintEvent* event) override;

 private:
  // The bar, growing to the right or upwards.
  QRectF Bar() const;
  QRectF Part(double fromDb, double toDb) const;
  void DrawScale(QPainter& painter);

  Qt::Orientation orientation_;
  std::optional<InputLevel> level_;
};

}  // namespace cantorix
