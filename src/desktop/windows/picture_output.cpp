// picture_output.cpp - size and colours of a sheet, then one way out for each command.
#include "desktop/windows/picture_output.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>

#include "desktop/picture_sheet.h"
#include "desktop/windows/fft_lpc_picture.h"
#include "desktop/windows/spectrogram_frame.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr int kFinePixels = 2;  // of files and copies, per logical pixel

// How a picture leaves the program.
struct Sheet {
  QSizeF inches;
  PaintStyle style;
  QSize pixels() const { return SheetPixels(inches); }
};

Sheet SheetOf(AnalysisWindow& window) {
  const DocumentSettings& settings = window.document().settings;
  Sheet sheet{{}, StyleOf(PaletteKind::kLight)};
  switch (window.kind()) {
    case WindowKind::kFftLpc: {
      const FftLpcSettings& options = settings.fftLpc;
      sheet.inches = SheetInches(options.printWidth, options.printHeight, options.printUnit);
      if (options.blackWhite != 0) sheet.style = BlackOnWhite();
      return sheet;
    }
    case WindowKind::kSpectrogram:
      sheet.inches =
          SheetInches(settings.spectrogram.printWidth, settings.spectrogram.printHeight, 0);
      return sheet;
    case WindowKind::kPitch:
      sheet.inches = SheetInches(settings.pitch.printWidth, settings.pitch.printHeight, 0);
      return sheet;
  }
  return sheet;
}

using UsePicture = std::function<void(WindowPicture&)>;

// False when there is no spectrum of that size.
bool UseSpectrum(CFFTLPCView& shown, PixelSize size, const UsePicture& use) {
  CFFTLPCView sized(shown.document());
  sized.cursorHz = shown.cursorHz;
  sized.markerSet = shown.markerSet;
  const PixelRect plot = SpectrumLayout(size).plot;
  if (!sized.AnalyseSpectrum(shown.place(), plot.right - plot.left)) return false;
  FftLpcPicture picture(sized);
  use(picture);
  return true;
}

bool UseSpectrogram(CSpectrogramFrame& frame, PixelSize size, DocumentWaveform& waveform,
                    const UsePicture& use) {
  CSpectrogramView& shown = frame.model();
  CSpectrogramView sized(shown.document());
  sized.cursorMs = shown.cursorMs;
  sized.cursorHz = shown.cursorHz;
  sized.markerSet = shown.markerSet;
  sized.selectionShown = shown.selectionShown;
  sized.selection = shown.selection;
  const PixelRect plot = SpectrogramLayout(size, shown.document()).plot;
  const SpectrogramSize pixels{std::int64_t{plot.right - plot.left} * kFinePixels,
                               (plot.bottom - plot.top) * kFinePixels};
  if (!sized.ComputeSpectrogram(shown.spectrogram().range, pixels)) return false;
  SpectrogramWindowPicture picture(sized, waveform);
  picture.SetColors(frame.picture().colors());
  use(picture);
  return true;
}

// The window's picture, computed for a size of its own where that decides what is computed.
void UsePictureOfSize(AnalysisFrame& frame, QSize pixels, DocumentWaveform& waveform,
                      const UsePicture& use) {
  const PixelSize size{pixels.width(), pixels.height()};
  // What an edit has changed cannot be computed any more.
  if (!frame.model().samplesChanged()) {
    auto* const spectrum = dynamic_cast<CFFTLPCView*>(&frame.model());
    if (spectrum != nullptr && UseSpectrum(*spectrum, size, use)) return;
    auto* const spectrogram = dynamic_cast<CSpectrogramFrame*>(&frame);
    if (spectrogram != nullptr && UseSpectrogram(*spectrogram, size, waveform, use)) return;
  }
  use(frame.picture());
}

void Save(AnalysisFrame& frame, const PictureOutlets& outlets) {
  const std::string& title = frame.model().document().title();
  const FileRequest request{
      .title = "Save Picture",
      .proposedName = title.substr(0, title.rfind('.')),
      .defaultExtension = "png",
      .filter =
          "PNG pictures (*.png)|*.png|Bitmaps (*.bmp)|*.bmp|SVG drawings (*.svg)|*.svg|"
          "PDF documents (*.pdf)|*.pdf|",
      .overwritePrompt = true};
  const Sheet sheet = SheetOf(frame.model());
  SavePictureAs(outlets.prompts, request, sheet.pixels(), kFinePixels, [&](QPainter& painter) {
    UsePictureOfSize(frame, sheet.pixels(), outlets.waveform, [&](WindowPicture& picture) {
      picture.PaintWhole(painter, sheet.pixels(), sheet.style);
    });
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

void Print(AnalysisFrame& frame, const PictureOutlets& outlets) {
  QPrinter& printer = outlets.printer();
  printer.setDocName(frame.windowTitle());
  QPrintDialog dialog(&printer, &frame);
  if (dialog.exec() != QDialog::Accepted) return;
  const Sheet sheet = SheetOf(frame.model());
  UsePictureOfSize(frame, sheet.pixels(), outlets.waveform, [&](WindowPicture& picture) {
    PrintPicture(printer, sheet.inches, [&](QPainter& painter) {
      picture.PaintWhole(painter, sheet.pixels(), sheet.style);
    });
  });
}

}  // namespace

void OutputPicture(AnalysisFrame& frame, WindowCommand command, const PictureOutlets& outlets) {
  if (command == WindowCommand::kSavePicture) return Save(frame, outlets);
  if (command == WindowCommand::kCopyPicture) return Copy(frame);
  if (command == WindowCommand::kPrint) Print(frame, outlets);
}

}  // namespace cantorix
