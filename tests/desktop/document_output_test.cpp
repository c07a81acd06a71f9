// document_output_test.cpp - the working view and the frame saved as pictures and printed.
#include <QGraphicsView>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QRadioButton>
#include <QRegularExpression>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "desktop/analysis_fixture.h"
#include "desktop/dialog_helpers.h"
#include "desktop/paint/paint_style.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

// The pages of a pdf, and the width and height of the first one in points.
struct PdfPages {
  explicit PdfPages(const std::string& pdf) {
    const QString text = QString::fromLatin1(pdf.data(), static_cast<qsizetype>(pdf.size()));
    static const QRegularExpression page(R"(/Type /Page\s)");
    count = text.count(page);
    static const QRegularExpression box(R"(/MediaBox \[0 0 ([\d.]+) ([\d.]+)\])");
    const QRegularExpressionMatch match = box.match(text);
    points = QSizeF(match.captured(1).toDouble(), match.captured(2).toDouble());
  }
  qsizetype count = 0;
  QSizeF points;
};

// The first sheet of paper in a preview, in 100 dots per inch.
QImage PaperOf(QPrintPreviewDialog& dialog, const QPrinter& printer) {
  const QSizeF inches = printer.paperRect(QPrinter::Inch).size();
  QImage paper((inches * 100.0).toSize(), QImage::Format_RGB32);
  paper.fill(Qt::white);
  QPainter painter(&paper);
  const QRectF sheet(QPointF(0.0, 0.0), printer.paperRect(QPrinter::DevicePixel).size());
  dialog.findChild<QGraphicsView*>()->scene()->render(&painter, paper.rect(), sheet);
  return paper;
}

// What is not white, but for the edge of the paper.
QRect InkOf(const QImage& paper) {
  QRect ink;
  for (int y = 5; y < paper.height() - 5; ++y) {
    for (int x = 5; x < paper.width() - 5; ++x) {
      if (paper.pixel(x, y) != qRgb(255, 255, 255)) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

class DocumentOutputTest : public AnalysisDesktopTest {
 protected:
  // Carries out a save command under a name of the test's folder.
  std::string SaveAs(Command command, const char* name) {
    prompts.WillChooseFile(folder / name);
    Perform(command);
    return folder / name;
  }
  // Prints go into that file.
  std::string PrintInto(const std::string& name) {
    output.printer().setOutputFormat(QPrinter::PdfFormat);
    output.printer().setOutputFileName(ShownPath(folder / name));
    return folder / name;
  }
  void PrintWith(Command command, QDialog::DialogCode answer) {
    DialogUser<QPrintDialog> user([answer](QPrintDialog& dialog) { dialog.QDialog::done(answer); });
    Perform(command);
    EXPECT_EQ(user.used, 1);
  }
};

// Two pixels for each logical one of 96 to the inch, laid out for that size: the panes reach across
// the whole width and the window stays as it is.
TEST_F(DocumentOutputTest, APictureOfPixelsHasTheSizeOfPrintsWhateverTheWindowHas) {
  CSonadexView& view = OpenSample();
  Select(view, 300.0, 900.0);
  const QImage screen = Picture().grab().toImage();
  struct Row {
    const char* name;
    double width, height;
    std::int32_t unit;
    QSize pixels;
  };
  for (const Row& row :
       {Row{"view.bmp", 6.0, 4.0, 0, {1152, 768}}, Row{"view.PNG", 9.0, 3.0, 0, {1728, 576}},
        Row{"view.bmp", 15.24, 5.08, 1, {1152, 384}}}) {
    DisplaySettings& display = view.document().settings.display;
    display.printWidth = row.width;
    display.printHeight = row.height;
    display.printUnit = row.unit;
    const QImage saved(QString::fromStdString(SaveAs(Command::kSaveAsBmp, row.name)));
    EXPECT_EQ(saved.size(), row.pixels) << row.name;
    EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("save: Save As bmp"));
    const QColor pane = StyleOf(PaletteKind::kLight).pane;
    const auto isPane = [&](int x) {
      for (int y = 0; y < saved.height(); ++y) {
        if (saved.pixelColor(x, y) == pane) return true;
      }
      return false;
    };
    EXPECT_TRUE(isPane(saved.width() - 40)) << row.name << ": the panes end early";
  }
  EXPECT_EQ(Picture().grab().toImage(), screen);
  const FileRequest& request = prompts.fileRequests.back();
  EXPECT_EQ(request.proposedName, "vowels_qrv");
  EXPECT_EQ(request.defaultExtension, "bmp");
  EXPECT_EQ(request.filter,
            "Bitmap files (*.bmp)|*.bmp|PNG files (*.png)|*.png|SVG files (*.svg)|*.svg|"
            "PDF files (*.pdf)|*.pdf|");
}

TEST_F(DocumentOutputTest, ADrawingHasTheSizeOfPrints) {
  DisplaySettings& display = OpenSample().document().settings.display;
  display.printWidth = 7.5;
  EXPECT_THAT(Content(SaveAs(Command::kSaveAsBmp, "view.svg")),
              testing::HasSubstr("viewBox=\"0 0 720 384\""));
  const std::string pdf = Content(SaveAs(Command::kSaveAsBmp, "view.pdf"));
  EXPECT_THAT(pdf, testing::StartsWith("%PDF"));
  EXPECT_NEAR(PdfPages(pdf).points.width(), 7.5 * 72.0, 0.5);
  EXPECT_NEAR(PdfPages(pdf).points.height(), 4.0 * 72.0, 0.5);
  prompts.TakeTranscript();
}

TEST_F(DocumentOutputTest, TheScreenIsSavedInPixelsOnly) {
  OpenSample();
  for (const char* name : {"screen.bmp", "screen.png"}) {
    const QImage saved(QString::fromStdString(SaveAs(Command::kSaveScreenAsBmp, name)));
    EXPECT_EQ(saved.size(), frame.size()) << name;
    EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32),
              frame.grab().toImage().convertToFormat(QImage::Format_RGB32));
  }
  prompts.TakeTranscript();
  const std::string drawing = SaveAs(Command::kSaveScreenAsBmp, "screen.svg");
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("save: Save Screen As bmp", "message: " + drawing +
                                                          " could not be saved. "
                                                          "The name must end in .bmp or .png."));
  EXPECT_FALSE(std::filesystem::exists(drawing));
}

