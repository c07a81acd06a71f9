// picture_export.h - a picture as a file or on paper, by the painter that shows it on screen.
#pragma once

#include <QPaintDevice>
#include <QPainter>
#include <QRectF>
#include <QSize>
#include <functional>
#include <string>

namespace cantorix {

// Paints a whole picture of the wanted size at the painter's origin, in logical pixels.
using PaintPicture = std::function<void(QPainter&)>;

// Whether the ending of a file's name says how it is written: png, bmp, svg or pdf, in any case.
bool NamesPicture(const std::string& path);

// Writes a picture of `size` logical pixels; `pixelRatio` (> 0) is the resolution of png and bmp
// relative to it. An earlier file is replaced only by a complete one. Throws FileError for another
// ending, an empty size and a file that cannot be written, and what `paint` throws.
void ExportPicture(const std::string& path, QSize size, double pixelRatio,
                   const PaintPicture& paint);

// Paints a picture of `size` logical pixels into `target`, which is in the units of the device (a
// printer's page, say), as large as its shape allows and at the top left.
void PaintOnto(QPaintDevice& device, const QRectF& target, QSize size, const PaintPicture& paint);

}  // namespace cantorix
