// undo_file.cpp
#include "mainview/undo_file.h"

#include <filesystem>

namespace cantorix {

UndoFile::UndoFile(const std::string& temporaryDirectory, const std::string& title)
    : path_(temporaryDirectory + title + "@@tmp") {}

UndoFile::~UndoFile() {
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

}  // namespace cantorix
