// corpus_walk.h - the recordings below a folder, in the order of their paths. What is held at a
// time are the names in the folders that lead to one of them.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace cantorix {

class CorpusWalk {
 public:
  // Throws FileError for a folder that cannot be read, and so does Next.
  explicit CorpusWalk(const std::string& folder);

  // The path of the next one.
  std::optional<std::string> Next();

 private:
  struct Level {
    std::string folder;
    std::vector<std::string> names;  // the last is the next; those of folders end in "/"
  };
  void Enter(std::string folder);

  std::vector<Level> levels_;
};

}  // namespace cantorix
