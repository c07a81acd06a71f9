// program_directory.cpp - a private folder under the host's place for temporary files.
#include "batch/program_directory.h"

namespace cantorix::batch {

ProgramDirectory::ProgramDirectory(const std::string& path) : path_(path) {
  if (!path_.empty()) return;
  private_.emplace("cantorix-batch-");
  path_ = private_->path();
}

}  // namespace cantorix::batch
