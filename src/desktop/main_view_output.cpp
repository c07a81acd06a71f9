// main_view_output.cpp - each output command to its file or page.
#include "desktop/main_view_output.h"

#include <QPageSetupDialog>
#include <QPixmap>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QWidget>
#include <algorithm>
#include <exception>

#include "desktop/group_picture.h"
#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/picture_layout.h"
#include "desktop/picture_sheet.h"
#include "desktop/qt_text.h"
#include "mainview/document_waveform.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr double kPreviewShare = 0.8;  // of the main frame
constexpr double kFinePixels = 2.0;    // of files, per logical pixel

QSizeF InchesOfPrints(const CSonadexView& view) {
  const DisplaySettings& display = view.document().settings.display;
  return SheetInches(display.printWidth, display.printHeight, display.printUnit);
}

FileRequest SaveRequest(const CSonadexView& view, const char* title, const char* filter) {
  FileRequest request{.title = title,
                      .proposedName = view.document().title(),
                      .defaultExtension = "bmp",
                      .filter = filter,
                      .overwritePrompt = true};
  std::ranges::replace(request.proposedName, '.', '_');
  return request;
}

// The view in its size of prints, at the painter's origin.
void PaintSheet(QPainter& painter, CSonadexView& view, const WaveformPyramid& waveform) {
  const QSize pixels = SheetPixels(InchesOfPrints(view));
  const PictureLayout layout(view, {pixels.width(), pixels.height()});
  PaintMainView(painter, {view, waveform}, StyleOf(PaletteKind::kLight));
}

PaintPicture PainterOf(const QPixmap& pixmap) {
  return [&pixmap](QPainter& painter) { painter.drawPixmap(QPointF(0.0, 0.0), pixmap); };
}

}  // namespace

MainViewOutput::MainViewOutput(Prompts& prompts, WaveformOf waveformOf)
    : prompts_(prompts), waveformOf_(std::move(waveformOf)) {}

void MainViewOutput::SavePicture(CSonadexView& view) {
  SavePictureAs(prompts_,
                SaveRequest(view, "Save As bmp",
                            "Bitmap files (*.bmp)|*.bmp|PNG files (*.png)|*.png|"
                            "SVG files (*.svg)|*.svg|PDF files (*.pdf)|*.pdf|"),
                SheetPixels(InchesOfPrints(view)), kFinePixels, [&](QPainter& painter) {
                  PaintSheet(painter, view, waveformOf_(view.document()).Pyramid());
                });
}

void MainViewOutput::SaveScreen(CSonadexView& view, QWidget& window) {
  const QPixmap screen = window.grab();
  SavePictureAs(prompts_,
                SaveRequest(view, "Save Screen As bmp",
                            "Bitmap files (*.bmp)|*.bmp|PNG files (*.png)|*.png|"),
                window.size(), screen.devicePixelRatio(), PainterOf(screen));
}

void MainViewOutput::SaveGroup(CSonadexView& view, const std::vector<AnalysisWindowOf>& windows) {
  FileRequest request = SaveRequest(view, "Save Group Picture",
                                    "PNG files (*.png)|*.png|SVG files (*.svg)|*.svg|"
                                    "PDF files (*.pdf)|*.pdf|");
  request.defaultExtension = "png";
  GroupPicture picture(view, waveformOf_(view.document()), windows);
  SavePictureAs(prompts_, request, picture.size(), kFinePixels,
                [&](QPainter& painter) { picture.Paint(painter); });
}

QPrinter& MainViewOutput::printer() {
  if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
  return *printer_;
}

void MainViewOutput::Print(CSonadexView& view, QWidget& window) {
  PrintPage(view, window, [&] { PrintView(view); });
}

void MainViewOutput::PrintScreen(CSonadexView& view, QWidget& window) {
  const QPixmap screen = window.grab();  // before a dialog stands in front of it
  PrintPage(view, window,
            [&] { PrintPicture(printer(), InchesOf(window.size()), PainterOf(screen)); });
}

void MainViewOutput::PrintPage(CSonadexView& view, QWidget& window,
                               const std::function<void()>& page) {
  printer().setDocName(Shown(view.document().title()));
  QPrintDialog dialog(&printer(), &window);
  if (dialog.exec() == QDialog::Accepted) page();
}

void MainViewOutput::PrintView(CSonadexView& view) {
  const WaveformPyramid& waveform =
      waveformOf_(view.document()).Pyramid();  // before the page begins
  PrintPicture(printer(), InchesOfPrints(view),
               [&](QPainter& painter) { PaintSheet(painter, view, waveform); });
}

void MainViewOutput::Preview(CSonadexView& view, QWidget& window) {
  printer().setDocName(Shown(view.document().title()));
  QPrintPreviewDialog dialog(&printer(), &window);
  dialog.resize(window.size() * kPreviewShare);
  std::exception_ptr failure;  // may not pass through the dialog, which ends at once
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter*) {
    try {
      PrintView(view);
    } catch (const std::exception&) {
      failure = std::current_exception();
      QMetaObject::invokeMethod(&dialog, &QDialog::reject, Qt::QueuedConnection);
    }
  });
  dialog.exec();
  if (failure) std::rethrow_exception(failure);
}

void MainViewOutput::SetUp(QWidget& window) { QPageSetupDialog(&printer(), &window).exec(); }

}  // namespace cantorix
