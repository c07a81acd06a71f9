// chunks.cpp - from one chunk to the next.
#include "document/readers/chunks.h"

#include <algorithm>

namespace cantorix {

constexpr std::int64_t kChunkHeader = 8;

ChunkWalk::ChunkWalk(const File& file, std::int64_t first, std::int64_t end, ByteOrder order)
    : window_(file), position_(first), end_(std::min(end, file.Size())), order_(order) {}

std::optional<FileChunk> ChunkWalk::Next() {
  if (position_ > end_ - kChunkHeader) return std::nullopt;
  const auto header = window_.At(position_, kChunkHeader);
  FileChunk chunk;
  for (std::size_t i = 0; i < 4; ++i) chunk.id += std::to_integer<char>(header[i]);
  chunk.claimed = LoadIn<std::uint32_t>(order_, header, 4);
  chunk.content = position_ + kChunkHeader;
  chunk.bytes = std::min(chunk.claimed, end_ - chunk.content);
  GoOnAt(chunk.content + chunk.claimed + (chunk.claimed & 1));
  return chunk;
}

void ChunkWalk::GoOnAt(std::int64_t position) { position_ = position; }

}  // namespace cantorix
