// corpus_walk.cpp - one folder listed after the other.
#include "measure/corpus_walk.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <string_view>
#include <utility>

#include "labelfile/label_formats.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 17> kRecordingEndings{
    "wav", "qrv", "aif", "aiff", "aifc", "au",  "snd",  "flac", "ogg",
    "oga", "mp3", "sph", "nist", "nsp",  "w64", "rf64", "sd"};

bool IsNameOfRecording(const std::string& name) {
  return std::find(kRecordingEndings.begin(), kRecordingEndings.end(), FileEnding(name)) !=
         kRecordingEndings.end();
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& file : fs::directory_iterator(folder)) {
    std::string name = file.path().filename().string();
    // A link to a folder may lead back here.
    if (file.is_directory() && !file.is_symlink()) {
      names.push_back(std::move(name) + '/');
    } else if (IsNameOfRecording(name) && file.is_regular_file()) {
      names.push_back(std::move(name));
    }
  }
  // With the stroke of the folders in it this is the order of the whole paths.
  std::sort(names.begin(), names.end(), std::greater<>());
  return names;
}

}  // namespace

CorpusWalk::CorpusWalk(const std::string& folder) {
  Enter(folder.ends_with('/') ? folder : folder + '/');
}

std::optional<std::string> CorpusWalk::Next() {
  while (!levels_.empty()) {
    Level& level = levels_.back();
    if (level.names.empty()) {
      levels_.pop_back();
      continue;
    }
    std::string path = level.folder + level.names.back();
    level.names.pop_back();
    if (!path.ends_with('/')) return path;
    Enter(std::move(path));
  }
  return std::nullopt;
}

void CorpusWalk::Enter(std::string folder) {
  try {
    std::vector<std::string> names = NamesIn(folder);
    levels_.push_back({std::move(folder), std::move(names)});
  } catch (const fs::filesystem_error& error) {
    throw FileError(CouldNotBeOpened(folder, SystemReason(error.code().value())));
  }
}

}  // namespace cantorix
