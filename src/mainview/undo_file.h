// undo_file.h - the file that one step of undo is kept in: `<temporary directory><title>@@tmp`,
// byte for byte a native save of the whole recording. One per view, deleted with it.
#pragma once

#include <string>

namespace cantorix {

class UndoFile {
 public:
  UndoFile(const std::string& temporaryDirectory, const std::string& title);
  ~UndoFile();
  UndoFile(const UndoFile&) = delete;
  UndoFile& operator=(const UndoFile&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace cantorix
