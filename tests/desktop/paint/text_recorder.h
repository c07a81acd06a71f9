// text_recorder.h - a paint device that notes the boxes of all texts that are drawn on it.
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <memory>
#include <string>
#include <vector>

namespace cantorix {

struct DrawnText {
  std::string text;
  QRectF box;  // in logical pixels, from ascent to descent
};

class TextRecorder : public QPaintDevice {
 public:
  TextRecorder(QSize size, double pixelRatio)
      : size_(size), pixelRatio_(pixelRatio), engine_(std::make_unique<Engine>(texts)) {}
  QPaintEngine* paintEngine() const override { return engine_.get(); }

  std::vector<DrawnText> texts;

 protected:
  int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
      case PdmWidth:
        return static_cast<int>(size_.width() * pixelRatio_);
      case PdmHeight:
        return static_cast<int>(size_.height() * pixelRatio_);
      case PdmDevicePixelRatio:
        return static_cast<int>(pixelRatio_);
      case PdmDevicePixelRatioScaled:
        return static_cast<int>(pixelRatio_ * devicePixelRatioFScale());
      case PdmDepth:
        return 32;
      default:
        return 96;
    }
  }

 private:
  class Engine : public QPaintEngine {
   public:
    explicit Engine(std::vector<DrawnText>& texts)
        : QPaintEngine(QPaintEngine::AllFeatures), texts_(texts) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {
    }
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
      const QRectF box(at.x(), at.y() - item.ascent(), item.width(),
                       item.ascent() + item.descent());
      texts_.push_back({item.text().toStdString(), painter()->transform().mapRect(box)});
    }
    Type type() const override { return User; }

   private:
    std::vector<DrawnText>& texts_;
  };

  QSize size_;
  double pixelRatio_;
  std::unique_ptr<Engine> engine_;
};

}  // namespace cantorix
