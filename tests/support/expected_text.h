// expected_text.h - long texts compared with files that somebody has read and approved: what a user
// sees of a dialog, what is drawn into a picture. With CANTORIX_TAKE_EXPECTED set in the
// environment the files are written anew; read what changed in them before you commit it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "support/samples.h"

namespace cantorix {

// `path` begins at the folder "tests".
inline void ExpectText(const std::string& path, const std::string& actual) {
  const std::string file = SamplesDirectory() + "/../tests/" + path;
  if (std::getenv("CANTORIX_TAKE_EXPECTED") != nullptr) std::ofstream(file) << actual;
  std::ifstream stream(file);
  const std::string approved{std::istreambuf_iterator<char>(stream), {}};
  EXPECT_EQ(approved, actual) << path << " says otherwise";
}

}  // namespace cantorix
