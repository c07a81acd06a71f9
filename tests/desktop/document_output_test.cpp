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

#include "desktop/desktop_fixture.h"
#include "desktop/dialog_helpers.h"
#include "desktop/main_view_output.h"
#include "desktop/paint/paint_style.h"
#include "mainview/view_commands.h"
#include "platform/file_error.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

constexpr Command kOutputs[] = {Command::kSaveAsBmp, Command::kSaveScreenAsBmp, Command::kPrint,
                                Command::kPrintScreen, Command::kPrintPreview};

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

class DocumentOutputTest : public DesktopTest {
 protected:
  DocumentOutputTest() {
    frame.SetOutput(&output);
    frame.Refresh();
  }
  ~DocumentOutputTest() override { frame.SetOutput(nullptr); }

  // Carries out a save command under a name of the test's folder.
  std::string SaveAs(Command command, const char* name) {
    std::string path = folder.path() + "/" + name;
    prompts.WillChooseFile(path);
    Perform(command);
    return path;
  }
  void PrintInto(const std::string& path) {
    output.printer().setOutputFormat(QPrinter::PdfFormat);
    output.printer().setOutputFileName(QString::fromStdString(path));
  }

  bool unreadable = false;  // the samples, as of a disk that is gone
  MainViewOutput output{prompts, [this](CSonadexDoc& document) -> DocumentWaveform& {
                          if (unreadable) throw FileError("The disk is gone.");
                          return frame.documents().WaveformOf(document);
                        }};
};

TEST_F(DocumentOutputTest, NeedsALoadedDocumentExceptForTheSetUp) {
  const auto check = [&](bool enabled) {
    for (const Command command : kOutputs) {
      EXPECT_EQ(Enabled(command), enabled) << RowOf(command).text;
    }
    EXPECT_TRUE(Enabled(Command::kPrintSetup));
  };
  check(false);
  frame.NewDocument();
  QApplication::processEvents();
  check(false);
  OpenSample();
  check(true);
}

// Two pixels for each logical one of 96 to the inch, laid out for that size: the panes reach across
// the whole width and the window stays as it is.
TEST_F(DocumentOutputTest, APictureOfPixelsHasTheSizeOfPrintsWhateverTheWindowHas) {
  CSonadexView& view = OpenSample();
  SelectSpan(view, 300.0, 900.0);
  frame.Refresh();
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
  const std::string svg = Content(SaveAs(Command::kSaveAsBmp, "view.svg"));
  EXPECT_THAT(svg, testing::HasSubstr("viewBox=\"0 0 720 384\""));
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
  const PixelRect audio = view.layout.audio;
  for (const Command command : {Command::kPrint, Command::kPrintScreen}) {
    SCOPED_TRACE(RowOf(command).text);
    const std::string path = folder.path() + "/page.pdf";
    PrintInto(path);
    DialogUser<QPrintDialog> user([](QPrintDialog& dialog) { dialog.accept(); });
    Perform(command);
    EXPECT_EQ(user.used, 1);
    const std::string page = Content(path);
    EXPECT_THAT(page, testing::StartsWith("%PDF"));
    EXPECT_EQ(PdfPages(page).count, 1);
    std::filesystem::remove(path);
  }
  EXPECT_EQ(view.layout.audio.bottom, audio.bottom);
  EXPECT_EQ(view.layout.client.width, Picture().width());
}

TEST_F(DocumentOutputTest, ACancelledPrintPrintsNothing) {
  OpenSample();
  const std::string path = folder.path() + "/page.pdf";
  PrintInto(path);
  DialogUser<QPrintDialog> user([](QPrintDialog& dialog) { dialog.reject(); });
  Perform(Command::kPrint);
  EXPECT_EQ(user.used, 1);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(DocumentOutputTest, APrintThatFailsIsShown) {
  OpenSample();
  PrintInto(folder.path() + "/missing/page.pdf");
  DialogUser<QPrintDialog> user([](QPrintDialog& dialog) { dialog.QDialog::done(1); });
  Perform(Command::kPrint);
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
  PrintInto(folder.path() + "/page.pdf");
  Perform(Command::kPrintPreview);
  EXPECT_THAT(prompts.TakeTranscript(), ElementsAre("message: The disk is gone."));
}

TEST_F(DocumentOutputTest, ThePreviewShowsOnePageWithTheViewInItsPrintSize) {
  DisplaySettings& display = OpenSample().document().settings.display;
  display.printUnit = 1;
  display.printWidth = 12.7;
  display.printHeight = 7.62;
  PrintInto(folder.path() + "/page.pdf");
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
  const std::string path = folder.path() + "/page.pdf";
  PrintInto(path);
  DialogUser<QPrintDialog> printing([](QPrintDialog& dialog) { dialog.accept(); });
  Perform(Command::kPrint);
  const PdfPages printed(Content(path));
  EXPECT_GT(printed.points.width(), printed.points.height());
}

}  // namespace
}  // namespace cantorix