TEST_F(DocumentOutputTest, WhatCannotBeSavedIsShownAndCancelledNamesWriteNothing) {
  OpenSample();
  const std::string gif = SaveAs(Command::kSaveAsBmp, "view.gif");
  const std::string missing = SaveAs(Command::kSaveAsBmp, "missing/view.bmp");
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("save: Save As bmp",
                          "message: " + gif +
                              " could not be saved. "
                              "The name must end in .bmp, .png, .svg or .pdf.",
                          "save: Save As bmp",
                          testing::StartsWith("message: " + missing + " could not be saved.")));
  prompts.WillCancel();
  Perform(Command::kSaveAsBmp);
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("save: Save As bmp"));
}

TEST_F(DocumentOutputTest, PrintsAreOnePageAndLeaveTheWindowAsItIs) {
  CSonadexView& view = OpenSample();
  const std::int32_t bottom = view.layout.audio.bottom;
  const std::string path = PrintInto("page.pdf");
  for (const Command command : {Command::kPrint, Command::kPrintScreen}) {
    PrintWith(command, QDialog::Rejected);
    EXPECT_FALSE(std::filesystem::exists(path)) << RowOf(command).text;
    PrintWith(command, QDialog::Accepted);
    EXPECT_EQ(PdfPages(Content(path)).count, 1) << RowOf(command).text;
    std::filesystem::remove(path);
  }
  EXPECT_EQ(view.layout.audio.bottom, bottom);
  EXPECT_EQ(view.layout.client.width, Picture().width());
  PrintInto("missing/page.pdf");
  PrintWith(Command::kPrint, QDialog::Accepted);
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("message: The picture could not be begun."));
}

TEST_F(DocumentOutputTest, UnreadableSamplesAreShownAndEndAPreview) {
  OpenSample();
  unreadable = true;
  const std::string path = SaveAs(Command::kSaveAsBmp, "view.bmp");
  EXPECT_THAT(prompts.TakeTranscript(),
              ElementsAre("save: Save As bmp",
                          "message: " + path + " could not be saved. The disk is gone."));
  EXPECT_FALSE(std::filesystem::exists(path));
  PrintInto("page.pdf");
  Perform(Command::kPrintPreview);
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("message: The disk is gone."));
}

TEST_F(DocumentOutputTest, ThePreviewShowsOnePageWithTheViewInItsPrintSize) {
  DisplaySettings& display = OpenSample().document().settings.display;
  display.printUnit = 1;
  display.printWidth = 12.7;
  display.printHeight = 7.62;
  PrintInto("page.pdf");
  output.printer().setPageSize(QPageSize(QPageSize::A4));
  int pages = 0;
  QRect ink;
  DialogUser<QPrintPreviewDialog> user([&](QPrintPreviewDialog& dialog) {
    auto* const preview = dialog.findChild<QPrintPreviewWidget*>();
    preview->updatePreview();
    pages = preview->pageCount();
    ink = InkOf(PaperOf(dialog, output.printer()));
    dialog.reject();
  });
  Perform(Command::kPrintPreview);
  EXPECT_EQ(user.used, 1);
  EXPECT_EQ(pages, 1);
  const QRectF page = output.printer().pageRect(QPrinter::Inch);
  EXPECT_NEAR(ink.width(), 500, 2);
  EXPECT_NEAR(ink.height(), 300, 2);
  EXPECT_NEAR(ink.left() + ink.width() / 2.0, 100.0 * page.center().x(), 2.0);
  EXPECT_NEAR(ink.top(), 100.0 * page.top(), 2.0);
}

TEST_F(DocumentOutputTest, TheSetUpWorksWithoutADocumentAndHoldsForThePrintsThatFollow) {
  DialogUser<QPageSetupDialog> user([](QPageSetupDialog& dialog) {
    auto* const landscape = dialog.findChild<QRadioButton*>("landscape");
    if (landscape != nullptr) landscape->click();
    dialog.accept();
  });
  Perform(Command::kPrintSetup);
  EXPECT_EQ(user.used, 1);
  OpenSample();
  const std::string path = PrintInto("page.pdf");
  PrintWith(Command::kPrint, QDialog::Accepted);
  const PdfPages printed(Content(path));
  EXPECT_GT(printed.points.width(), printed.points.height());
}

}  // namespace
}  // namespace cantorix
