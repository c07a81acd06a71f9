// riff.cpp - the chunk walk.
#include "document/riff.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr std::int64_t kFirstChunk = 12;
constexpr std::int64_t kChunkHeader = 8;
constexpr std::uint32_t kOpenSize = 0xFFFFFFFF;  // to be found elsewhere, or nowhere
constexpr std::int64_t kLongSizes = 28;          // bytes of "ds64" before its table

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

bool IsPrintable(std::span<const std::byte> block) {
  return std::all_of(block.begin(), block.begin() + 4,
                     [](std::byte b) { return b >= std::byte{' '} && b <= std::byte{'~'}; });
}

// Whether nothing but whole chunks stands from `position` to the end of the file.
bool OnlyChunksFollow(Window& window, std::int64_t position, std::int64_t fileLength) {
  while (position < fileLength) {
    const auto chunk = window.At(position, kChunkHeader);
    if (!IsPrintable(chunk)) return false;
    const std::int64_t size = LoadLittle<std::uint32_t>(chunk, 4);
    position += kChunkHeader + size + (size & 1);
  }
  return position == fileLength;
}

// A file on its walk.
struct Riff {
  Window& window;
  std::int64_t length;                        // of the file, bytes
  bool isLong;                                // RF64 or BW64
  std::optional<std::uint64_t> longLength{};  // of the samples, as "ds64" gives it
};

void TakeLongSizes(Riff& riff, std::int64_t content, std::int64_t size) {
  if (!riff.isLong || size < kLongSizes) return;
  riff.longLength = LoadLittle<std::uint64_t>(riff.window.At(content, kLongSizes), 8);
}

// The length of the samples that begin at `content`, as the file claims it; nothing when it leaves
// it open, so that all that follows counts.
std::optional<std::uint64_t> ClaimedLength(const Riff& riff, std::int64_t content,
                                           std::uint32_t size) {
  std::optional<std::uint64_t> claimed = size;
  if (size == kOpenSize) claimed = riff.longLength;
  if (claimed == std::numeric_limits<std::uint64_t>::max()) return std::nullopt;
  const bool isEmpty = claimed == 0U && OnlyChunksFollow(riff.window, content, riff.length);
  return claimed == 0U && !isEmpty ? std::nullopt : claimed;
}

void TakeData(const Riff& riff, std::int64_t content, std::uint32_t size, RiffHeader& header) {
  const auto rest = static_cast<std::uint64_t>(std::max<std::int64_t>(riff.length - content, 0));
  const std::uint64_t claimed = ClaimedLength(riff, content, size).value_or(rest);
  header.dataOffset = content;
  header.promisedLength = static_cast<double>(claimed);
  // Kept: the cap is the whole file's length, not what is left of it. Samples that are not
  // there read as 0, and the length of a cut recording stays what it always was.
  header.dataLength = std::min(header.promisedLength, static_cast<double>(riff.length));
}

std::optional<RiffHeader> Walk(Riff riff, Padding padding) {
  RiffHeader header;
  std::int64_t position = kFirstChunk;
  while (position < riff.length) {
    const auto chunk = riff.window.At(position, kChunkHeader);
    const auto size = LoadLittle<std::uint32_t>(chunk, 4);
    const std::int64_t content = position + kChunkHeader;
    if (Is(chunk, 0, "data")) {
      TakeData(riff, content, size, header);
      return header;
    }
    if (Is(chunk, 0, "ds64")) {
      TakeLongSizes(riff, content, size);
    } else if (Is(chunk, 0, "fmt ")) {
      TakeFormat(riff.window, content, size, header);
    }
    position = content + size + (padding == Padding::kToEven ? size & 1U : 0);
  }
  return std::nullopt;
}

}  // namespace

std::optional<RiffHeader> ReadRiffHeader(const File& file) {
  Window window(file);
  const auto opening = window.At(0, kFirstChunk);
  // Kept: one of the two words is enough, for the files of programs that got the other wrong.
  if (!Is(opening, 0, "RIFF") && !Is(opening, 8, "WAVE")) return std::nullopt;
  const bool isLong = Is(opening, 0, "RF64") || Is(opening, 0, "BW64");
  const Riff riff{window, file.Size(), isLong};
  // Kept: no pad byte after an odd chunk, as in the files of most laboratory programs. Only a file
  // that makes no sense without pad bytes is walked with them.
  const auto header = Walk(riff, Padding::kNone);
  return header ? header : Walk(riff, Padding::kToEven);
}

}  // namespace cantorix
