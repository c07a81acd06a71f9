// program_directory.cpp - a private folder under the host's place for temporary files.
#include "batch/program_directory.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

std::string MakePrivateFolder() {
  const auto parent = std::filesystem::temp_directory_path();
  std::string path = (parent / "cantorix-batch-XXXXXX").string();
  if (::mkdtemp(path.data()) == nullptr)
    throw FileError(parent.string() + ": " + SystemReason(errno));
  return path;
}

}  // namespace

ProgramDirectory::ProgramDirectory(const std::string& path)
    : path_(path.empty() ? MakePrivateFolder() : path), isPrivate_(path.empty()) {}

ProgramDirectory::~ProgramDirectory() {
  std::error_code ignored;  // what a cleaner of temporary files took first is gone as wanted
  if (isPrivate_) std::filesystem::remove_all(path_, ignored);
}

}  // namespace cantorix::batch
