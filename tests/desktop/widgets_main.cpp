// widgets_main.cpp - the test program's own main: widgets need an application object, and no
// display, profile or font of the machine may decide a test.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <QApplication>
#include <QFont>
#include <QLocale>

#include "desktop/box_fonts.h"
#include "support/temporary_folder.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const cantorix::TemporaryFolder home;
  cantorix::UseBoxFonts(home);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  ::setenv("HOME", home.path().c_str(), 1);
  ::setenv("XDG_CONFIG_HOME", (home / "config").c_str(), 1);
  ::setenv("XDG_RUNTIME_DIR", home.path().c_str(), 1);
  QLocale::setDefault(QLocale::c());
  QApplication application(argc, argv);
  // As wide as the letters of a usual font.
  QFont font = QApplication::font();
  font.setPixelSize(7);
  QApplication::setFont(font);
  return RUN_ALL_TESTS();
}
