// drawing_recorder.h - a paint device that notes what is drawn on it: a line of text for each shape
// with its places, pen and brush, and the box of each text. Lengths are logical pixels.
#pragma once

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <memory>
#include <string>
#include <vector>

namespace cantorix {

struct DrawnText {
  std::string text;
  QRectF box;  // from ascent to descent
};

struct Drawing {
  QString shapes;  // a line for each
  std::vector<DrawnText> texts;
};

class DrawingRecorder : public QPaintDevice {
 public:
  explicit DrawingRecorder(QSize size, double pixelRatio = 1.0)
      : size_(size), pixelRatio_(pixelRatio), engine_(std::make_unique<Engine>(*this)) {}
  QPaintEngine* paintEngine() const override { return engine_.get(); }

  Drawing drawing;

 protected:
  int metric(PaintDeviceMetric metric) const override {
    if (metric == PdmWidth) return static_cast<int>(size_.width() * pixelRatio_);
    if (metric == PdmHeight) return static_cast<int>(size_.height() * pixelRatio_);
    if (metric == PdmDevicePixelRatio) return static_cast<int>(pixelRatio_);
    if (metric == PdmDevicePixelRatioScaled) {
      return static_cast<int>(pixelRatio_ * devicePixelRatioFScale());
    }
    return metric == PdmDepth ? 32 : 96;
  }

 private:
  static QString Places(const QPolygonF& points) {
    QString text;
    for (const QPointF& point : points)
      text += QString::asprintf(" %.1f,%.1f", point.x(), point.y());
    return text;
  }
  static QString Name(const QColor& color) {
    return ' ' + color.name(color.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb);
  }

  class Engine : public QPaintEngine {
   public:
    explicit Engine(DrawingRecorder& recorder)
        : QPaintEngine(QPaintEngine::AllFeatures), recorder_(recorder) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override {
      Flush();
      return true;
    }
    void updateState(const QPaintEngineState&) override {}
    Type type() const override { return User; }

    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawImage(const QRectF& at, const QImage& image, const QRectF&,
                   Qt::ImageConversionFlags) override {
      Note(QStringLiteral("image %1x%2").arg(image.width()).arg(image.height()), at);
    }
    void drawPath(const QPainterPath& path) override { Note("path", path.toFillPolygon()); }
    void drawEllipse(const QRectF& box) override { Note("dot", box); }
    void drawRects(const QRectF* boxes, int count) override {
      for (int i = 0; i < count; ++i) Note("box", boxes[i]);
    }
    void drawLines(const QLineF* lines, int count) override {
      QPolygonF ends;
      for (int i = 0; i < count; ++i) ends << lines[i].p1() << lines[i].p2();
      Note("lines", ends);
    }
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
      Note(mode == PolylineMode ? "curve" : "area", QPolygonF(QList(points, points + count)));
    }
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
      const QRectF box(at.x(), at.y() - item.ascent(), item.width(),
                       item.ascent() + item.descent());
      const QRectF seen = painter()->transform().mapRect(box);
      recorder_.drawing.texts.push_back({item.text().toStdString(), seen});
      const QFont font = item.font();
      Note(QString("text \"%1\" %2px").arg(item.text()).arg(font.pixelSize()) +
               (font.bold() ? " bold" : "") + (font.italic() ? " italic" : ""),
           box);
    }

   private:
    void Note(const QString& shape, const QRectF& box) {
      Note(shape, QPolygonF() << box.topLeft() << box.bottomRight());
    }
    void Note(const QString& shape, const QPolygonF& points) {
      NoteClip();
      const QString look = shape + Pen();
      if (look != look_) Flush();
      look_ = look;
      points_ << painter()->transform().map(points);
      const QBrush& brush = painter()->brush();
      const bool isFilled = shape == "box" || shape == "dot" || shape == "area" || shape == "path";
      if (!isFilled || brush == Qt::NoBrush) return;
      const QString fill = " fill" + Name(brush.color());
      if (!fills_.contains(fill)) fills_ << fill;
    }
    // Shapes of one look are one line; of many points only the ends, the box around them and their
    // sum.
    void Flush() {
      if (points_.isEmpty()) return;
      QString places = Places(points_);
      if (points_.size() > 4) {
        QPointF sum;
        for (const QPointF& point : points_) sum += point;
        const QRectF around = points_.boundingRect();
        places = QString(" %1 points").arg(points_.size()) +
                 Places({points_.front(), points_.back()}) + " within" +
                 Places({around.topLeft(), around.bottomRight()}) + " sum" + Places({sum});
      }
      recorder_.drawing.shapes += look_ + places + fills_.join("") + '\n';
      points_.clear();
      fills_.clear();
    }
    // A line of its own where the clip is another one.
    void NoteClip() {
      const QRectF clip = painter()->hasClipping() ? painter()->clipBoundingRect() : QRectF();
      if (clip == clip_) return;
      Flush();
      clip_ = clip;
      recorder_.drawing.shapes += "clip" + Places({clip.topLeft(), clip.bottomRight()}) + '\n';
    }
    QString Pen() const {
      const QPen pen = painter()->pen();
      QString look;
      if (pen.style() != Qt::NoPen)
        look = Name(pen.color()) + QString::asprintf(" %.1f", pen.widthF());
      if (pen.style() > Qt::SolidLine) look += pen.style() == Qt::DashLine ? " dashed" : " dotted";
      if (painter()->opacity() < 1.0) look += QString::asprintf(" %.2f", painter()->opacity());
      return look + (painter()->testRenderHint(QPainter::Antialiasing) ? " smooth" : "");
    }

    DrawingRecorder& recorder_;
    QRectF clip_;
    QString look_;
    QPolygonF points_;
    QStringList fills_;
  };

  QSize size_;
  double pixelRatio_;
  std::unique_ptr<Engine> engine_;
};

}  // namespace cantorix
