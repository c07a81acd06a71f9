// spool.h - bytes that wait for their turn: few of them in memory, many in an unnamed temporary
// file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "batch/stdio_file.h"

namespace cantorix::batch {

class Spool {
 public:
  // What is to come, in all. Throws FileError when that would take more than half of the room that
  // temporary files have: a run that fills a disk hurts everybody on it.
  static void RequireRoom(std::int64_t bytes);

  // Both throw FileError when the file fails.
  void Append(std::span<const std::byte> bytes);
  // The bytes from `offset` on, which must have been appended.
  void Read(std::int64_t offset, std::span<std::byte> bytes);

  std::int64_t size() const { return size_; }

 private:
  std::vector<std::byte> memory_;
  StdioFile file_;
  std::int64_t size_ = 0;
};

}  // namespace cantorix::batch
