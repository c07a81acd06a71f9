// picture_output.cpp
#include "desktop/windows/picture_output.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <cmath>

#include "desktop/paint/picture_export.h"
#include "platform/file_error.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr double kPixelsPerInch = 96.0;  // logical ones
constexpr double kCentimetresPerInch = 2.54;
constexpr double kFinePixels = 2.0;  // of files and copies, per logical pixel
constexpr double kLeastInches = 1.0;
constexpr double kMostInches = 60.0;

// How a picture leaves the program.
struct Sheet {
  QSizeF inches;
  PaintStyle style;
  QSize pixels() const { return (inches * kPixelsPerInch).toSize(); }
};

QSizeF Inches(double width, double height, std::int32_t unit) {
  const auto inches = [unit](double length) {
    const double value = unit != 0 ? length / kCentimetresPerInch : length;
    return std::isfinite(value) ? std::clamp(value, kLeastInches, kMostInches) : kLeastInches;
  };
  return {inches(width), inches(height)};
}

Sheet SheetOf(AnalysisFrame& frame) {
  const DocumentSettings& settings = frame.model().document().settings;
  Sheet sheet{QSizeF(frame.canvas().size()) / kPixelsPerInch, StyleOf(PaletteKind::kLight)};
  if (frame.model().kind() == WindowKind::kFftLpc) {
    const FftLpcSettings& options = settings.fftLpc;
    sheet.inches = Inches(options.printWidth, options.printHeight, options.printUnit);
    if (options.blackWhite != 0) sheet.style = BlackOnWhite();
  } else if (frame.model().kind() == WindowKind::kSpectrogram) {
    const SpectrogramSettings& options = settings.spectrogram;
    sheet.inches = Inches(options.printWidth, options.printHeight, 0);
  }
  return sheet;
}

void Save(AnalysisFrame& frame, Prompts& prompts) {
  const std::string& title = frame.model().document().title();
  const auto choice = prompts.ChooseFileToSave(
      {.title = "Save Picture",
       .proposedName = title.substr(0, title.rfind('.')),
       .defaultExtension = "png",
       .filter = "PNG pictures (*.png)|*.png|Bitmaps (*.bmp)|*.bmp|SVG drawings (*.svg)|*.svg|"
                 "PDF documents (*.pdf)|*.pdf|",
       .overwritePrompt = true});
  if (!choice) return;
  const Sheet sheet = SheetOf(frame);
  try {
    ExportPicture(choice->path, sheet.pixels(), kFinePixels, [&](QPainter& painter) {
      frame.picture().PaintWhole(painter, sheet.pixels(), sheet.style);
    });
  } catch (const FileError& error) {
    prompts.Message(CouldNotBeSaved(choice->path, error.what()));
  }
}

void Copy(AnalysisFrame& frame) {
  const QSize size = frame.canvas().size();
  QImage image((QSizeF(size) * kFinePixels).toSize(), QImage::Format_RGB32);
  if (image.isNull()) return;
  image.setDevicePixelRatio(kFinePixels);
  QPainter painter(&image);
  frame.picture().PaintWhole(painter, size, StyleOf(PaletteKind::kLight));
  painter.end();
  QGuiApplication::clipboard()->setImage(image);
}

void Print(AnalysisFrame& frame) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(frame.windowTitle());
  QPrintDialog dialog(&printer, &frame);
  if (dialog.exec() != QDialog::Accepted) return;
  const Sheet sheet = SheetOf(frame);
  const QRectF page = printer.pageRect(QPrinter::DevicePixel);
  const QSizeF wanted = sheet.inches * printer.resolution();
  // As large as the options say, if the paper is.
  const QSizeF fitting(std::min(wanted.width(), page.width()),
                       std::min(wanted.height(), page.height()));
  PaintOnto(printer, QRectF(QPointF(0.0, 0.0), fitting), sheet.pixels(), [&](QPainter& painter) {
    frame.picture().PaintWhole(painter, sheet.pixels(), sheet.style);
  });
}

}  // namespace

void OutputPicture(AnalysisFrame& frame, WindowCommand command, const DesktopServices& services) {
  if (command == WindowCommand::kSavePicture) return Save(frame, services.application.prompts());
  if (command == WindowCommand::kCopyPicture) return Copy(frame);
  if (command == WindowCommand::kPrint) Print(frame);
}

}  // namespace cantorix
