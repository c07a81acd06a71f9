// gui_main.cpp - the tests of the pictures, without a display and without a font of the machine: a
// letter is a box as wide as it is high, wherever the tests run.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <fstream>

#include "support/temporary_folder.h"

int main(int argc, char** argv) {
  const cantorix::TemporaryFolder folder;
  const std::string noFonts = folder / "fonts.conf";
  std::ofstream(noFonts) << "<fontconfig></fontconfig>";
  ::setenv("FONTCONFIG_FILE", noFonts.c_str(), 1);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const QGuiApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
