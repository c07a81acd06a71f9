// picture_output.cpp - size and colours of a sheet, then one way out for each command.
#include "desktop/windows/picture_output.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>

#include "desktop/picture_sheet.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr double kFinePixels = 2.0;  // of files and copies, per logical pixel

// How a picture leaves the program.
struct Sheet {
  QSizeF inches;
  PaintStyle style;
  QSize pixels() const { return SheetPixels(inches); }
};

Sheet SheetOf(AnalysisFrame& frame) {
  const DocumentSettings& settings = frame.model().document().settings;
  Sheet sheet{InchesOf(frame.canvas().size()), StyleOf(PaletteKind::kLight)};
  if (frame.model().kind() == WindowKind::kFftLpc) {
    const FftLpcSettings& options = settings.fftLpc;
    sheet.inches = SheetInches(options.printWidth, options.printHeight, options.printUnit);
    if (options.blackWhite != 0) sheet.style = BlackOnWhite();
  } else if (frame.model().kind() == WindowKind::kSpectrogram) {
    const SpectrogramSettings& options = settings.spectrogram;
    sheet.inches = SheetInches(options.printWidth, options.printHeight, 0);
  }
  return sheet;
}

void Save(AnalysisFrame& frame, Prompts& prompts) {
  const std::string& title = frame.model().document().title();
  const FileRequest request{
      .title = "Save Picture",
      .proposedName = title.substr(0, title.rfind('.')),
      .defaultExtension = "png",
      .filter =
          "PNG pictures (*.png)|*.png|Bitmaps (*.bmp)|*.bmp|SVG drawings (*.svg)|*.svg|"
          "PDF documents (*.pdf)|*.pdf|",
      .overwritePrompt = true};
  const Sheet sheet = SheetOf(frame);
  SavePictureAs(prompts, request, sheet.pixels(), kFinePixels, [&](QPainter& painter) {
    frame.picture().PaintWhole(painter, sheet.pixels(), sheet.style);
  });
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
  PrintPicture(printer, sheet.inches, [&](QPainter& painter) {
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
