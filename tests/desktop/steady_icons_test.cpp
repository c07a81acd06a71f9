// steady_icons_test.cpp - what Qt draws of an icon it keeps under the icon's key, for ever: a key
// that changes from dialog to dialog is memory lost.
#include "desktop/steady_icons.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace cantorix
