// file_filter_test.cpp - the quoted filters as the file dialogs take them.
#include "desktop/file_filter.h"

#include <gmock/gmock.h>

#include "app/file_open.h"

namespace cantorix {
namespace {

TEST(FileFilter, ReadsTextsAndPatternsOfTheOpenDialog) {
  const auto filters = ReadFilters(OpenFilter());
  ASSERT_EQ(filters.size(), 20);
  EXPECT_EQ(filters[0].text, "Cantorix(PC) files (*.qrv)");
  EXPECT_EQ(filters[1].patterns, QStringList({"*.qrv", "*"}));
  EXPECT_EQ(filters[5].patterns, QStringList({"*.wav", "*.sph", "*.sp1", "*.sp2"}));
  EXPECT_EQ(filters[12].text, "Generic files (*.*)");
  EXPECT_EQ(QtFilter(filters[12]), "Generic files (*.*) (*)");
  EXPECT_EQ(filters[19].text, "All recordings");
}

TEST(FileFilter, AnEndOfTwoBarsAddsNothing) {
  EXPECT_EQ(ReadFilters("text files (*.txt)|*.txt||").size(), 1);
  EXPECT_TRUE(ReadFilters("").isEmpty());
}

}  // namespace
}  // namespace cantorix
