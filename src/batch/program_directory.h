// program_directory.h - the folder of the configuration and of the temporary files of a run.
#pragma once

#include <string>

namespace cantorix::batch {

class ProgramDirectory {
 public:
  // An empty `path` makes a private temporary folder, removed at the end. Throws FileError.
  explicit ProgramDirectory(const std::string& path);
  ~ProgramDirectory();
  ProgramDirectory(const ProgramDirectory&) = delete;
  ProgramDirectory& operator=(const ProgramDirectory&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
  bool isPrivate_;
};

}  // namespace cantorix::batch
