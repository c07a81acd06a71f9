// picture_export.cpp - every format is encoded in memory, then put in place as a whole.
#include "desktop/paint/picture_export.h"

#include <QBuffer>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <span>

#include "platform/file_error.h"
#include "platform/safe_file.h"

namespace cantorix {
namespace {

constexpr int kPdfDotsPerInch = 600;
constexpr double kPixelsPerInch = 96.0;  // of logical pixels
constexpr double kPointsPerInch = 72.0;

struct Format {
  const char* ending;
  void (*encode)(QBuffer&, QSize, double, const PaintPicture&);
};

void EncodeImage(QBuffer& buffer, QSize size, double pixelRatio, const PaintPicture& paint,
                 const char* format) {
  QImage image(QSize(static_cast<int>(std::lround(size.width() * pixelRatio)),
                     static_cast<int>(std::lround(size.height() * pixelRatio))),
               QImage::Format_RGB32);
  if (image.isNull()) throw FileError("The picture is too large.");
  image.setDevicePixelRatio(pixelRatio);
  image.fill(Qt::white);
  QPainter painter(&image);
  paint(painter);
  painter.end();
  if (!image.save(&buffer, format)) throw FileError("The picture could not be encoded.");
}

void EncodePng(QBuffer& buffer, QSize size, double pixelRatio, const PaintPicture& paint) {
  EncodeImage(buffer, size, pixelRatio, paint, "PNG");
}

void EncodeBmp(QBuffer& buffer, QSize size, double pixelRatio, const PaintPicture& paint) {
  EncodeImage(buffer, size, pixelRatio, paint, "BMP");
}

void EncodeSvg(QBuffer& buffer, QSize size, double, const PaintPicture& paint) {
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(static_cast<int>(kPixelsPerInch));
  generator.setSize(size);
  generator.setViewBox(QRect(QPoint(0, 0), size));
  PaintOnto(generator, QRectF(QPointF(0.0, 0.0), size), size, paint);
}

void EncodePdf(QBuffer& buffer, QSize size, double, const PaintPicture& paint) {
  QPdfWriter writer(&buffer);
  writer.setResolution(kPdfDotsPerInch);
  const QSizeF points = QSizeF(size) * (kPointsPerInch / kPixelsPerInch);
  writer.setPageSize(QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  const double scale = kPdfDotsPerInch / kPixelsPerInch;
  PaintOnto(writer, QRectF(QPointF(0.0, 0.0), QSizeF(size) * scale), size, paint);
}

constexpr std::array<Format, 4> kFormats{
    {{".png", EncodePng}, {".bmp", EncodeBmp}, {".svg", EncodeSvg}, {".pdf", EncodePdf}}};

const Format* FormatOf(const std::string& path) {
  std::string lower(path);
  std::ranges::transform(lower, lower.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  const auto found =
      std::ranges::find_if(kFormats, [&](const Format& f) { return lower.ends_with(f.ending); });
  return found == kFormats.end() ? nullptr : &*found;
}

}  // namespace

bool NamesPicture(const std::string& path) { return FormatOf(path) != nullptr; }

void ExportPicture(const std::string& path, QSize size, double pixelRatio,
                   const PaintPicture& paint) {
  const Format* const format = FormatOf(path);
  if (format == nullptr) throw FileError("The name must end in .png, .bmp, .svg or .pdf.");
  if (size.isEmpty() || !(pixelRatio > 0.0)) throw FileError("The picture has no size.");
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  format->encode(buffer, size, pixelRatio, paint);
  const QByteArray& bytes = buffer.data();
  if (bytes.isEmpty()) throw FileError("The picture could not be encoded.");
  ReplaceFile(path,
              std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
}

void PaintOnto(QPaintDevice& device, const QRectF& target, QSize size, const PaintPicture& paint) {
  if (size.isEmpty()) return;
  QPainter painter;
  if (!painter.begin(&device)) throw FileError("The picture could not be begun.");
  const double scale = std::min(target.width() / size.width(), target.height() / size.height());
  painter.translate(target.topLeft());
  painter.scale(scale, scale);
  painter.setClipRect(QRectF(QPointF(0.0, 0.0), size));
  paint(painter);
}

}  // namespace cantorix
