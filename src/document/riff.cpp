// riff.cpp - the chunk walk.
#include "document/riff.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "document/file_window.h"
#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr std::int64_t kFirstChunk = 12;
constexpr std::int64_t kChunkHeader = 8;
constexpr std::uint32_t kOpenSize = 0xFFFFFFFF;  // to be found elsewhere, or nowhere
constexpr std::int64_t kLongSizes = 28;          // bytes of "ds64" before its table

enum class Padding { kNone, kToEven };

void TakeFormat(FileWindow& window, std::int64_t offset, std::int64_t size, RiffHeader& header) {
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
bool OnlyChunksFollow(FileWindow& window, std::int64_t position, std::int64_t fileLength) {
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
  FileWindow& window;
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
    if (HasText(chunk, 0, "data")) {
      TakeData(riff, content, size, header);
      return header;
    }
    if (HasText(chunk, 0, "ds64")) {
      TakeLongSizes(riff, content, size);
    } else if (HasText(chunk, 0, "fmt ")) {
      TakeFormat(riff.window, content, size, header);
    }
    position = content + size + (padding == Padding::kToEven ? size & 1U : 0);
  }
  return std::nullopt;
}

}  // namespace

std::optional<RiffHeader> ReadRiffHeader(const File& file) {
  FileWindow window(file);
  const auto opening = window.At(0, kFirstChunk);
  // Kept: one of the two words is enough, for the files of programs that got the other wrong.
  if (!HasText(opening, 0, "RIFF") && !HasText(opening, 8, "WAVE")) return std::nullopt;
  const bool isLong = HasText(opening, 0, "RF64") || HasText(opening, 0, "BW64");
  const Riff riff{window, file.Size(), isLong};
  // Kept: no pad byte after an odd chunk, as in the files of most laboratory programs. Only a file
  // that makes no sense without pad bytes is walked with them.
  const auto header = Walk(riff, Padding::kNone);
  return header ? header : Walk(riff, Padding::kToEven);
}

std::optional<RiffHeader> ReadWave64Header(const File& file) {
  // Names of 16 bytes, of which eight tell them apart, and sizes of 64 bits that count their own
  // header; chunks begin at multiples of 8.
  constexpr std::string_view kRestOfName = "\xF3\xAC\xD3\x11";
  constexpr std::int64_t kLongChunkHeader = 24;
  constexpr std::int64_t kFirstLongChunk = 40;
  FileWindow window(file);
  const std::int64_t length = file.Size();
  if (!HasText(window.At(0, 8), 0, "riff\x2E\x91\xCF\x11")) return std::nullopt;
  RiffHeader header;
  for (std::int64_t position = kFirstLongChunk; position < length;) {
    const auto chunk = window.At(position, kLongChunkHeader);
    const auto size = LoadLittle<std::uint64_t>(chunk, 16);
    const bool isNamed = HasText(chunk, 4, kRestOfName);
    const bool isData = isNamed && HasText(chunk, 0, "data");
    if (size < kLongChunkHeader) return std::nullopt;
    const std::int64_t content = position + kLongChunkHeader;
    if (isData) {
      header.dataOffset = content;
      header.promisedLength = static_cast<double>(size - kLongChunkHeader);
      header.dataLength = std::min(header.promisedLength, static_cast<double>(length));
      return header;
    }
    if (size > static_cast<std::uint64_t>(length - position)) return std::nullopt;
    const auto bytes = static_cast<std::int64_t>(size);
    if (isNamed && HasText(chunk, 0, "fmt ")) {
      TakeFormat(window, content, bytes - kLongChunkHeader, header);
    }
    position += (bytes + 7) / 8 * 8;
  }
  return std::nullopt;
}

}  // namespace cantorix
