// program_directory.h - the folder of the configuration and of the temporary files of a run.
#pragma once

#include <optional>
#include <string>

#include "platform/leftovers.h"

namespace cantorix::batch {

class ProgramDirectory {
 public:
  // An empty `path` makes a private temporary folder, removed at the end. Throws FileError.
  explicit ProgramDirectory(const std::string& path);

  const std::string& path() const { return path_; }

 private:
  std::string path_;
  std::optional<PrivateFolder> private_;
};

}  // namespace cantorix::batch
