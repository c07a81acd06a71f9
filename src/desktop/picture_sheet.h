// picture_sheet.h - how a picture leaves a window: into a file that the user names, or onto paper.
// Shared by the working view and the analysis windows; what is painted is their own.
#pragma once

#include <QRectF>
#include <QSizeF>
#include <cstdint>

#include "desktop/paint/picture_export.h"
#include "platform/prompts.h"

class QPrinter;

namespace cantorix {

// A size of the settings in inches; `unit` 0 is inches, any other centimetres. A side is 1 to 60
// inches, whatever the settings say.
QSizeF SheetInches(double width, double height, std::int32_t unit);
// Logical pixels, 96 to the inch.
QSize SheetPixels(QSizeF inches);
QSizeF InchesOf(QSize pixels);

// Where a picture of `inches` stands in the printable part of a page: centred at its top, and in
// its own shape as large as the page allows when it is larger. `page` and the answer are in dots.
QRectF PlaceOnPage(QSizeF inches, int dotsPerInch, QSizeF page);

// Prints a picture of SheetPixels(inches) on a page of its own. Throws FileError when the printer
// refuses it, and what `paint` throws.
void PrintPicture(QPrinter& printer, QSizeF inches, const PaintPicture& paint);

// Asks for a name and writes the picture there, as ExportPicture does. Says so when it could not be
// written, also when the name ends in none of the ways that the request's filter offers. Throws
// what `paint` throws but for FileError.
void SavePictureAs(Prompts& prompts, const FileRequest& request, QSize size, double pixelRatio,
                   const PaintPicture& paint);

}  // namespace cantorix
