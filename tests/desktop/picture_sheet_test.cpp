// picture_sheet_test.cpp - sizes of prints and their place on a page.
#include "desktop/picture_sheet.h"

#include <gtest/gtest.h>

#include <limits>

namespace cantorix {
namespace {

TEST(PictureSheet, TakesItsSizeFromSettingsOfAnyKind) {
  struct Row {
    double width, height;
    std::int32_t unit;
    QSize pixels;
  };
  const double infinite = std::numeric_limits<double>::infinity();
  const Row rows[] = {{6.0, 4.0, 0, {576, 384}},
                      {15.24, 10.16, 1, {576, 384}},
                      {0.0, -3.0, 0, {96, 96}},
                      {1e300, 150.0, 1, {5760, 5669}},
                      {infinite, std::numeric_limits<double>::quiet_NaN(), 0, {96, 96}}};
  for (const Row& row : rows) {
    EXPECT_EQ(SheetPixels(SheetInches(row.width, row.height, row.unit)), row.pixels)
        << row.width << " x " << row.height << ", unit " << row.unit;
  }
}

TEST(PictureSheet, StandsAtTheTopOfThePageInItsOwnShape) {
  struct Row {
    const char* name;
    QSizeF inches;
    QRectF place;
  };
  const QSizeF page(800.0, 1000.0);  // 8 x 10 inches of 100 dots
  const Row rows[] = {{"smaller", {6.0, 4.0}, {100.0, 0.0, 600.0, 400.0}},
                      {"as large", {8.0, 10.0}, {0.0, 0.0, 800.0, 1000.0}},
                      {"too wide", {16.0, 4.0}, {0.0, 0.0, 800.0, 200.0}},
                      {"too high", {6.0, 20.0}, {250.0, 0.0, 300.0, 1000.0}},
                      {"too large", {32.0, 20.0}, {0.0, 0.0, 800.0, 500.0}}};
  for (const Row& row : rows) EXPECT_EQ(PlaceOnPage(row.inches, 100, page), row.place) << row.name;
}

}  // namespace
}  // namespace cantorix
