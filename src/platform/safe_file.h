// safe_file.h - replacing a file so that a failure at any moment leaves the earlier one whole.
// The target is locked, a sibling is written, every write is checked, the sibling is flushed and
// synced, takes the target's permissions, is renamed over it, and the folder is synced. A symbolic
// link keeps pointing: the file it names is replaced. Where the folder cannot be written but the
// target can, the target is written in place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace cantorix {

class SafeFile {
 public:
  // Locks the target and begins. Throws FileError when the path cannot be opened for writing;
  // nothing has changed then.
  explicit SafeFile(const std::string& path);
  // Without Commit: drops what was written. The earlier file stands.
  ~SafeFile();
  SafeFile(const SafeFile&) = delete;
  SafeFile& operator=(const SafeFile&) = delete;

  // Appends. Throws FileError when the bytes cannot be written.
  void Write(std::span<const std::byte> bytes);
  std::int64_t written() const;

  // Puts the new file in the target's place and syncs. Throws FileError; the earlier file stands.
  void Commit();
  // After a cancel: keeps the incomplete file when there was no earlier one, else drops it.
  void KeepIfNew();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace cantorix
