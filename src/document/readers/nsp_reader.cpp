// nsp_reader.cpp - CSL's NSP: a header chunk, then each channel in a chunk of its own, or the first
// two of them interleaved in one.
#include <algorithm>
#include <array>
#include <tuple>
#include <vector>

#include "document/interleaved_samples.h"
#include "document/readers/chunks.h"
#include "document/readers/readers.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr std::int64_t kFirstNspChunk = 12;
constexpr std::int64_t kNspHeaderBytes = 28;
constexpr std::size_t kRateAt = 20;
constexpr std::size_t kLengthAt = 24;
constexpr std::int64_t kSampleBytes = 2;
constexpr SampleCoding kCoding = SampleCoding::kSigned16;

// The names of the chunks of one channel each, in the order of the channels.
constexpr std::array kChannelChunks{"SDA_", "SD_B", "SD_2", "SD_3", "SD_4",
                                    "SD_5", "SD_6", "SD_7", "SD_8"};

struct NspChannel {
  std::int64_t order = 0;  // among the channels
  InterleavedPlace place;
  std::int64_t frames = 0;  // that the file has
};

struct NspContent {
  bool hasHeader = false;
  double rateHz = 0.0;
  std::int64_t promised = 0;
  std::vector<NspChannel> channels;
};

void TakeHeader(const File& file, const FileChunk& chunk, NspContent& content) {
  if (chunk.bytes < kNspHeaderBytes) return;
  FileWindow window(file);
  const auto block = window.At(chunk.content, kNspHeaderBytes);
  content.hasHeader = true;
  content.rateHz = LoadLittle<std::uint32_t>(block, kRateAt);
  content.promised = LoadLittle<std::uint32_t>(block, kLengthAt);
}

void TakeChannel(const FileChunk& chunk, std::int64_t order, std::int64_t of, std::int64_t place,
                 NspContent& content) {
  const std::int64_t frameBytes = of * kSampleBytes;
  InterleavedPlace where{.coding = kCoding, .dataOffset = chunk.content};
  where.frameBytes = static_cast<std::size_t>(frameBytes);
  where.channelOffset = static_cast<std::size_t>(place * kSampleBytes);
  content.channels.push_back({order, where, chunk.bytes / frameBytes});
}

NspContent ContentOf(const File& file) {
  NspContent content;
  ChunkWalk walk(file, kFirstNspChunk, file.Size(), ByteOrder::kLowFirst);
  // As many as there can be: a file of nothing but empty channels must not fill the memory.
  while (const auto chunk = walk.Next()) {
    if (content.channels.size() > kChannelChunks.size()) break;
    if (chunk->id == "HEDR" || chunk->id == "HDR8") TakeHeader(file, *chunk, content);
    if (chunk->id == "SDAB") {
      TakeChannel(*chunk, 0, 2, 0, content);
      TakeChannel(*chunk, 1, 2, 1, content);
    }
    const auto* const name = std::find(kChannelChunks.begin(), kChannelChunks.end(), chunk->id);
    if (name != kChannelChunks.end()) {
      TakeChannel(*chunk, name - kChannelChunks.begin(), 1, 0, content);
    }
  }
  const auto key = [](const NspChannel& channel) {
    return std::tuple(channel.order, channel.place.dataOffset, channel.place.channelOffset);
  };
  std::sort(content.channels.begin(), content.channels.end(),
            [&](const NspChannel& a, const NspChannel& b) { return key(a) < key(b); });
  return content;
}

}  // namespace

bool ReadNsp(CSonadexDoc& document, const File& file) {
  if (!HasMagic(file, "FORMDS16")) return false;
  const NspContent content = ContentOf(file);
  if (!content.hasHeader) throw FileError("It is a CSL file without a header chunk.");
  if (content.channels.empty()) throw FileError("It holds no samples.");
  std::int64_t held = content.channels.front().frames;
  for (const NspChannel& channel : content.channels) held = std::min(held, channel.frames);
  ForeignSound sound{.format = "CSL NSP", .coding = NameOf(kCoding)};
  sound.channels = static_cast<int>(content.channels.size());
  sound.rateHz = content.rateHz;
  sound.frames = held;
  if (content.promised > 0) {
    sound.promised = content.promised;
    sound.frames = std::min(held, content.promised);
  }
  ReadForeign(document, file, sound,
              [&](int channel, std::int64_t position, std::span<std::int16_t> out) {
                const auto& place = content.channels[static_cast<std::size_t>(channel)].place;
                return InterleavedSamples(file, place).Read(position, out);
              });
  return true;
}

}  // namespace cantorix
