// make_sample.cpp - cantorix-make-sample: makes the sample recording and its truth tables again.
#include <cstdio>
#include <exception>

#include "synth/sample_files.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: cantorix-make-sample OUT_FOLDER\n", stderr);
    return 2;
  }
  try {
    cantorix::synth::WriteSampleFiles(argv[1]);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "cantorix-make-sample: %s: %s\n", argv[1], e.what());
    return 1;
  }
  return 0;
}
