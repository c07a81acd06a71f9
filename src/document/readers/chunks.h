// chunks.h - the chunks of a container file one after the other: a name of four letters, the size
// of the content as 32 bits, the content, and a pad byte where that is odd.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "document/file_window.h"
#include "platform/bytes.h"

namespace cantorix {

struct FileChunk {
  std::string id;
  std::int64_t content = 0;  // its place in the file
  std::int64_t claimed = 0;  // bytes of content, by its header
  std::int64_t bytes = 0;    // of them, those that the file has
};

class ChunkWalk {
 public:
  // From the chunk at `first` to `end`, a place in the file or behind it. `file` outlives the walk.
  ChunkWalk(const File& file, std::int64_t first, std::int64_t end, ByteOrder order);

  // The next chunk; none at the end. Throws FileError when the file cannot be read.
  std::optional<FileChunk> Next();
  // The next one begins at `position`, behind the beginning of the last one.
  void GoOnAt(std::int64_t position);

 private:
  FileWindow window_;
  std::int64_t position_;
  std::int64_t end_;
  ByteOrder order_;
};

}  // namespace cantorix
