// recent_files.cpp - order and storage of the recent files.
#include "app/recent_files.h"

#include <algorithm>
#include <filesystem>

#include "platform/file_error.h"
#include "platform/services.h"

namespace cantorix {
namespace {

constexpr const char* kSection = "Recent Files";

std::string EntryName(std::size_t index) { return "File" + std::to_string(index + 1); }

// One spelling per file, whatever folder the next run starts in.
std::string Absolute(const std::string& path) {
  std::error_code failure;
  const auto absolute = std::filesystem::absolute(path, failure);
  return failure ? path : absolute.lexically_normal().string();
}

}  // namespace

void RecentFiles::Load() try {
  paths_.clear();
  for (std::size_t i = 0; i < kMost; ++i) {
    const std::string path = profile_.ReadText(kSection, EntryName(i)).value_or("");
    const bool known = std::find(paths_.begin(), paths_.end(), path) != paths_.end();
    if (!path.empty() && !known) paths_.push_back(path);
  }
} catch (const FileError&) {
  // As many as could be read; the start goes on to say that the profile cannot.
}

void RecentFiles::Add(const std::string& path) {
  const std::string absolute = Absolute(path);
  std::erase(paths_, absolute);
  paths_.insert(paths_.begin(), absolute);
  paths_.resize(std::min(paths_.size(), kMost));
  Store();
}

void RecentFiles::Remove(const std::string& path) {
  if (std::erase(paths_, Absolute(path)) > 0) Store();
}

void RecentFiles::Store() {
  for (std::size_t i = 0; i < kMost; ++i) {
    profile_.WriteText(kSection, EntryName(i), i < paths_.size() ? paths_[i] : "");
  }
}

}  // namespace cantorix
