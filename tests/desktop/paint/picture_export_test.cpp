// picture_export_test.cpp - one picture in each kind of file.
#include "desktop/paint/picture_export.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSvgRenderer>

#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/paint_fixture.h"
#include "desktop/paint/picture_layout.h"
#include "platform/file_fixture.h"
#include "support/temporary_folder.h"

namespace cantorix {
namespace {

constexpr PixelSize kSize{640, 400};

QByteArray BytesOf(const std::string& path) {
  QFile file(QString::fromStdString(path));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class PictureExport : public testing::Test {
 protected:
  void Export(const std::string& name) {
    const PictureLayout layout(analysed.recording.view, kSize);
    const MainViewPicture picture{analysed.recording.view, analysed.waveform.Pyramid()};
    ExportPicture(Path(name), QSize(kSize.width, kSize.height), 1.0, [&](QPainter& painter) {
      PaintMainView(painter, picture, StyleOf(PaletteKind::kLight));
    });
  }
  std::string Path(const std::string& name) const { return folder.path() + "/" + name; }

  TemporaryFolder folder;
  AnalysedRecording analysed{Vowels(), {900, 700}};
};

TEST_F(PictureExport, EveryFormatShowsTheSamePicture) {
  for (const char* const name : {"a.png", "a.bmp", "a.svg", "a.pdf"}) Export(name);
  const QImage png(QString::fromStdString(Path("a.png")));
  ASSERT_EQ(png.size(), QSize(kSize.width, kSize.height));
  for (const QPoint corner : {QPoint(0, 0), QPoint(639, 399)}) {
    EXPECT_EQ(png.pixelColor(corner), StyleOf(PaletteKind::kLight).background);
  }
  EXPECT_EQ(QImage(QString::fromStdString(Path("a.bmp"))).convertToFormat(png.format()), png);

  EXPECT_TRUE(QSvgRenderer(BytesOf(Path("a.svg"))).isValid());
  const QByteArray pdf = BytesOf(Path("a.pdf"));
  EXPECT_TRUE(pdf.startsWith("%PDF"));
  EXPECT_TRUE(pdf.contains("/MediaBox [0 0 480")) << "640 pixels of 1/96 inch";
}

TEST_F(PictureExport, AFailureLeavesTheEarlierFile) {
  Export("a.png");
  const QByteArray earlier = BytesOf(Path("a.png"));
  const auto fail = [](QPainter&) { throw FileError("The disk store could not be read."); };
  EXPECT_THROW(ExportPicture(Path("a.png"), QSize(10, 10), 1.0, fail), FileError);
  EXPECT_EQ(BytesOf(Path("a.png")), earlier);
  EXPECT_EQ(ReasonOf([&] { Export("a.gif"); }), "The name must end in .png, .bmp, .svg or .pdf.");
  EXPECT_THROW(Export("missing/a.png"), FileError);
  EXPECT_EQ(ReasonOf([&] {
              ExportPicture(Path("b.png"), {0, 10}, 1.0, [](QPainter&) {});
            }),
            "The picture has no size.");
  EXPECT_FALSE(QFile::exists(QString::fromStdString(Path("b.png"))));
}

}  // namespace
}  // namespace cantorix
