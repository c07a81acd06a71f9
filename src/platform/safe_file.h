// safe_file.h - replacing a file so that a failure at any moment leaves the earlier one whole.
// The target is locked, a sibling is written, every write is checked, the sibling is flushed and
// synced, takes the target's permissions, is renamed over it, and the folder is synced. A symbolic
// link keeps pointing: the file it names is replaced. A new file takes its rights from the umask
// and appears whole. Where the folder cannot be written but the target can, the content is gathered
// in a temporary file and written over the target by Commit, after its space was reserved; only a
// program killed within that last step leaves the target mixed.
// A killed program may leave one hidden ".cantorix-save-..." file beside the target; the next save
// of the same target clears it away.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "platform/byte_sink.h"
#include "platform/file.h"

namespace cantorix {

// Whether a file that has taken its place is known to have reached the disk.
enum class Durability {
  kOnDisk,
  kPerhapsNotYet,  // the folder could not be synced: a power cut may bring the earlier file back
};

class SafeFile {
 public:
  // Locks the target and begins. Throws FileError when the path cannot be opened for writing or
  // another program is writing it; nothing has changed then.
  explicit SafeFile(const std::string& path);
  // Without Commit: drops what was written. The earlier file stands.
  ~SafeFile();
  SafeFile(const SafeFile&) = delete;
  SafeFile& operator=(const SafeFile&) = delete;

  // Appends. Throws FileError when bytes cannot be written; Commit throws it again then.
  void Write(std::span<const std::byte> bytes);
  // Appends `count` bytes of another file, which stays open until the commit; without a way through
  // this program where the system can do that. Throws FileError as Write does.
  void WriteFrom(const FileStretch& stretch, std::int64_t count);
  std::int64_t written() const;

  // Puts the new file in the target's place and syncs. Throws FileError; the earlier file stands,
  // also one that another program has put under a new name meanwhile.
  Durability Commit();
  // After a cancel: keeps the incomplete file when there was no earlier one, else drops it. Throws
  // FileError when what there is cannot be kept.
  void KeepIfNew();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

// Makes `bytes` the whole content of the file at `path`. Throws FileError; the earlier file stands.
Durability ReplaceFile(const std::string& path, std::span<const std::byte> bytes);

// Replaces the file at `path` by what `write` gives to its sink. When `write` leaves by a cancel,
// an earlier file stands and a new one stays as far as it got; when by anything else, nothing
// changes.
Durability ReplaceFile(const std::string& path, const std::function<void(const ByteSink&)>& write);

}  // namespace cantorix
