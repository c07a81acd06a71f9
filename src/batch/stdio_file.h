// stdio_file.h - an owned stream of the C library.
#pragma once

#include <cstdio>
#include <memory>

namespace cantorix::batch {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

using StdioFile = std::unique_ptr<std::FILE, CloseFile>;

}  // namespace cantorix::batch
