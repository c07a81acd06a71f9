// gui_main.cpp - the tests of the pictures, without a display and without a font of the machine.
#include <gtest/gtest.h>

#include <QGuiApplication>

#include "desktop/box_fonts.h"
#include "support/temporary_folder.h"

int main(int argc, char** argv) {
  const cantorix::TemporaryFolder folder;
  cantorix::UseBoxFonts(folder);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const QGuiApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
