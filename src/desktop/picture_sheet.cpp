// picture_sheet.cpp - endings, sizes of sheets and places on a page.
#include "desktop/picture_sheet.h"

#include <QPrinter>
#include <algorithm>
#include <cmath>

#include "desktop/file_filter.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr double kPixelsPerInch = 96.0;  // logical ones
constexpr double kCentimetresPerInch = 2.54;
constexpr double kLeastInches = 1.0;
constexpr double kMostInches = 60.0;

// ".bmp", ".png" and so on, from the patterns of a filter.
QStringList EndingsOf(const std::string& filter) {
  QStringList endings;
  for (const FileFilter& entry : ReadFilters(filter)) {
    for (const QString& pattern : entry.patterns) endings << pattern.mid(1);
  }
  return endings;
}

void RequireEnding(const std::string& path, const std::string& filter) {
  QStringList endings = EndingsOf(filter);
  const QString name = ShownPath(path);
  for (const QString& ending : endings) {
    if (name.endsWith(ending, Qt::CaseInsensitive)) return;
  }
  const QString last = endings.takeLast();
  throw FileError(Typed(Tr("The name must end in %1 or %2.").arg(endings.join(", "), last)));
}

}  // namespace

QSizeF SheetInches(double width, double height, std::int32_t unit) {
  const auto inches = [unit](double length) {
    const double value = unit != 0 ? length / kCentimetresPerInch : length;
    return std::isfinite(value) ? std::clamp(value, kLeastInches, kMostInches) : kLeastInches;
  };
  return {inches(width), inches(height)};
}

QSize SheetPixels(QSizeF inches) { return (inches * kPixelsPerInch).toSize(); }

QSizeF InchesOf(QSize pixels) { return QSizeF(pixels) / kPixelsPerInch; }

QRectF PlaceOnPage(QSizeF inches, int dotsPerInch, QSizeF page) {
  QSizeF size = inches * dotsPerInch;
  if (size.width() > page.width() || size.height() > page.height()) {
    size.scale(page, Qt::KeepAspectRatio);
  }
  return {QPointF((page.width() - size.width()) / 2.0, 0.0), size};
}

void PrintPicture(QPrinter& printer, QSizeF inches, const PaintPicture& paint) {
  const QSizeF page = printer.pageRect(QPrinter::DevicePixel).size();
  PaintOnto(printer, PlaceOnPage(inches, printer.resolution(), page), SheetPixels(inches), paint);
  if (printer.printerState() == QPrinter::Error) throw FileError("The printer reports an error.");
}

void SavePictureAs(Prompts& prompts, const FileRequest& request, QSize size, double pixelRatio,
                   const PaintPicture& paint) {
  const auto choice = prompts.ChooseFileToSave(request);
  if (!choice) return;
  try {
    RequireEnding(choice->path, request.filter);
    ExportPicture(choice->path, size, pixelRatio, paint);
  } catch (const FileError& error) {
    prompts.Message(CouldNotBeSaved(choice->path, error.what()));
  }
}

}  // namespace cantorix
