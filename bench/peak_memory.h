// peak_memory.h - the largest resident memory of this process since a moment of the run.
#pragma once

#include <cstdlib>
#include <fstream>
#include <string>

namespace cantorix {

inline void ForgetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

inline double PeakBytes() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word == "VmHWM:" && status >> word) return std::strtod(word.c_str(), nullptr) * 1024.0;
  }
  return 0.0;
}

}  // namespace cantorix
