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

// What was approved. `path` begins at the folder "tests".
inline std::string Approved(const std::string& path) {
  std::ifstream stream(SamplesDirectory() + "/../tests/" + path);
  return {std::istreambuf_iterator<char>(stream), {}};
}

inline void ExpectText(const std::string& path, const std::string& actual) {
  if (std::getenv("CANTORIX_TAKE_EXPECTED") != nullptr) {
    std::ofstream(SamplesDirectory() + "/../tests/" + path) << actual;
  }
  EXPECT_EQ(Approved(path), actual) << path << " says otherwise";
}

}  // namespace cantorix
