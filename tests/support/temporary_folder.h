// temporary_folder.h - a folder of a test's own, gone with its scope, and whole-file helpers.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstddef>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <vector>

namespace cantorix {

// Names of what a folder holds, in no order.
inline std::vector<std::string> NamesIn(const std::string& path) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

class TemporaryFolder {
 public:
  TemporaryFolder()
      : path_((std::filesystem::temp_directory_path() / "cantorix-test-XXXXXX").string()) {
    EXPECT_NE(::mkdtemp(path_.data()), nullptr) << path_;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  // The path of `name` inside the folder.
  std::string operator/(const std::string& name) const { return path_ + "/" + name; }
  std::vector<std::string> Names() const { return NamesIn(path_); }

 private:
  std::string path_;
};

// All bytes of a file; fails the test when it cannot be read.
inline std::vector<std::byte> ReadBytes(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << path;
  const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  const auto raw = std::as_bytes(std::span(text));
  return {raw.begin(), raw.end()};
}

inline void WriteBytes(const std::string& path, std::span<const std::byte> bytes) {
  std::ofstream stream(path, std::ios::binary | std::ios::trunc);
  std::string text(bytes.size(), '\0');
  if (!bytes.empty()) std::memcpy(text.data(), bytes.data(), bytes.size());
  stream << text << std::flush;
  EXPECT_TRUE(stream.good()) << path;
}

}  // namespace cantorix
