// box_fonts.h - for main functions of tests: no font of the machine decides what is seen; a letter
// is a box as wide as it is high, wherever the tests run.
#pragma once

#include <stdlib.h>

#include <fstream>

#include "support/temporary_folder.h"

namespace cantorix {

// Before the application object is made; `folder` outlives it.
inline void UseBoxFonts(const TemporaryFolder& folder) {
  const std::string noFonts = folder / "fonts.conf";
  std::ofstream(noFonts) << "<fontconfig></fontconfig>";
  ::setenv("FONTCONFIG_FILE", noFonts.c_str(), 1);
}

}  // namespace cantorix
