// riff.cpp - the chunk walk.
#include "document/riff.h"

#include <algorithm>
#include <string_view>

#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr std::int64_t kFirstChunk = 12;
constexpr std::int64_t kChunkHeader = 8;

enum class Padding { kNone, kToEven };

// Small reads at growing positions, through a window: a file of nothing but empty chunks must not
// cost a system call for each. What lies past the end of the file reads as zeros.
class Window {
 public:
  explicit Window(const File& file) : file_(file) {}

  std::span<const std::byte> At(std::int64_t offset, std::size_t width) {
    if (offset < start_ || offset + static_cast<std::int64_t>(width) > start_ + kBytes) {
      const std::size_t got = file_.ReadSome(offset, bytes_);
      std::fill(bytes_.begin() + static_cast<std::ptrdiff_t>(got), bytes_.end(), std::byte{0});
      start_ = offset;
    }
    return std::span(bytes_).subspan(static_cast<std::size_t>(offset - start_), width);
  }

 private:
  static constexpr std::int64_t kBytes = 4096;

  const File& file_;
  std::array<std::byte, kBytes> bytes_{};
  std::int64_t start_ = -kBytes;
};

bool Is(std::span<const std::byte> block, std::size_t offset, std::string_view id) {
  return std::equal(id.begin(), id.end(), block.begin() + static_cast<std::ptrdiff_t>(offset),
                    [](char c, std::byte b) { return static_cast<std::byte>(c) == b; });
}

void TakeFormat(Window& window, std::int64_t offset, std::int64_t size, RiffHeader& header) {
  header.formatOffset = offset;
  header.formatBytes = size;
  const auto width = static_cast<std::size_t>(
      std::min<std::int64_t>(size, static_cast<std::int64_t>(header.format.size())));
  const auto bytes = window.At(offset, width);
  std::copy(bytes.begin(), bytes.end(), header.format.begin());
}

std::optional<RiffHeader> Walk(Window& window, std::int64_t fileLength, Padding padding) {
  RiffHeader header;
  std::int64_t position = kFirstChunk;
  while (position < fileLength) {
    const auto chunk = window.At(position, kChunkHeader);
    const std::int64_t size = LoadLittle<std::uint32_t>(chunk, 4);
    const std::int64_t content = position + kChunkHeader;
    if (Is(chunk, 0, "data")) {
      // Kept: the cap is the whole file's length, not what is left of it. Samples that are not
      // there read as 0, and the length of a cut recording stays what it always was.
      header.dataLength = static_cast<double>(std::min(size, fileLength));
      header.dataOffset = content;
      return header;
    }
    if (Is(chunk, 0, "fmt ")) TakeFormat(window, content, size, header);
    position = content + size + (padding == Padding::kToEven ? size & 1 : 0);
  }
  return std::nullopt;
}

}  // namespace

std::optional<RiffHeader> ReadRiffHeader(const File& file) {
  Window window(file);
  const auto opening = window.At(0, kFirstChunk);
  // Kept: one of the two words is enough, for the files of programs that got the other wrong.
  if (!Is(opening, 0, "RIFF") && !Is(opening, 8, "WAVE")) return std::nullopt;
  const std::int64_t fileLength = file.Size();
  // Kept: no pad byte after an odd chunk, as in the files of most laboratory programs. Only a file
  // that makes no sense without pad bytes is walked with them.
  const auto header = Walk(window, fileLength, Padding::kNone);
  return header ? header : Walk(window, fileLength, Padding::kToEven);
}

}  // namespace cantorix
