// mpeg_frames.cpp - the headers of MPEG-1, MPEG-2 and MPEG-2.5 audio (ISO/IEC 11172-3 and 13818-3).
#include "document/readers/mpeg_frames.h"

#include <array>
#include <optional>

#include "document/file_window.h"
#include "platform/bytes.h"

namespace cantorix {
namespace {

constexpr std::int64_t kTagHeader = 10;
constexpr std::int64_t kMostZeros = 4096;
constexpr int kFramesThatConvince = 4;
constexpr std::uint32_t kSameInAllFrames = 0xFFFE0C00;  // sync, version, layer and rate

// kbit/s by the index in the header, for each layer.
using BitRates = std::array<std::array<int, 15>, 3>;
constexpr BitRates kBitRates1{{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
}};
constexpr BitRates kBitRates2{{
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},
}};
constexpr std::array kRates{44100, 48000, 32000};

// Bytes of the frame that a header opens; nothing for what is no header.
std::optional<std::int64_t> FrameBytes(std::uint32_t header) {
  const std::uint32_t version = header >> 19 & 3;  // 3: MPEG-1, 2: MPEG-2, 0: MPEG-2.5
  const std::uint32_t layer = 4 - (header >> 17 & 3);
  const std::uint32_t bitRate = header >> 12 & 15;
  const std::uint32_t rate = header >> 10 & 3;
  const bool isHeader = header >> 21 == 0x7FF && version != 1 && layer <= 3 && bitRate != 0 &&
                        bitRate != 15 && rate != 3;
  if (!isHeader) return std::nullopt;
  const bool isFirst = version == 3;
  const int bitsPerSecond = (isFirst ? kBitRates1 : kBitRates2)[layer - 1][bitRate] * 1000;
  const int rateHz = kRates[rate] / (isFirst ? 1 : version == 2 ? 2 : 4);
  const int padding = static_cast<int>(header >> 9 & 1);
  if (layer == 1) return (12 * bitsPerSecond / rateHz + padding) * 4;
  const int samples = layer == 3 && !isFirst ? 576 : 1152;
  return samples / 8 * bitsPerSecond / rateHz + padding;
}

std::uint32_t HeaderAt(FileWindow& window, std::int64_t at) {
  return LoadIn<std::uint32_t>(ByteOrder::kHighFirst, window.At(at, 4), 0);
}

// Where the frames begin behind the tags that may stand before them.
std::int64_t BehindTags(FileWindow& window, std::int64_t size) {
  std::int64_t at = 0;
  while (at < size) {
    const auto tag = window.At(at, kTagHeader);
    if (!HasText(tag, 0, "ID3")) return at;
    std::int64_t bytes = 0;
    for (std::size_t i = 6; i < 10; ++i)
      bytes = bytes << 7 | std::to_integer<int>(tag[i] & std::byte{0x7F});
    at += kTagHeader + bytes;
  }
  return at;
}

}  // namespace

bool BeginsLikeMpeg(const File& file) {
  FileWindow window(file);
  return HeaderAt(window, 0) >> 21 == 0x7FF;
}

bool IsMpegAudio(const File& file) {
  FileWindow window(file);
  const std::int64_t size = file.Size();
  std::int64_t at = BehindTags(window, size);
  for (const std::int64_t last = at > 0 ? at + kMostZeros : 0;
       at < last && window.At(at, 1)[0] == std::byte{0};) {
    ++at;
  }
  const std::uint32_t first = HeaderAt(window, at);
  for (int i = 0; i < kFramesThatConvince; ++i) {
    if (at >= size) return at == size && i >= 2;  // all that there is
    const std::uint32_t header = HeaderAt(window, at);
    const auto bytes = FrameBytes(header);
    if (!bytes || ((header ^ first) & kSameInAllFrames) != 0) return false;
    at += *bytes;
  }
  return true;
}

}  // namespace cantorix
