// steady_icons_test.cpp - what Qt draws of an icon it keeps under the icon's key, for ever: a key
// that changes from dialog to dialog is memory lost.
#include "desktop/steady_icons.h"

#include <gtest/gtest.h>

#include <QFileSystemModel>
#include <QHeaderView>
#include <QImage>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyleOption>

namespace cantorix {
namespace {

TEST(SteadyIcons, HaveTheSameKeyInEveryDialog) {
  const SteadyIcons style;
  for (const auto which : {QStyle::SP_DirIcon, QStyle::SP_FileIcon, QStyle::SP_ArrowBack,
                           QStyle::SP_FileDialogToParent, QStyle::SP_MessageBoxQuestion}) {
    const QIcon first = style.standardIcon(which, nullptr, nullptr);
    ASSERT_FALSE(first.isNull()) << which;
    EXPECT_EQ(style.standardIcon(which, nullptr, nullptr).cacheKey(), first.cacheKey()) << which;
  }
}

TEST(SteadyIcons, PointTheOtherWayWhereWritingDoes) {
  const SteadyIcons style;
  QStyleOption leftwards, rightwards;
  leftwards.direction = Qt::RightToLeft;
  rightwards.direction = Qt::LeftToRight;
  const auto drawn = [&](const QStyleOption& option) {
    return style.standardIcon(QStyle::SP_ArrowBack, &option, nullptr).pixmap(16).toImage();
  };
  EXPECT_NE(drawn(leftwards), drawn(rightwards));
}

TEST(SteadyIcons, LeaveThePictureOfAHeadingAwayAboveFilesAlone) {
  const SteadyIcons style;
  QFileSystemModel files;
  QStandardItemModel others;
  QPixmap red(16, 16);
  red.fill(Qt::red);
  const auto drawn = [&](QAbstractItemModel& model, const QIcon& icon) {
    QHeaderView header(Qt::Horizontal);
    header.setModel(&model);
    QStyleOptionHeaderV2 option;
    option.rect = QRect(0, 0, 120, 24);
    option.palette = header.palette();
    option.text = QStringLiteral("Name");
    option.icon = icon;
    QImage image(option.rect.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    style.drawControl(QStyle::CE_Header, &option, &painter, &header);
    return image;
  };
  QImage blank(120, 24, QImage::Format_RGB32);
  blank.fill(Qt::white);
  EXPECT_NE(drawn(files, {}), blank);
  EXPECT_EQ(drawn(files, QIcon(red)), drawn(files, {}));
  EXPECT_NE(drawn(others, QIcon(red)), drawn(others, {}));
}

}  // namespace
}  // namespace cantorix
