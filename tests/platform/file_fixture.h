// file_fixture.h - what the tests of files share: filled bytes, reasons, rights and descriptors.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/file_error.h"
#include "support/temporary_folder.h"

namespace cantorix {

constexpr const char* kInUse = "Another program is using it.";
constexpr std::size_t kMegabyte = std::size_t{1} << 20U;

inline std::vector<std::byte> Filled(std::size_t size, int value) {
  return std::vector<std::byte>(size, std::byte(value));
}

// The reason with which `action` fails; empty when it does not.
inline std::string ReasonOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const FileError& error) {
    return error.what();
  }
  return {};
}

inline struct stat StatusOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
  return status;
}

inline mode_t ModeOf(const std::string& path) { return StatusOf(path).st_mode & 07777U; }

inline std::ptrdiff_t OpenDescriptors() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

}  // namespace cantorix
